#include "hosts/workbench/window/ExplorerCommands.h"

#include <memory>

#include "explorer/udProjectExplorer.h"
#include "hosts/workbench/window/MainWindow.h"

namespace tessel::workbench {
namespace {

std::shared_ptr<udProjectExplorer> ExplorerOf(model::Vbe& root) {
  for (const model::ToolWindow& window : root.OwnWindows().ToolWindows()) {
    if (auto explorer = std::dynamic_pointer_cast<udProjectExplorer>(window.Document.lock())) {
      return explorer;
    }
  }
  return nullptr;
}

}  // namespace

void ShowMemberInExplorer(MainWindow& window) {
  const auto explorer = ExplorerOf(*window.Root());
  if (!explorer) return;
  if (!explorer->Visible()) window.ClickCommand(u"Tessel", {u"Project Explorer"});
  window.RunTool([&] { explorer->SelectAtCaret(); });
}

}  // namespace tessel::workbench
