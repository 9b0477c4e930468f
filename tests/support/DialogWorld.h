// A dialog by itself: an environment, the shared database, settings, the failure service and what
// stands in for the root.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "forms/User.h"
#include "foundation/CAppSettings.h"
#include "foundation/CErrorHandler.h"
#include "support/FakeConnect.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"

namespace tessel::test {

class DialogWorld : public testing::Test {
 protected:
  /// Failures are reported in this way.
  explicit DialogWorld(ErrorHandlerAction reports = ActionErrorDialog) {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(reports);
    gErrorHandler->SetCallStackEnabled(true);
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
  }
  ~DialogWorld() override {
    gAppSettings.reset();
    gErrorHandler.reset();
  }

  /// A new dialog, shown.
  template <class Dialog, class... Parts>
  std::shared_ptr<Dialog> Open(const Parts&... parts) {
    const auto dialog = std::make_shared<Dialog>(parts...);
    Give(*dialog);
    dialog->Show();
    return dialog;
  }
  /// Tells a dialog whom it works for.
  template <class Dialog>
  void Give(Dialog& dialog) {
    dialog.VBInstance = world_.Environment.VBE();
    Attach(dialog, root_);
  }
  /// Lets a call of the host fail when it comes next.
  void FailOnce(const std::string& operation) {
    world_.Environment.SetOperationHook([operation, left = 1](std::string_view call) mutable {
      if (call == operation && left-- > 0) throw vb::Failure(7, u"no room");
    });
  }
  [[nodiscard]] memory::ScriptedDesktop& Desktop() { return world_.Services.DesktopService; }
  void ExpectBoxes(std::size_t count) {
    EXPECT_EQ(Desktop().Messages.size(), count) << "boxes that nobody asked for";
  }

  World world_;
  SharedDatabase database_;
  std::shared_ptr<FakeConnect> root_ = std::make_shared<FakeConnect>();
};

}  // namespace tessel::test
