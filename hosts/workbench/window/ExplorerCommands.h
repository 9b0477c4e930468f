// What the window's own commands ask of the Project Explorer.
#pragma once

#include <memory>

namespace tessel {
class udProjectExplorer;
}

namespace tessel::workbench {

class MainWindow;

/// The Explorer of the window's add-in; null without one.
[[nodiscard]] std::shared_ptr<udProjectExplorer> ExplorerOf(MainWindow& window);

/// Opens the Explorer when it is closed and puts its selection on the member at the caret. Without
/// the add-in nothing happens.
void ShowMemberInExplorer(MainWindow& window);
/// Opens the Explorer when it is closed and gives its line for finding the keys. Without the add-in
/// nothing happens.
void FindInExplorer(MainWindow& window);

}  // namespace tessel::workbench
