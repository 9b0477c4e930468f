// The Explorer of a connected add-in over projects in files, with watchers and clock at work.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "addin/Connect.h"
#include "explorer/ExplorerWorld.h"
#include "hosts/model/UserInput.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"
#include "support/TemporaryFolder.h"

namespace tessel::test {

class ConnectedExplorer : public testing::Test {
 protected:
  ConnectedExplorer() {
    services_.WindowsService.Use(environment_.OwnWindows());
    services_.AppService.Folder = (folder_.Path() / "program").u16string();
    Run([&] {
      connect_->AddinInstance_OnConnection(environment_.VBE());
      connect_->AddinInstance_OnStartupComplete();
    });
  }
  ~ConnectedExplorer() override {
    tree_.reset();
    connect_->AddinInstance_OnDisconnection();
    connect_.reset();
    gErrorHandler.reset();
  }
  void Show() {
    Run([&] { connect_->ShowProjectExplorer(); });
    tree_ = std::dynamic_pointer_cast<udProjectExplorer>(environment_.OpenDocuments().front());
  }
  /// What the add-in itself does; everything else is done by hand.
  void Run(const std::function<void()>& act) {
    const auto calls = environment_.WhoseCalls(model::CallsOf::AddIn);
    act();
  }
  void Wait(int ms = 1000) {
    Run([&] { services_.ClockService.Advance(ms); });
  }
  void AddProject(StringView name) { environment_.NewProject(name, host::vbext_pt_StandardExe); }
  std::shared_ptr<model::VBComponent> Add(StringView project, host::vbext_ComponentType type,
                                          StringView name, StringView text) {
    return std::dynamic_pointer_cast<model::VBComponent>(
        environment_.AddComponent(project, type, name, text));
  }
  std::shared_ptr<model::Vbe> Root() {
    return std::dynamic_pointer_cast<model::Vbe>(environment_.VBE());
  }
  std::vector<std::string> Expected() {
    return PlainReading(*environment_.VBE(), true, true, true).Rows;
  }
  void ExpectTruth(const std::string& label = {}) {
    EXPECT_EQ(RowsIn(tree_->fgTree), Expected()) << label;
  }
  forms::Grid& Grid() { return tree_->fgTree; }
  /// "PROJECT.COMPONENT.CAPTION" of the current row, as far as it has them.
  std::string Current() {
    const int row = Grid().Row();
    if (row < 0) return {};
    return vb::ToUtf8(Grid().TextMatrix(row, 2) + u"." + Grid().TextMatrix(row, 5) + u"." +
                      Grid().TextMatrix(row, 0));
  }
  int RowOf(StringView project, StringView caption) {
    for (int row = 0; row < Grid().Rows(); ++row) {
      if (Grid().TextMatrix(row, 2) == project && Grid().TextMatrix(row, 0) == caption) return row;
    }
    return -1;
  }
  /// Two projects whose forms bear one name; the first one's code is in front.
  void OpenTwins() {
    AddProject(u"P1");
    const auto first = Add(u"P1", host::vbext_ct_VBForm, u"Form1",
                           u"Sub A()\r\nEnd Sub\r\nSub OnlyP1()\r\nEnd Sub\r\n");
    AddProject(u"P2");
    Add(u"P2", host::vbext_ct_VBForm, u"Form1",
        u"Sub A()\r\nEnd Sub\r\nSub OnlyP2()\r\nEnd Sub\r\n");
    Show();
    environment_.ActivateProject(u"P1");
    environment_.SetCaret(u"Form1", {1, 1, 1, 1});
    Wait();
    pane_ = first->Module()->OwnPane()->OwnWindow().Handle();
  }
  void Key() { model::Key(environment_.OwnWindows(), pane_); }

  memory::MemoryPlatform services_;
  ErrorDialogs errors_{services_.DesktopService};
  platform::ScopedPlatform scope_{services_};
  TemporaryFolder folder_;
  workspace::Workspace environment_{services_};
  model::CallsOf byHand_{environment_.WhoseCalls(model::CallsOf::Environment)};
  std::shared_ptr<Connect> connect_ = std::make_shared<Connect>();
  std::shared_ptr<udProjectExplorer> tree_;
  platform::WindowHandle pane_ = 0;
};

}  // namespace tessel::test
