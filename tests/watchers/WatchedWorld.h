// An environment that is watched, with a listener that says when the latches are set again.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "foundation/CAppSettings.h"
#include "foundation/CErrorHandler.h"
#include "hosts/model/CodeModule.h"
#include "hosts/model/UserInput.h"
#include "support/Modules.h"
#include "watchers/cMDIClient.h"
#include "watchers/cVbaWindows.h"
#include "watchers/cWinProperties.h"

namespace tessel::test {

/// Stands where the root does: makes the watchers in their order and lets them go in theirs.
class WatchedWorld : public testing::Test {
 protected:
  WatchedWorld() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
    gErrorHandler->SetCallStackEnabled(true);
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
    gEventCODE = std::make_shared<clsEventCODE>();
    gEventCODE->SetVBInstance(World.Environment.VBE());
    gEventCODE->Tree = [this](std::int32_t kind, std::int32_t argument) {
      Told.emplace_back(kind, argument);
      if (OnTree) OnTree();
      if (Rearms) Rearm();
    };
    gVbaWindows = std::make_shared<cVbaWindows>();
    gVbaWindows->SetEventCODE(gEventCODE);
    Client = std::make_shared<cMDIClient>();
    Client->SetEventCODE(gEventCODE);
  }
  ~WatchedWorld() override {
    EXPECT_EQ(World.Services.DesktopService.Messages.size(), Expected)
        << "boxes that nobody asked for";
    Client->UnSubClass();
    Client.reset();
    if (gEventCODE) gEventCODE->SetVBInstance(nullptr);
    gEventCODE.reset();
    gVbaWindows.reset();
    ExplorerStarted = false;
    gAppSettings.reset();
    gErrorHandler.reset();
  }

  /// Hears of the client area, and of whatever is told from now on.
  void Start(bool explorer = true) {
    Client->Start(World.Environment.VBE());
    ExplorerStarted = explorer;
  }
  void SetAutoPosition(std::int32_t value) {
    gAppSettings->SaveSetting(u"Settings\\VBCode\\frmSettings", u"AutoPosition", value);
  }
  static void Rearm() {
    gEventCODE->SetRunEvents(true);
    gEventCODE->SetRunEventsProject(true);
    gEventCODE->SetRunEventsComponent(true);
    gEventCODE->SetRunEventsCode(true);
  }
  /// Which latches are held: P(roject), C(omponent), (code) T(ext), M(aster).
  static std::string Held() {
    std::string held;
    if (!gEventCODE->RunEventsProject()) held += 'P';
    if (!gEventCODE->RunEventsComponent()) held += 'C';
    if (!gEventCODE->RunEventsCode()) held += 'T';
    if (!gEventCODE->RunEvents()) held += 'M';
    return held;
  }
  /// The module's code window, opened by a user.
  platform::WindowHandle Pane(StringView name) {
    World.Caret(name, 1);
    const auto module = World.Environment.Component(name)->CodeModule();
    return std::dynamic_pointer_cast<model::CodePane>(module->CodePane())->OwnWindow().Handle();
  }
  model::WindowTable& Windows() { return World.Environment.OwnWindows(); }
  memory::VirtualClock& Clock() { return World.Services.ClockService; }
  using Notices = std::vector<std::pair<std::int32_t, std::int32_t>>;
  Notices Take() { return std::exchange(Told, {}); }
  /// Lets all timers run out and forgets what they told.
  void Settle() {
    Clock().Advance(1000);
    Rearm();
    Told.clear();
  }

  test::World World;
  std::shared_ptr<cMDIClient> Client;
  Notices Told;
  bool Rearms = true;
  std::function<void()> OnTree;
  std::size_t Expected = 0;
};

}  // namespace tessel::test
