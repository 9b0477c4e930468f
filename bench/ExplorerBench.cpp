// The Explorer over a project of 1,000 components and 50,000 members.
#include <benchmark/benchmark.h>
#include <malloc.h>

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

/// Everything that stands behind a document, made once.
struct World {
  World() {
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
    gEventCODE = std::make_shared<clsEventCODE>();
    gEventCODE->SetVBInstance(Environment.VBE());
    Environment.NewProject(u"Project1", host::vbext_pt_StandardExe);
    const String text = ModuleText(MembersEach);
    for (int at = 0; at < Components; ++at) {
      Environment.AddComponent(u"", host::vbext_ct_StdModule, u"Module" + vb::Str(at), text);
    }
    for (int at = 0; at < Components; ++at) Read(at);  // the index of every module
  }
  MemberTable Read(int at) {
    return mFunctions::AllNameProcedures(
        Environment.VBE()->ActiveVBProject()->VBComponents()->Item(at + 1)->CodeModule(), u"");
  }
  std::shared_ptr<udProjectExplorer> Document() {
    const auto document = std::make_shared<udProjectExplorer>();
    document->Initialize();
    document->VBInstance = Environment.VBE();
    document->SetTreeVBA(gEventCODE);
    return document;
  }
  memory::UnattendedPlatform Services;
  platform::ScopedPlatform Scope{Services};
  model::Environment Environment{Services};
};
World& TheWorld() {
  static World world;
  return world;
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
    const auto document = world.Document();
    before = mallinfo2().uordblks;
    state.ResumeTiming();
    document->Show();
    state.PauseTiming();
    bytes = mallinfo2().uordblks - before;
    state.counters["bytes a row"] =
        static_cast<double>(bytes) / static_cast<double>(document->fgTree.Rows());
    document->SetTreeVBA(nullptr);
    state.ResumeTiming();
  }
}
BENCHMARK(FirstReadingAndRows)->Unit(benchmark::kMillisecond);

void CaretMove(benchmark::State& state) {
  World& world = TheWorld();
  const auto document = world.Document();
  document->Show();
  int line = 0;
  for (auto _ : state) {
    line = line % (3 * MembersEach) + 1;
    world.Environment.SetCaret(u"Module500", {line, 1, line, 1});
    gEventCODE->RunTimerEventCode();
  }
  document->SetTreeVBA(nullptr);
}
BENCHMARK(CaretMove)->Unit(benchmark::kMicrosecond);

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
    gEventCODE->RunTimerEventCode();
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
