// The watchers' life inside the add-in's.

#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "foundation/CAppSettings.h"
#include "foundation/CErrorHandler.h"
#include "hosts/model/CodeModule.h"
#include "hosts/model/UserInput.h"
#include "support/Modules.h"
#include "support/TemporaryFolder.h"
#include "watchers/cVbaWindows.h"

namespace tessel {
namespace {

class WatchingAddIn : public testing::Test {
 protected:
  WatchingAddIn() { world_.Services.AppService.Folder = folder_.Path().u16string(); }
  ~WatchingAddIn() override {
    if (connect_) Stop();
    gErrorHandler.reset();
  }
  void Start() {
    connect_ = std::make_shared<Connect>();
    connect_->AddinInstance_OnConnection(world_.Environment.VBE());
    connect_->AddinInstance_OnStartupComplete();
  }
  void Stop() {
    connect_->AddinInstance_OnDisconnection();
    connect_.reset();
  }
  /// As the Explorer does when it is shown.
  void Listen() {
    ExplorerStarted = true;
    gEventCODE->Tree = [this](std::int32_t kind, std::int32_t) {
      kinds_.push_back(kind);
      gEventCODE->SetRunEvents(true);
      gEventCODE->SetRunEventsProject(true);
      gEventCODE->SetRunEventsComponent(true);
      gEventCODE->SetRunEventsCode(true);
    };
  }
  memory::VirtualClock& Clock() { return world_.Services.ClockService; }
  std::vector<std::string>& Journal() { return world_.Services.DesktopService.Journal; }

  test::World world_;
  test::TemporaryFolder folder_;
  std::shared_ptr<Connect> connect_;
  std::vector<std::int32_t> kinds_;
};

TEST_F(WatchingAddIn, WatchesFromTheConnectionToTheDisconnection) {
  world_.Module(u"Module1", u"");
  world_.Form(u"Form1", u"");
  Start();
  ASSERT_TRUE(gEventCODE);
  EXPECT_EQ(gEventCODE->NameGlobalProcesses(), u"VB6");
  ASSERT_TRUE(gVbaWindows);
  EXPECT_EQ(gVbaWindows->Count(), 2U);
  Stop();
  EXPECT_EQ(gEventCODE, nullptr);
  EXPECT_EQ(gVbaWindows, nullptr);
  EXPECT_EQ(Clock().PendingTimers(), 0U);
}

TEST_F(WatchingAddIn, TheWatchersComeBehindTheBarAndAheadOfTheToolWindow) {
  std::vector<std::string> calls;
  world_.Environment.SetOperationHook([&](std::string_view call) { calls.emplace_back(call); });
  Start();
  world_.Environment.SetOperationHook({});
  // One behind the last, so that it may equal the first of what follows.
  const auto last = [&](std::string_view call) {
    return std::find(calls.rbegin(), calls.rend(), call).base() - calls.begin();
  };
  const auto first = [&](std::string_view call) {
    return std::find(calls.begin(), calls.end(), call) - calls.begin();
  };
  EXPECT_LE(last("Events.CommandBarEvents"), first("VBE.MainWindow"));
  EXPECT_LE(last("VBE.MainWindow"), first("Windows.CreateToolWindow"));
}

TEST_F(WatchingAddIn, TheRefreshLetsEventsRunAndTwitchesAfterItsTime) {
  Start();
  int events = 0;
  Clock().OnDoEvents = [&] { ++events; };
  connect_->RefreshTreeExplorer(true);
  EXPECT_EQ(events, 1);
  EXPECT_TRUE(gEventCODE->TwitchCursor());
  Clock().Advance(50);
  EXPECT_EQ(Journal(), (std::vector<std::string>{"keys {RIGHT}", "keys {LEFT}"}));
}

TEST_F(WatchingAddIn, TheRefreshWithoutATwitchStartsATimerThatDoesNothing) {
  Start();
  Listen();
  connect_->RefreshTreeExplorer(false);
  EXPECT_EQ(Clock().PendingTimers(), 1U);
  Clock().Advance(1000);
  EXPECT_TRUE(Journal().empty());
  EXPECT_TRUE(kinds_.empty());
}

TEST_F(WatchingAddIn, TheProcedureBuildersTwoRefreshesEndInNoTwitch) {
  Start();
  connect_->HideProcedureBuilder();
  Clock().Advance(1000);
  EXPECT_TRUE(Journal().empty()) << "the second wish comes ahead of the first one's tick";
}

TEST_F(WatchingAddIn, ARefreshOutsideAConnectionDoesNothing) {
  Start();
  const auto held = connect_;
  Stop();
  held->RefreshTreeExplorer(true);
  EXPECT_EQ(Clock().PendingTimers(), 0U);
  Start();
  Clock().OnDoEvents = [&] {
    Clock().OnDoEvents = nullptr;
    Stop();
  };
  const auto again = connect_;
  again->RefreshTreeExplorer(true);
  EXPECT_EQ(Clock().PendingTimers(), 0U);
}

TEST_F(WatchingAddIn, DisconnectingWithTimersInTheAirKillsThem) {
  world_.Module(u"Module1", u"Sub A()\r\nEnd Sub");
  world_.Caret(u"Module1", 1);
  for (const int passed : {0, 10, 49, 50, 99, 100, 199}) {
    Start();
    Listen();
    connect_->RefreshTreeExplorer(true);
    world_.Caret(u"Module1", 2);
    Clock().Advance(passed);
    Stop();
    EXPECT_EQ(Clock().PendingTimers(), 0U) << passed;
    kinds_.clear();
    Journal().clear();
    Clock().Advance(1000);
    EXPECT_TRUE(kinds_.empty());
    EXPECT_TRUE(Journal().empty());
    EXPECT_FALSE(ExplorerStarted) << "the next Explorer wasn't shown yet";
  }
}

/// Letting the windows go is a notice, which lets events run.
TEST_F(WatchingAddIn, EventsThatRunInTheShutDownFindItWhole) {
  world_.Module(u"Module1", u"");
  world_.Module(u"Module2", u"");
  Start();
  Listen();
  int events = 0;
  Clock().OnDoEvents = [&] {
    if (++events > 1) return;
    EXPECT_TRUE(gEventCODE);
    world_.Module(u"Module3", u"");
    world_.Environment.RemoveComponent({}, u"Module2");
  };
  Stop();
  EXPECT_EQ(events, 1);
  EXPECT_EQ(gVbaWindows, nullptr);
  Clock().Advance(1000);
  EXPECT_TRUE(kinds_.empty());
}

TEST_F(WatchingAddIn, AFailingMainWindowIsAskedAboutAndTheStartGoesOn) {
  bool failed = false;
  world_.Environment.SetOperationHook([&](std::string_view call) {
    if (call == "VBE.MainWindow" && !std::exchange(failed, true)) throw vb::Failure(7, u"no room");
  });
  Start();
  world_.Environment.SetOperationHook({});
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_TRUE(connect_->ExplorerWindow());
  ASSERT_TRUE(gVbaWindows);
  world_.Module(u"Module1", u"");
  EXPECT_EQ(gVbaWindows->Count(), 1U) << "the client area is watched";
}

TEST_F(WatchingAddIn, AStartThatFailedAheadOfTheWatchersStopsWithoutThem) {
  world_.Environment.SetOperationHook([](std::string_view call) {
    if (call == "VBE.Version") throw vb::Failure(7, u"no room");
  });
  Start();
  world_.Environment.SetOperationHook({});
  EXPECT_EQ(gEventCODE, nullptr);
  EXPECT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
  Stop();
  EXPECT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
}

}  // namespace
}  // namespace tessel
