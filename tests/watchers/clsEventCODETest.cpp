#include "watchers/clsEventCODE.h"

#include <gtest/gtest.h>

#include "watchers/WatchedWorld.h"
#include "watchers/mTimer.h"

namespace tessel {
namespace {

class Watcher : public test::WatchedWorld {
 protected:
  /// How the watcher starts a timer, when it ticks and what it tells.
  struct Timer {
    void (clsEventCODE::*Start)();
    int Ms;
    std::pair<std::int32_t, std::int32_t> Notice;
  };
  static constexpr Timer Timers[] = {{&clsEventCODE::RunTimerCode, 100, {2, 1}},
                                     {&clsEventCODE::RunTimerComponent, 200, {1, 2}},
                                     {&clsEventCODE::RunTimerProperties, 200, {0, 2}}};
};

TEST_F(Watcher, StartsWithAllLatchesArmedAndNothingNoted) {
  EXPECT_EQ(Held(), "");
  EXPECT_TRUE(gEventCODE->NameGlobalProcesses().empty());
  EXPECT_EQ(gEventCODE->hwndCODE(), 0);
  EXPECT_FALSE(gEventCODE->TwitchCursor());
  gEventCODE->SetCodeX(3);
  gEventCODE->SetCodeY(4);
  EXPECT_EQ(gEventCODE->CodeX(), 3);
  EXPECT_EQ(gEventCODE->CodeY(), 4);
}

TEST_F(Watcher, EachTimerTicksOnceAtItsTimeAndTellsItsKind) {
  for (const Timer& timer : Timers) {
    ((*gEventCODE).*timer.Start)();
    Clock().Advance(timer.Ms - 1);
    EXPECT_TRUE(Take().empty());
    Clock().Advance(1);
    EXPECT_EQ(Take(), (Notices{timer.Notice}));
    Clock().Advance(1000);
    EXPECT_TRUE(Take().empty());
    EXPECT_EQ(Clock().PendingTimers(), 0U);
  }
}

TEST_F(Watcher, TheTimerOfThePropertiesLetsEventsRunFirst) {
  std::size_t pendingAtEvents = 99;
  Clock().OnDoEvents = [&] { pendingAtEvents = Clock().PendingTimers(); };
  gEventCODE->RunTimerProperties();
  EXPECT_EQ(pendingAtEvents, 0U);
  EXPECT_EQ(Clock().PendingTimers(), 1U);
}

TEST_F(Watcher, ATickWithoutAListenerDoesNothing) {
  gEventCODE->Tree = nullptr;
  for (const Timer& timer : Timers) ((*gEventCODE).*timer.Start)();
  Clock().Advance(1000);
}

TEST_F(Watcher, TheTwitchGoesRightAndLeftAfterItsTime) {
  gEventCODE->SetTwitchCursor(true);
  gEventCODE->RunTimerActiveWindowCode();
  Clock().Advance(49);
  EXPECT_TRUE(World.Services.DesktopService.Journal.empty());
  Clock().Advance(1);
  EXPECT_EQ(World.Services.DesktopService.Journal,
            (std::vector<std::string>{"keys {RIGHT}", "keys {LEFT}"}));
  Clock().Advance(1000);
  EXPECT_EQ(World.Services.DesktopService.Journal.size(), 2U);
  EXPECT_TRUE(Take().empty()) << "the keys bring the notice, not the tick";
}

TEST_F(Watcher, WithoutTheTwitchItsTickDoesNothing) {
  gEventCODE->SetTwitchCursor(true);
  gEventCODE->RunTimerActiveWindowCode();
  gEventCODE->SetTwitchCursor(false);
  gEventCODE->RunTimerActiveWindowCode();
  Clock().Advance(1000);
  EXPECT_TRUE(World.Services.DesktopService.Journal.empty()) << "the last wish counts";
}

TEST_F(Watcher, TimersInTheAirAreKilledWhenTheEnvironmentGoes) {
  for (const Timer& timer : Timers) ((*gEventCODE).*timer.Start)();
  gEventCODE->SetTwitchCursor(true);
  gEventCODE->RunTimerActiveWindowCode();
  EXPECT_EQ(Clock().PendingTimers(), 4U);
  gEventCODE->SetVBInstance(nullptr);
  EXPECT_EQ(Clock().PendingTimers(), 0U);
  gEventCODE->RunTimerCode();
  Clock().Advance(1000);
  EXPECT_TRUE(Take().empty()) << "nor is one started any more";
  EXPECT_TRUE(World.Services.DesktopService.Journal.empty());
}

TEST_F(Watcher, NoTimerIsStartedWhenTheEnvironmentGoesWhileEventsRun) {
  Clock().OnDoEvents = [&] {
    gEventCODE->SetVBInstance(nullptr);
    gEventCODE.reset();
  };
  gEventCODE->RunTimerProperties();
  EXPECT_EQ(Clock().PendingTimers(), 0U);
}

TEST_F(Watcher, AWatcherMayGoInsideItsOwnTick) {
  OnTree = [&] {
    gEventCODE->SetVBInstance(nullptr);
    gEventCODE->Tree = nullptr;
    gEventCODE.reset();
    Rearms = false;
  };
  gEventCODE->RunTimerCode();
  gEventCODE->RunTimerComponent();
  Clock().Advance(1000);
  EXPECT_EQ(Take(), (Notices{{2, 1}})) << "the second one was killed";
}

TEST_F(Watcher, ATickOfTheWindowsThatAreLetGoAtTheEndFindsNobodyInSilence) {
  gEventCODE.reset();
  mTimer::TimerProcProperties(4711);
  EXPECT_TRUE(World.Services.DesktopService.Messages.empty());
  for (const auto procedure :
       {mTimer::TimerActiveWindowCode, mTimer::TimerProcCode, mTimer::TimerProcComponent}) {
    procedure(4711);
    ++Expected;
    EXPECT_EQ(World.Services.DesktopService.Messages.size(), Expected) << "these have to";
  }
  gErrorHandler->CallStackClear();
}

TEST_F(Watcher, AFailureOfTheListenerIsReportedOnceAndTheNextTickComes) {
  struct Case {
    const Timer* What;
    StringView Routine;
  };
  const Case cases[] = {{&Timers[0], u"in Tessel.clsEventCODE.RunTimerEventCode at line"},
                        {&Timers[1], u"in Tessel.clsEventCODE.RunTimerEventComponent at line"},
                        {&Timers[2], u"in Tessel.clsEventCODE.RunTimerEventProperties at line"}};
  for (const Case& one : cases) {
    bool fails = true;
    OnTree = [&] {
      if (std::exchange(fails, false)) throw vb::Failure(7, u"no room");
    };
    ((*gEventCODE).*one.What->Start)();
    Clock().Advance(1000);
    ASSERT_EQ(World.Services.DesktopService.Messages.size(), ++Expected);
    EXPECT_NE(World.Services.DesktopService.Messages.back().Text.find(one.Routine), String::npos);
    Take();
    ((*gEventCODE).*one.What->Start)();
    Clock().Advance(1000);
    EXPECT_EQ(Take(), (Notices{one.What->Notice}));
    gErrorHandler->CallStackClear();
  }
}

TEST_F(Watcher, RetryTellsTheListenerOnceMore) {
  int times = 0;
  OnTree = [&] {
    if (++times == 1) throw vb::Failure(7, u"no room");
  };
  World.Services.DesktopService.Answers = {platform::MessageAnswer::Retry};
  gEventCODE->RunTimerCode();
  Clock().Advance(100);
  EXPECT_EQ(times, 2);
  EXPECT_TRUE(gErrorHandler->CallStack().empty());
  Expected = 1;
}

TEST_F(Watcher, ATickInsideADialogsWaitRunsLikeAnyOther) {
  // A box stands over the tick of one notice, and its wait lets the other one tick.
  World.Services.DesktopService.OnShow = nullptr;
  OnTree = [&] {
    OnTree = nullptr;
    Clock().Advance(200);
  };
  gEventCODE->RunTimerCode();
  gEventCODE->RunTimerComponent();
  Clock().Advance(100);
  EXPECT_EQ(Take(), (Notices{{2, 1}, {1, 2}}));
}

}  // namespace
}  // namespace tessel
