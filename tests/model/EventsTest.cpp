#include "hosts/model/Events.h"

#include <gtest/gtest.h>

#include "hosts/model/CommandBars.h"
#include "tests/support/Modules.h"

namespace tessel::model {
namespace {

struct Bench {
  Bench() : Context{std::make_shared<OperationHook>(), &Services, Sinks} {}
  std::shared_ptr<CommandBarControl> Button() {
    return std::make_shared<CommandBarControl>(Context, host::msoControlButton);
  }
  memory::MemoryPlatform Services;
  std::shared_ptr<Events> Sinks = std::make_shared<Events>();
  BarContext Context;
};

TEST(Events, ReachEverySinkThatSomebodyHolds) {
  Events events;
  int first = 0, second = 0;
  const auto one = events.VBProjectsEvents(), other = events.VBProjectsEvents();
  one->ItemAdded = [&](const auto&) { ++first; };
  other->ItemAdded = [&](const auto&) { ++second; };
  events.ProjectAdded(nullptr);
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 1);
}

TEST(Events, ReachNoSinkThatNobodyHolds) {
  Events events;
  int calls = 0;
  auto sink = events.VBComponentsEvents();
  sink->ItemAdded = [&](const auto&) { ++calls; };
  events.ComponentAdded(nullptr);
  sink.reset();
  events.ComponentAdded(nullptr);
  EXPECT_EQ(calls, 1);
}

TEST(Events, PassOverASinkWithoutHandlers) {
  Events events;
  const auto sink = events.VBControlsEvents();
  events.ControlAdded(nullptr);
  events.ControlRemoved(nullptr);
  events.ControlRenamed(nullptr, u"Old", 2);
  int index = 0;
  String name;
  sink->ItemRenamed = [&](const auto&, StringView oldName, int oldIndex) {
    name = oldName;
    index = oldIndex;
  };
  events.ControlRenamed(nullptr, u"Old", 2);
  EXPECT_EQ(name, u"Old");
  EXPECT_EQ(index, 2);
}

TEST(Events, StandAHandlerThatDropsSinks) {
  Events events;
  int calls = 0;
  auto first = events.VBProjectsEvents(), second = events.VBProjectsEvents();
  first->ItemAdded = [&](const auto&) {
    ++calls;
    first.reset();
    second.reset();
  };
  second->ItemAdded = [&](const auto&) { ++calls; };
  events.ProjectAdded(nullptr);
  EXPECT_EQ(calls, 1);
}

TEST(Events, ReachASinkThatAHandlerMadeFromTheNextTimeOn) {
  Events events;
  int calls = 0;
  std::vector<std::shared_ptr<host::VBProjectsEvents>> more;
  const auto sink = events.VBProjectsEvents();
  sink->ItemAdded = [&](const auto&) {
    more.push_back(events.VBProjectsEvents());
    more.back()->ItemAdded = [&](const auto&) { ++calls; };
  };
  events.ProjectAdded(nullptr);
  EXPECT_EQ(calls, 0);
  events.ProjectAdded(nullptr);
  EXPECT_EQ(calls, 1);
}

TEST(Events, ReachTheSinkOfTheClickedControlOnly) {
  Bench bench;
  const auto one = bench.Button(), other = bench.Button();
  const auto oneSink = bench.Sinks->CommandBarEvents(one);
  const auto otherSink = bench.Sinks->CommandBarEvents(other);
  std::vector<host::CommandBarControl*> clicked;
  const auto note = [&](const auto& control, bool& handled, bool& cancelDefault) {
    EXPECT_FALSE(handled);
    EXPECT_FALSE(cancelDefault);
    clicked.push_back(control.get());
  };
  oneSink->Click = note;
  otherSink->Click = note;
  other->Execute();
  EXPECT_EQ(clicked, std::vector<host::CommandBarControl*>{other.get()});
}

TEST(Events, RunTheOwnCommandBehindTheHandlersUnlessOneCancelsIt) {
  Bench bench;
  const auto button = bench.Button();
  String order;
  button->Command = [&] { order += u"command "; };
  bool cancel = false;
  const auto sink = bench.Sinks->CommandBarEvents(button);
  sink->Click = [&](const auto&, bool&, bool& cancelDefault) {
    order += u"click ";
    cancelDefault = cancel;
  };
  button->Execute();
  cancel = true;
  button->Execute();
  EXPECT_EQ(order, u"click command click ");
}

TEST(Events, OfAnEnvironmentTellOfProjectsAndComponents) {
  test::World world;
  const auto events = world.Environment.VBE()->Events();
  String added;
  const auto projects = events->VBProjectsEvents();
  projects->ItemAdded = [&](const auto& project) { added += project->Name() + u" "; };
  const auto components = events->VBComponentsEvents();
  components->ItemAdded = [&](const auto& component) { added += component->Name() + u" "; };
  world.Environment.NewProject(u"Second", host::vbext_pt_ActiveXDll);
  world.Module(u"Module1", u"");
  EXPECT_EQ(added, u"Second Module1 ");
}

}  // namespace
}  // namespace tessel::model
