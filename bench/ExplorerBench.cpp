// The Explorer over a project of 1,000 components and 50,000 members.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <map>

#include "CountedMemory.h"
#include "explorer/udProjectExplorer.h"
#include "foundation/CAppSettings.h"
#include "hosts/memory/UnattendedPlatform.h"
#include "hosts/model/Environment.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr int Components = 1000, MembersEach = 50, Many = 2000;

String ModuleText(int members) {
  String text = u"Option Explicit\r\n";
  for (int member = 0; member < members; ++member) {
    text += u"Private Sub Member" + vb::Str(member) + u"_Run(ByVal Index As Long)\r\n    Index = " +
            vb::Str(member) + u"\r\nEnd Sub\r\n";
  }
  return text + u"\r\n";
}

/// Everything that stands behind a document.
struct World {
  explicit World(int components) : Count(components) {
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
    Events->SetVBInstance(Environment.VBE());
    Environment.NewProject(u"Project1", host::vbext_pt_StandardExe);
    const String text = ModuleText(MembersEach);
    for (int at = 0; at < Count; ++at) {
      Environment.AddComponent(u"", host::vbext_ct_StdModule, u"Module" + vb::Str(at), text);
    }
    for (int at = 0; at < Count; ++at) Read(at);  // the index of every module
  }
  MemberTable Read(int at) {
    return mFunctions::AllNameProcedures(
        Environment.VBE()->ActiveVBProject()->VBComponents()->Item(at + 1)->CodeModule(), u"");
  }
  std::shared_ptr<udProjectExplorer> Document() {
    const auto document = std::make_shared<udProjectExplorer>();
    document->Initialize();
    document->VBInstance = Environment.VBE();
    document->SetTreeVBA(Events);
    return document;
  }
  const int Count;
  const std::shared_ptr<clsEventCODE> Events = std::make_shared<clsEventCODE>();
  memory::UnattendedPlatform Services;
  platform::ScopedPlatform Scope{Services};
  model::Environment Environment{Services};
};
/// One world for each number of components, made once.
World& TheWorld(int components = Components) {
  static std::map<int, World> worlds;
  return worlds.try_emplace(components, components).first->second;
}

/// The peer of the next.
void MemberTablesAlone(benchmark::State& state) {
  World& world = TheWorld();
  for (auto _ : state) {
    for (int at = 0; at < Components; ++at) benchmark::DoNotOptimize(world.Read(at));
  }
}
BENCHMARK(MemberTablesAlone)->Unit(benchmark::kMillisecond);

void FirstReadingAndRows(benchmark::State& state) {
  World& world = TheWorld();
  std::size_t before = 0, bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto document = world.Document();
    before = mallinfo2().uordblks;
    state.ResumeTiming();
    document->Show();
    state.PauseTiming();
    bytes = mallinfo2().uordblks - before;
    state.counters["bytes a row"] =
        static_cast<double>(bytes) / static_cast<double>(document->fgTree.Rows());
    document->SetTreeVBA(nullptr);
    document.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(FirstReadingAndRows)->Unit(benchmark::kMillisecond);

/// Beside the number of components: neither time nor memory may grow with it.
void CaretMove(benchmark::State& state) {
  World& world = TheWorld(static_cast<int>(state.range(0)));
  const auto document = world.Document();
  document->Show();
  int line = 0;
  const auto move = [&] {
    line = line % (3 * MembersEach) + 1;
    world.Environment.SetCaret(u"Module50", {line, 1, line, 1});
    world.Events->RunTimerEventCode();
  };
  move();
  const bench::Allocations before = bench::AllocationsSoFar();
  for (auto _ : state) move();
  const bench::Allocations after = bench::AllocationsSoFar();
  const auto moves = static_cast<double>(state.iterations());
  state.counters["allocations"] = static_cast<double>(after.Times - before.Times) / moves;
  state.counters["bytes"] = static_cast<double>(after.Bytes - before.Bytes) / moves;
  document->SetTreeVBA(nullptr);
}
BENCHMARK(CaretMove)->Arg(100)->Arg(Components)->Unit(benchmark::kMicrosecond);

/// A notice from a designer or of the projects: all components are compared, nothing has changed.
void UnchangedProjects(benchmark::State& state) {
  World& world = TheWorld(static_cast<int>(state.range(0)));
  const auto document = world.Document();
  document->Show();
  for (auto _ : state) world.Events->RunTimerEventComponent();
  document->SetTreeVBA(nullptr);
}
BENCHMARK(UnchangedProjects)->Arg(100)->Arg(Components)->Unit(benchmark::kMillisecond);

/// Every second line of its 2,000 members has moved, one member came or went.
void ChangedComponent(benchmark::State& state) {
  World& world = TheWorld();
  world.Environment.SetText(u"Module500", ModuleText(Many));
  const auto document = world.Document();
  document->Show();
  world.Environment.SetCaret(u"Module500", {3, 1, 3, 1});
  const auto module = world.Environment.Component(u"Module500")->CodeModule();
  bool there = false;
  for (auto _ : state) {
    state.PauseTiming();
    if (there) {
      module->DeleteLines(2, 2);
    } else {
      module->InsertLines(2, u"Sub Fresh()\r\nEnd Sub");
    }
    there = !there;
    state.ResumeTiming();
    world.Events->RunTimerEventCode();
  }
  document->SetTreeVBA(nullptr);
  world.Environment.SetText(u"Module500", ModuleText(MembersEach));
}
BENCHMARK(ChangedComponent)->Unit(benchmark::kMillisecond);

/// One more letter in the line above the tree.
void FindInAll(benchmark::State& state) {
  World& world = TheWorld();
  const auto document = world.Document();
  document->Show();
  bool longer = false;
  for (auto _ : state) {
    longer = !longer;
    document->txtFind.SetText(longer ? u"module77 er4" : u"module77 er");
  }
  document->SetTreeVBA(nullptr);
}
BENCHMARK(FindInAll)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessel
