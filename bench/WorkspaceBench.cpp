// A project of 1,000 components and a million lines: opened and saved, beside reading and writing
// the same bytes.

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>

#include "GeneratedCode.h"
#include "hosts/memory/UnattendedPlatform.h"
#include "hosts/workspace/Workspace.h"
#include "scanning/mFunctions.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace tessel;

constexpr int Components = 1000, LinesEach = 1000;

const test::TemporaryFolder& Project() {
  static const test::TemporaryFolder folder;
  static const bool made = [] {
    std::string project = "Type=Exe\r\n";
    const std::string code = bench::Code(LinesEach);
    for (int number = 0; number < Components; ++number) {
      const std::string name = "M" + std::to_string(number);
      project += "Module=" + name + "; " + name + ".bas\r\n";
      folder.Write(name + ".bas", "Attribute VB_Name = \"" + name + "\"\r\n" + code);
    }
    folder.Write("P.vbp", project + "Name=\"P\"\r\n");
    return true;
  }();
  benchmark::DoNotOptimize(made);
  return folder;
}

/// Kilobytes of memory in use.
long Resident() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
  }
  return 0;
}

void OpenAndSaveEveryModuleChanged(benchmark::State& state) {
  memory::UnattendedPlatform services;
  const platform::ScopedPlatform scope(services);
  const auto path = Project().Path() / "P.vbp";
  const long before = Resident();
  for (auto _ : state) {
    workspace::Workspace workspace(services);
    workspace.Open(path);
    const auto components = workspace.VBE()->ActiveVBProject()->VBComponents();
    for (int index = 1; index <= components->Count(); ++index) {
      const auto module = components->Item(index)->CodeModule();
      module->InsertLines(1, u"' x");
      module->DeleteLines(1, 1);
      module->ReplaceLine(1, module->Lines(1, 1) + (state.iterations() % 2 == 0 ? u" " : u"  "));
    }
    state.counters["MB"] = static_cast<double>(Resident() - before) / 1024;
    workspace.Save();
  }
}
BENCHMARK(OpenAndSaveEveryModuleChanged)->Unit(benchmark::kMillisecond)->UseRealTime();

void OpenAndSaveUnchanged(benchmark::State& state) {
  memory::UnattendedPlatform services;
  const platform::ScopedPlatform scope(services);
  const auto path = Project().Path() / "P.vbp";
  for (auto _ : state) {
    workspace::Workspace workspace(services);
    workspace.Open(path);
    benchmark::DoNotOptimize(workspace.Save());
  }
}
BENCHMARK(OpenAndSaveUnchanged)->Unit(benchmark::kMillisecond)->UseRealTime();

void PlainStreams(benchmark::State& state) {
  const auto& folder = Project();
  double bytesRead = 0;
  for (auto _ : state) {
    bytesRead = 0;
    for (int number = 0; number < Components; ++number) {
      const std::string name = "M" + std::to_string(number) + ".bas";
      const std::string bytes = folder.Read(name);
      bytesRead += static_cast<double>(bytes.size());
      folder.Write(name, bytes);
    }
  }
  state.counters["MB"] = bytesRead / 1024 / 1024;
}
BENCHMARK(PlainStreams)->Unit(benchmark::kMillisecond)->UseRealTime();

void MemberTable(benchmark::State& state) {
  memory::UnattendedPlatform services;
  const platform::ScopedPlatform scope(services);
  model::Environment environment(services);
  environment.NewProject(u"P", host::vbext_pt_StandardExe);
  const auto module =
      environment
          .AddComponent(u"", host::vbext_ct_StdModule, u"M",
                        vb::FromUtf8(bench::Code(static_cast<int>(state.range(0)) * 10)))
          ->CodeModule();
  for (auto _ : state) benchmark::DoNotOptimize(mFunctions::AllNameProcedures(module, u""));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(MemberTable)
    ->RangeMultiplier(4)
    ->Range(1250, 20000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

}  // namespace
