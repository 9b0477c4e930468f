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

std::shared_ptr<udProjectExplorer> OpenExplorer(MainWindow& window) {
  const auto explorer = ExplorerOf(*window.Root());
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
