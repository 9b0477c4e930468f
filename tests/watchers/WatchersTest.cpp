// Windows that are watched, from the message to the notice.

#include <gtest/gtest.h>

#include <optional>

#include "watchers/WatchedWorld.h"
#include "watchers/mHwnds.h"

namespace tessel {
namespace {

using model::Accelerator;
using model::Click;
using model::ClickChild;
using model::Key;
using platform::WindowHandle;

constexpr std::pair<std::int32_t, std::int32_t> ProjectsNotice{0, 2}, ComponentNotice{1, 2},
    CodeNotice{2, 1};

class Watched : public test::WatchedWorld {
 protected:
  Watched() {
    World.Module(u"Module1", u"Sub A()\r\nEnd Sub");
    World.Module(u"Module2", u"Sub B()\r\nEnd Sub");
    World.Form(u"Form1", u"");
  }
  WindowHandle Designer() {
    World.Environment.Component(u"Form1")->Activate();
    return Windows().Find(ClientHandle(), 0, u"DesignerWindow", u"Form1");
  }
  WindowHandle ClientHandle() { return Windows().Find(MainHandle(), 0, u"MDIClient", {}); }
  WindowHandle MainHandle() { return Windows().Find(0, 0, {}, {}); }
};

// The life of the watched windows

TEST_F(Watched, TheWindowsThatAreOpenAtTheStartAreTakenUp) {
  const WindowHandle pane = Pane(u"Module1");
  const WindowHandle designer = Designer();
  Start();
  EXPECT_EQ(gEventCODE->NameGlobalProcesses(), u"VB6");
  ASSERT_NE(gVbaWindows->Find(cVbaWindows::KeyOf(pane)), nullptr);
  EXPECT_EQ(gVbaWindows->item(cVbaWindows::KeyOf(pane))->ClassHwnd(), u"VbaWindow");
  EXPECT_EQ(gVbaWindows->item(cVbaWindows::KeyOf(pane))->hwndWinCode(), pane);
  EXPECT_EQ(gVbaWindows->item(cVbaWindows::KeyOf(designer))->ClassHwnd(), u"DesignerWindow");
  EXPECT_EQ(Held(), "") << "nobody was listening yet";
}

TEST_F(Watched, AWindowThatOpensIsWatchedAndOneThatClosesIsNot) {
  Start();
  const std::size_t before = gVbaWindows->Count();
  World.Module(u"Module3", u"");
  EXPECT_EQ(gVbaWindows->Count(), before + 1);
  const WindowHandle pane = Pane(u"Module3");
  EXPECT_NE(gVbaWindows->Find(cVbaWindows::KeyOf(pane)), nullptr);
  World.Environment.ClosePane(u"Module3");
  EXPECT_EQ(gVbaWindows->Find(cVbaWindows::KeyOf(pane)), nullptr);
  EXPECT_EQ(gVbaWindows->Count(), before);
}

TEST_F(Watched, AComponentThatGoesTakesItsWindowsAlong) {
  const WindowHandle pane = Pane(u"Form1");
  const WindowHandle designer = Designer();
  Start();
  World.Environment.RemoveComponent({}, u"Form1");
  EXPECT_EQ(gVbaWindows->Find(cVbaWindows::KeyOf(pane)), nullptr);
  EXPECT_EQ(gVbaWindows->Find(cVbaWindows::KeyOf(designer)), nullptr);
  EXPECT_TRUE(Windows().ClassName(designer).empty());
}

TEST_F(Watched, AWindowThatIsToldOfTwiceIsWatchedOnce) {
  Start();
  const WindowHandle pane = Pane(u"Module1");
  const std::size_t count = gVbaWindows->Count();
  Windows().Send({ClientHandle(), platform::WM_ParentNotify, platform::WM_Create, pane});
  EXPECT_EQ(gVbaWindows->Count(), count);
  Windows().Send({ClientHandle(), platform::WM_ParentNotify, platform::WM_Destroy, 4711});
  EXPECT_EQ(gVbaWindows->Count(), count);
}

// Notices of projects

TEST_F(Watched, OpeningAndClosingACodeWindowTellsOfTheProjects) {
  World.Environment.ClosePane(u"Module1");
  Start();
  const auto module = World.Environment.Component(u"Module1")->CodeModule();
  (void)module->CodePane();
  EXPECT_EQ(Held(), "PM");
  Clock().Advance(199);
  EXPECT_TRUE(Take().empty());
  Clock().Advance(1);
  EXPECT_EQ(Take(), (Notices{ProjectsNotice}));
  World.Environment.ClosePane(u"Module1");
  EXPECT_EQ(Held(), "PM");
  Clock().Advance(200);
  EXPECT_EQ(Take(), (Notices{ProjectsNotice}));
}

TEST_F(Watched, AnotherChildOfTheClientAreaTellsOfTheProjectsWhereTheOptionIsOn) {
  Start();
  const auto other = Windows().Create(u"Edit", {}, ClientHandle());
  EXPECT_EQ(Held(), "PM");
  Settle();
  Windows().Destroy(other);
  EXPECT_EQ(Held(), "") << "its end is no notice";
  SetAutoPosition(0);
  Windows().Create(u"Edit", {}, ClientHandle());
  EXPECT_EQ(Held(), "");
  SetAutoPosition(1);
  ExplorerStarted = false;
  Windows().Create(u"Edit", {}, ClientHandle());
  EXPECT_EQ(Held(), "");
}

TEST_F(Watched, ABurstOfWindowsIsOneNotice) {
  Start();
  for (int number = 0; number < 20; ++number) {
    World.Module(u"New" + vb::Str(number), u"");
    Clock().Advance(5);
  }
  EXPECT_EQ(Clock().PendingTimers(), 1U);
  Clock().Advance(200);
  EXPECT_EQ(Take(), (Notices{ProjectsNotice}));
}

// Notices of code and components

struct Trigger {
  const char* Name;
  platform::WindowMessage Message;  ///< without its window
  bool Code, Designer;
};

constexpr std::intptr_t Word(std::intptr_t high, std::intptr_t low) { return high << 16 | low; }

TEST_F(Watched, OnlyTheTriggersOfAClassStartItsNotice) {
  const Trigger triggers[] = {{"key up", {0, 257}, true, true},
                              {"mouse up", {0, 514}, true, true},
                              {"a click in a child", {0, 528, Word(7, 513)}, true, true},
                              {"a child that came", {0, 528, 1}, false, false},
                              {"the right button in a child", {0, 528, 516}, false, false},
                              {"an accelerator", {0, 273, Word(1, 99)}, true, false},
                              {"a menu command", {0, 273, Word(0, 99)}, false, false},
                              {"a control's notice", {0, 273, Word(2, 1)}, false, false},
                              {"mouse down", {0, 513}, false, false},
                              {"key down", {0, 256}, false, false},
                              {"focus", {0, 7}, false, false}};
  const WindowHandle pane = Pane(u"Module1");
  const WindowHandle designer = Designer();
  Start();
  for (const Trigger& trigger : triggers) {
    SCOPED_TRACE(trigger.Name);
    auto message = trigger.Message;
    message.Window = pane;
    Windows().Send(message);
    EXPECT_EQ(Held(), trigger.Code ? "TM" : "");
    Settle();
    message.Window = designer;
    Windows().Send(message);
    EXPECT_EQ(Held(), trigger.Designer ? "CM" : "");
    Settle();
  }
}

TEST_F(Watched, TheCodeWindowOfTheLastActIsNoted) {
  const WindowHandle first = Pane(u"Module1"), second = Pane(u"Module2");
  const WindowHandle designer = Designer();
  Start();
  Key(Windows(), first);
  EXPECT_EQ(gEventCODE->hwndCODE(), first);
  Clock().Advance(100);
  EXPECT_EQ(Take(), (Notices{CodeNotice}));
  Click(Windows(), second);
  Key(Windows(), first);
  EXPECT_EQ(gEventCODE->hwndCODE(), second) << "the key found the latch held";
  Settle();
  Click(Windows(), designer);
  EXPECT_EQ(gEventCODE->hwndCODE(), second);
  Clock().Advance(200);
  EXPECT_EQ(Take(), (Notices{ComponentNotice}));
}

TEST_F(Watched, TwoQuickKeystrokesStartOneTimer) {
  const WindowHandle pane = Pane(u"Module1");
  Start();
  Key(Windows(), pane);
  Clock().Advance(30);
  Key(Windows(), pane);
  EXPECT_EQ(Clock().PendingTimers(), 1U);
  Clock().Advance(70);
  EXPECT_EQ(Take(), (Notices{CodeNotice})) << "from the first key on";
  Clock().Advance(1000);
  EXPECT_TRUE(Take().empty());
}

TEST_F(Watched, ALongBurstOfKeysIsANoticeEachTenthOfASecond) {
  const WindowHandle pane = Pane(u"Module1");
  Start();
  for (int stroke = 0; stroke < 100; ++stroke) {
    Key(Windows(), pane);
    Clock().Advance(10);
  }
  Clock().Advance(1000);
  EXPECT_EQ(Told.size(), 10U);
}

TEST_F(Watched, ANoticeThatIsNeverRearmedSilencesItsKindForEver) {
  const WindowHandle pane = Pane(u"Module1");
  Start();
  Rearms = false;
  Key(Windows(), pane);
  Clock().Advance(100);
  EXPECT_EQ(Take(), (Notices{CodeNotice}));
  for (int hour = 0; hour < 3; ++hour) {
    Key(Windows(), pane);
    Clock().Advance(3600 * 1000);
  }
  EXPECT_TRUE(Take().empty()) << "latches are not timed";
  EXPECT_EQ(Held(), "TM");
  Rearm();
  Key(Windows(), pane);
  Clock().Advance(100);
  EXPECT_EQ(Take(), (Notices{CodeNotice}));
}

TEST_F(Watched, AHeldMasterLatchIsATimeOutAtOnceThatHoldsTheLatchOfTheKind) {
  const WindowHandle pane = Pane(u"Module1");
  const WindowHandle designer = Designer();
  Start();
  const struct {
    std::function<void()> Act;
    const char* Held;
  } cases[] = {{[&] { Key(Windows(), pane); }, "TM"},
               {[&] { Click(Windows(), designer); }, "CM"},
               {[&] { (void)Windows().Create(u"Edit", {}, ClientHandle()); }, "PM"}};
  for (const auto& one : cases) {
    gEventCODE->SetRunEvents(false);
    const auto now = Clock().Ticks();
    one.Act();
    EXPECT_EQ(Clock().Ticks(), now) << "no time is spent on waiting";
    EXPECT_EQ(Held(), one.Held);
    EXPECT_EQ(Clock().PendingTimers(), 0U);
    Rearm();
  }
}

TEST_F(Watched, EachKindWantsTheLatchesOfThoseAboveIt) {
  const WindowHandle pane = Pane(u"Module1");
  const WindowHandle designer = Designer();
  Start();
  const struct {
    void (clsEventCODE::*Latch)(bool);
    bool Code, Component, Project;  ///< who still starts a notice while it is held
  } cases[] = {{&clsEventCODE::SetRunEventsProject, false, false, false},
               {&clsEventCODE::SetRunEventsComponent, false, false, true},
               {&clsEventCODE::SetRunEventsCode, false, true, true}};
  for (const auto& one : cases) {
    const auto starts = [&](const std::function<void()>& act) {
      ((*gEventCODE).*one.Latch)(false);
      act();
      const bool started = Clock().PendingTimers() > 0;
      Settle();
      return started;
    };
    EXPECT_EQ(starts([&] { Key(Windows(), pane); }), one.Code);
    EXPECT_EQ(starts([&] { Key(Windows(), designer); }), one.Component);
    EXPECT_EQ(starts([&] { (void)Windows().Create(u"Edit", {}, ClientHandle()); }), one.Project);
  }
}

TEST_F(Watched, UntilTheExplorerWasShownNothingIsToldAndNoLatchIsHeld) {
  const WindowHandle pane = Pane(u"Module1");
  const WindowHandle designer = Designer();
  Start(/*explorer=*/false);
  Key(Windows(), pane);
  Click(Windows(), pane);
  ClickChild(Windows(), designer);
  Accelerator(Windows(), pane);
  World.Module(u"Module3", u"");
  World.Environment.ClosePane(u"Module3");
  World.Environment.RenameComponent({}, u"Module2", u"Other");
  World.Environment.RemoveComponent({}, u"Other");
  EXPECT_EQ(Clock().PendingTimers(), 0U);
  EXPECT_EQ(Held(), "");
  Clock().Advance(1000);
  EXPECT_TRUE(Take().empty());
}

TEST_F(Watched, WithoutAutoPositionNothingComesFromCodeWindowsWhileTheyComeAndGo) {
  const WindowHandle pane = Pane(u"Module1");
  const WindowHandle designer = Designer();
  Start();
  SetAutoPosition(0);
  Key(Windows(), pane);
  Click(Windows(), pane);
  Accelerator(Windows(), pane);
  ClickChild(Windows(), designer);
  EXPECT_EQ(Held(), "");
  EXPECT_EQ(Clock().PendingTimers(), 0U);
  World.Environment.ClosePane(u"Module1");
  EXPECT_EQ(gVbaWindows->Find(cVbaWindows::KeyOf(pane)), nullptr);
  const WindowHandle again = Pane(u"Module1");
  EXPECT_NE(gVbaWindows->Find(cVbaWindows::KeyOf(again)), nullptr);
}

// Re-entry

TEST_F(Watched, AKeyWhileEventsRunFindsTheLatchHeld) {
  const WindowHandle pane = Pane(u"Module1");
  Start();
  Clock().OnDoEvents = [&] {
    Clock().OnDoEvents = nullptr;
    Key(Windows(), pane);
  };
  World.Module(u"Module3", u"");
  EXPECT_EQ(Held(), "PM");
  EXPECT_EQ(Clock().PendingTimers(), 1U);
  Clock().Advance(200);
  EXPECT_EQ(Take(), (Notices{ProjectsNotice}));
}

TEST_F(Watched, AWindowThatOpensWhileEventsRunIsWatchedAndWaits) {
  Start();
  Clock().OnDoEvents = [&] {
    Clock().OnDoEvents = nullptr;
    World.Module(u"Module4", u"");
  };
  World.Module(u"Module3", u"");
  for (const StringView name : {u"Module3", u"Module4"}) {
    EXPECT_NE(gVbaWindows->Find(cVbaWindows::KeyOf(Pane(name))), nullptr);
  }
  Clock().Advance(200);
  EXPECT_EQ(Take(), (Notices{ProjectsNotice}));
}

TEST_F(Watched, AWindowThatClosesWhileEventsRunIsGone) {
  const WindowHandle pane = Pane(u"Module1");
  Start();
  Clock().OnDoEvents = [&] {
    Clock().OnDoEvents = nullptr;
    World.Environment.ClosePane(u"Module1");
  };
  World.Environment.ClosePane(u"Module2");
  EXPECT_EQ(gVbaWindows->Find(cVbaWindows::KeyOf(pane)), nullptr);
  Clock().Advance(200);
  EXPECT_EQ(Take(), (Notices{ProjectsNotice}));
}

TEST_F(Watched, AKeyWhileTheListenerReadsWaitsForTheLatches) {
  const WindowHandle pane = Pane(u"Module1");
  Start();
  OnTree = [&] { Key(Windows(), pane); };
  Key(Windows(), pane);
  Clock().Advance(1000);
  EXPECT_EQ(Take(), (Notices{CodeNotice}));
}

TEST_F(Watched, WatchersThatGoWhileEventsRunLeaveNothingBehind) {
  Start();
  Clock().OnDoEvents = [&] {
    Clock().OnDoEvents = nullptr;
    Client->UnSubClass();
    gEventCODE->SetVBInstance(nullptr);
    gEventCODE.reset();
    gVbaWindows.reset();
  };
  World.Environment.ClosePane(u"Module1");
  EXPECT_EQ(Clock().PendingTimers(), 0U);
}

// Failures

TEST_F(Watched, EveryFailingCallOfTheStartIsReportedOnceAndTheStartEnds) {
  std::vector<std::string> calls;
  World.Environment.SetOperationHook([&](std::string_view call) { calls.emplace_back(call); });
  const auto start = [&] {
    const auto client = std::make_shared<cMDIClient>();
    client->SetEventCODE(gEventCODE);
    client->Start(World.Environment.VBE());
    client->UnSubClass();
    const auto properties = std::make_shared<cWinProperties>();
    properties->SetEventCODE(gEventCODE);
    properties->Start(World.Environment.VBE());
    properties->UnSubClass();
  };
  start();
  const auto clean = calls;
  EXPECT_EQ(clean, (std::vector<std::string>{"VBE.MainWindow", "Window.HWnd", "VBE.MainWindow",
                                             "Window.HWnd"}));
  using platform::MessageAnswer;
  for (const auto answer : {MessageAnswer::Abort, MessageAnswer::Retry, MessageAnswer::Ignore}) {
    for (std::size_t nth = 1; nth <= clean.size(); ++nth) {
      calls.clear();
      gVbaWindows->Clear();
      World.Environment.SetOperationHook([&](std::string_view call) {
        calls.emplace_back(call);
        if (calls.size() == nth) throw vb::Failure(7, u"no room");
      });
      World.Services.DesktopService.Answers = {answer};
      start();
      EXPECT_EQ(World.Services.DesktopService.Messages.size(), ++Expected)
          << clean[nth - 1] << ": one failure, one question";
      EXPECT_TRUE(gErrorHandler->CallStack().empty()) << clean[nth - 1];
    }
  }
  World.Environment.SetOperationHook({});
}

TEST_F(Watched, AFailureInAMessageIsReportedFromInsideItAndTheNextOneIsHeard) {
  Start();
  Clock().OnDoEvents = [] { throw vb::Failure(7, u"no room"); };
  World.Services.DesktopService.Answers = {platform::MessageAnswer::Abort};
  World.Module(u"Module3", u"");
  Clock().OnDoEvents = nullptr;
  Expected = 1;
  EXPECT_EQ(World.Services.DesktopService.Messages.size(), Expected);
  EXPECT_TRUE(gErrorHandler->CallStack().empty());
  EXPECT_EQ(Held(), "PM") << "nobody has read what the message was about";
  EXPECT_EQ(Clock().PendingTimers(), 0U);
  const WindowHandle pane = Pane(u"Module3");
  EXPECT_NE(gVbaWindows->Find(cVbaWindows::KeyOf(pane)), nullptr) << "watched all the same";
  Rearm();
  Key(Windows(), pane);
  Clock().Advance(100);
  EXPECT_EQ(Take(), (Notices{CodeNotice}));
}

// The properties window

TEST_F(Watched, ThePropertiesWindowIsAPointOfObservationOnly) {
  const auto properties = std::make_shared<cWinProperties>();
  properties->SetEventCODE(gEventCODE);
  Start();
  properties->Start(World.Environment.VBE());
  properties->SetPrevProperties(u"Caption");
  EXPECT_EQ(properties->PrevProperties(), u"Caption");
  const WindowHandle window = Windows().Find(MainHandle(), 0, u"wndclass_pbrs", {});
  for (std::uint32_t message = 0; message < 600; ++message) Windows().Send({window, message});
  EXPECT_EQ(Held(), "");
  EXPECT_EQ(Clock().PendingTimers(), 0U);
  properties->UnSubClass();
}

// Finding windows

TEST_F(Watched, WindowsAreFoundAtAnyDepth) {
  const WindowHandle pane = Pane(u"Module1");
  std::vector<WindowHandle> found;
  const auto find = [&](WindowHandle start, StringView text, StringView className,
                        std::optional<int> id = std::nullopt) {
    return mHwnds::FindWindowLike(found, start, text, className, id);
  };
  EXPECT_EQ(find(MainHandle(), u"*", u"VbaWindow"), 2);
  EXPECT_EQ(found.size(), 2U);
  EXPECT_EQ(find(MainHandle(), u"Module1 (Code)", u"*"), 1);
  EXPECT_EQ(found, (std::vector<WindowHandle>{pane})) << "in the place of what was there";
  EXPECT_EQ(find(MainHandle(), u"nothing", u"*"), 0);
  EXPECT_TRUE(found.empty());
  EXPECT_EQ(find(4711, u"*", u"*"), 0);
}

TEST_F(Watched, AWindowIsFoundByItsNumberAmongItsParentsChildren) {
  const WindowHandle second =
      Windows().Find(ClientHandle(), Windows().Find(ClientHandle(), 0, {}, {}), {}, {});
  std::vector<WindowHandle> found;
  EXPECT_EQ(mHwnds::FindWindowLike(found, ClientHandle(), u"*", u"*", 2), 1);
  EXPECT_EQ(found, (std::vector<WindowHandle>{second}));
  const String other =
      Windows().ClassName(second) == u"VbaWindow" ? u"DesignerWindow" : u"VbaWindow";
  EXPECT_EQ(mHwnds::FindWindowLike(found, ClientHandle(), u"*", other, 2), 0);
  EXPECT_EQ(mHwnds::FindWindowLike(found, ClientHandle(), u"*", u"*", 100), 0);
}

TEST_F(Watched, AWindowTellsItsClassAndItsProcess) {
  const WindowHandle pane = Pane(u"Module1");
  EXPECT_TRUE(mHwnds::ReturnHWNDClassName(pane, u"VbaWindow"));
  EXPECT_FALSE(mHwnds::ReturnHWNDClassName(pane, u"DesignerWindow"));
  EXPECT_FALSE(mHwnds::ReturnHWNDClassName(4711, u"VbaWindow"));
  EXPECT_EQ(mHwnds::GetWTSProcessesName(pane), u"VB6.EXE");
  EXPECT_EQ(mHwnds::GetFileNameProcesses(pane), u"VB6");
  EXPECT_EQ(mHwnds::GetFileNameProcesses(4711), u"");
}

}  // namespace
}  // namespace tessel
