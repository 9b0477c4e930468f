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

void ShowMemberInExplorer(MainWindow& window) {
  const auto explorer = ExplorerOf(window);
  if (!explorer) return;
  if (!explorer->Visible()) window.ClickCommand(u"Tessel", {u"Project Explorer"});
  window.RunTool([&] { explorer->SelectAtCaret(); });
}

}  // namespace tessel::workbench
