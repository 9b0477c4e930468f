// What the window's own commands ask of the Project Explorer.
#pragma once

namespace tessel::workbench {

class MainWindow;

/// Opens the Explorer when it is closed and puts its selection on the member at the caret. Without
/// the add-in nothing happens.
void ShowMemberInExplorer(MainWindow& window);
/// Opens the Explorer when it is closed and gives its line for finding the keys. Without the add-in
/// nothing happens.
void FindInExplorer(MainWindow& window);

}  // namespace tessel::workbench
