// The Explorer's document over an environment in memory.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "explorer/PlainReading.h"
#include "explorer/udProjectExplorer.h"
#include "forms/User.h"
#include "foundation/CAppSettings.h"
#include "support/FakeConnect.h"
#include "support/Modules.h"

namespace tessel::test {

/// Settings, failure service, watcher and document as the root makes them.
class ExplorerWorld : public testing::Test {
 protected:
  ExplorerWorld() {
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
    gErrorHandler->SetCallStackEnabled(true);
    gEventCODE = std::make_shared<clsEventCODE>();
    gEventCODE->SetVBInstance(world_.Environment.VBE());
    gEventCODE->SetNameGlobalProcesses(u"VB6");
    Make();
  }
  ~ExplorerWorld() override {
    gEventCODE->SetVBInstance(nullptr);
    tree_.reset();
    gEventCODE.reset();
    gErrorHandler.reset();
    gAppSettings.reset();
  }

  void Make() {
    tree_ = std::make_shared<udProjectExplorer>();
    tree_->Initialize();
    tree_->VBInstance = world_.Environment.VBE();
    tree_->SetTreeVBA(gEventCODE);
    tree_->Connect = root_;
  }
  forms::Grid& Grid() { return tree_->fgTree; }
  std::vector<std::string> Expected() {
    return PlainReading(*world_.Environment.VBE(), tree_->btnProperty.Value() == 1,
                        tree_->btnMethod.Value() == 1, tree_->btnCtl.Value() == 1)
        .Rows;
  }
  void ExpectTruth(const std::string& label = {}) {
    EXPECT_EQ(RowsIn(Grid()), Expected()) << label;
  }
  /// The row of that caption, -1 for none.
  int RowOf(StringView caption) {
    for (int row = 0; row < Grid().Rows(); ++row) {
      if (Grid().TextMatrix(row, 0) == caption) return row;
    }
    return -1;
  }
  String Current() { return Grid().Row() < 0 ? String() : Grid().TextMatrix(Grid().Row(), 0); }
  void Setting(StringView name, StringView value) {
    gAppSettings->SaveSetting(u"Settings\\VBCode\\frmSettings", name, String(value));
  }
  [[nodiscard]] String Setting(StringView name) const {
    return gAppSettings->GetText(u"Settings\\VBCode\\frmSettings", name, u"(none)");
  }
  /// How often an operation of the host is called by what is done.
  int Count(std::string_view operation, const std::function<void()>& done) {
    int count = 0;
    world_.Environment.SetOperationHook([&](std::string_view one) { count += one == operation; });
    done();
    world_.Environment.SetOperationHook({});
    return count;
  }
  std::shared_ptr<host::VBComponent> Add(host::vbext_ComponentType type, StringView name,
                                         StringView text = {}) {
    return world_.Environment.AddComponent(u"", type, name, text);
  }

  World world_;
  std::shared_ptr<FakeConnect> root_ = std::make_shared<FakeConnect>();
  std::shared_ptr<udProjectExplorer> tree_;
};

inline constexpr StringView TwoSubs =
    u"Option Explicit\r\n\r\nSub First()\r\nEnd Sub\r\n\r\n"
    u"Sub Second()\r\n  DoIt\r\nEnd Sub\r\n";

}  // namespace tessel::test
