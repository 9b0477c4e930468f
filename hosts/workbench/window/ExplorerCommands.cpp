#include "hosts/workbench/window/ExplorerCommands.h"

#include "explorer/udProjectExplorer.h"
#include "hosts/workbench/window/MainWindow.h"

namespace tessel::workbench {

std::shared_ptr<udProjectExplorer> ExplorerOf(MainWindow& window) {
  for (const model::ToolWindow& one : window.Root()->OwnWindows().ToolWindows()) {
    if (auto explorer = std::dynamic_pointer_cast<udProjectExplorer>(one.Document.lock())) {
      return explorer;
    }
  }
  return nullptr;
}

namespace {

std::shared_ptr<udProjectExplorer> OpenExplorer(MainWindow& window) {
  auto explorer = ExplorerOf(window);
  if (explorer && !explorer->Visible()) {
    window.ClickCommand(u"Tessel", {u"Project Explorer"});
  }
  return explorer;
}

}  // namespace

void ShowMemberInExplorer(MainWindow& window) {
  const auto explorer = OpenExplorer(window);
  if (explorer) window.RunTool([&] { explorer->SelectAtCaret(); });
}

void FindInExplorer(MainWindow& window) {
  const auto explorer = OpenExplorer(window);
  if (explorer) window.GiveKeysTo(explorer->Name(), explorer->txtFind.Name());
}

}  // namespace tessel::workbench
