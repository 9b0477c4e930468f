// Insertion and removal of error handlers over a project, beside the formatter over the same one.

#include <benchmark/benchmark.h>

#include "GeneratedCode.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "formatter/mFormatText.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"

namespace {

using namespace tessel;
namespace insert = mInsertErrorHandlerCode;

constexpr int LinesEach = 1000;
constexpr StringView Scope = u"Current Project   [Project1]";

/// A project of modules with 1,000 lines each, the delivered rules and schemes.
struct Project {
  explicit Project(int modules) {
    const String code = vb::FromUtf8(bench::Code(LinesEach));
    for (int number = 0; number < modules; ++number) World.Module(u"M" + vb::Str(number), code);
    Components = World.Environment.VBE()->ActiveVBProject()->VBComponents();
    // A module is divided into members when somebody asks; no run is to pay for it.
    for (int index = 1; index <= Components->Count(); ++index) {
      Components->Item(index)->CodeModule()->CountOfDeclarationLines();
    }
  }
  void Insert(const String& scheme) {
    Context.ModuleScheme = scheme;
    String chosen = scheme;
    insert::RunInsertErrorHandlerCode(Context, Components, Scope, chosen);
  }
  void Format() { mFormatText::RunFormatText(Formatter, Components, Scope); }
  void Remove() { mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(Context, Components, Scope); }
  insert::RunContext Context;
  mFormatText::FormatRun Formatter;
  test::World World;
  test::SharedDatabase Database;
  std::shared_ptr<host::VBComponents> Components;
};

/// Measures a run over fresh projects; `ahead` is done to each first, unmeasured.
template <class Ahead, class Run>
void OverProjects(benchmark::State& state, Ahead ahead, Run run) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      Project project(static_cast<int>(state.range(0)));
      ahead(project);
      state.ResumeTiming();
      run(project);
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}

void Nothing(Project&) {}

void FormatProject(benchmark::State& state) {
  OverProjects(state, Nothing, [](Project& project) { project.Format(); });
}

void FormatDressedProject(benchmark::State& state) {
  OverProjects(
      state, [](Project& project) { project.Insert(u"Message Box"); },
      [](Project& project) { project.Format(); });
}

void InsertNumbered(benchmark::State& state) {
  OverProjects(state, Nothing, [](Project& project) { project.Insert(u"Message Box"); });
}

void InsertUnnumbered(benchmark::State& state) {
  OverProjects(state, Nothing, [](Project& project) { project.Insert(u"Raise to Caller"); });
}

void InsertAgain(benchmark::State& state) {
  OverProjects(
      state, [](Project& project) { project.Insert(u"Message Box"); },
      [](Project& project) { project.Insert(u"Message Box"); });
}

void RemoveNumbered(benchmark::State& state) {
  OverProjects(
      state, [](Project& project) { project.Insert(u"Message Box"); },
      [](Project& project) { project.Remove(); });
}

void RemoveFromPlainCode(benchmark::State& state) {
  OverProjects(state, Nothing, [](Project& project) { project.Remove(); });
}

void Sizes(benchmark::internal::Benchmark* one) {
  one->RangeMultiplier(10)
      ->Range(10, 1000)
      ->Complexity(benchmark::oN)
      ->Unit(benchmark::kMillisecond);
}
BENCHMARK(FormatProject)->Apply(Sizes);
BENCHMARK(FormatDressedProject)->Apply(Sizes);
BENCHMARK(InsertNumbered)->Apply(Sizes);
BENCHMARK(InsertUnnumbered)->Apply(Sizes);
BENCHMARK(InsertAgain)->Apply(Sizes);
BENCHMARK(RemoveNumbered)->Apply(Sizes);
BENCHMARK(RemoveFromPlainCode)->Apply(Sizes);

/// All members of one large module.
void InsertIntoOneModule(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      Project project(0);
      project.World.Module(u"M", vb::FromUtf8(bench::Code(static_cast<int>(state.range(0)) * 10)));
      state.ResumeTiming();
      project.Insert(u"Message Box");
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(InsertIntoOneModule)
    ->RangeMultiplier(4)
    ->Range(1250, 20000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

}  // namespace
