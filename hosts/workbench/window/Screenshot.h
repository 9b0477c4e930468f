// Pictures of the workbench for its documentation.
#pragma once

#include <QString>

namespace tessel::workbench {

class MainWindow;

/// Draws the window with a form's designer, its code and a module's code open into a PNG file, and
/// the dialog of a command of the add-in's menu into another of that name with "-dialog". False
/// when a file can't be written.
bool DrawScreenshots(MainWindow& window, const QString& file, const QString& command);

}  // namespace tessel::workbench
