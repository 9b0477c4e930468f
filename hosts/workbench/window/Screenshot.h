// Pictures of the workbench for its documentation.
#pragma once

#include <QString>

namespace tessel::workbench {

class MainWindow;

/// What a picture shows.
struct Pictures {
  QString File;      ///< a PNG file
  QString Command;   ///< of the add-in's menu: its dialog goes into a file with "-dialog"
  QString Explorer;  ///< "docked", "narrow" or "floating"; the last one is drawn alone
  QString Find;      ///< what is typed above the Explorer's tree
};

/// Draws the window with a form's designer, its code and a module's code open. False when a file
/// can't be written, or when there is no such Explorer to show.
bool DrawScreenshots(MainWindow& window, const Pictures& pictures);

}  // namespace tessel::workbench
