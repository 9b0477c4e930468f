// The host's command bars on the screen.
#pragma once

#include <QHash>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <functional>
#include <memory>

#include "hosts/model/Vbe.h"

namespace tessel::workbench {

/// Shows every command bar but the menu bar as a tool bar, built from the bars alone: pictures,
/// groups, pop-ups, greyed items, places. Commands that stand in the host's menu bar come into
/// menus of the same caption.
class BarView {
 public:
  BarView(QMainWindow& window, std::shared_ptr<model::Vbe> vbe);

  /// Reads the bars again.
  void Rebuild();
  /// Fills a menu with what the host's menu bar holds under its caption; true when there was
  /// something.
  bool FillMenu(QMenu& menu, StringView caption);
  /// Writes the places of the tool bars, which the user may have moved, into the bars.
  void StorePlaces();

  /// Runs a clicked control.
  std::function<void(const std::shared_ptr<host::CommandBarControl>&)> OnClick;

 private:
  void Fill(QToolBar& view, host::CommandBar& bar);
  void FillWith(QMenu& menu, host::CommandBarControls& controls);
  QAction* ActionOf(const std::shared_ptr<host::CommandBarControl>& control, QObject* owner);
  void Place(QToolBar& view, host::CommandBar& bar);

  QMainWindow& window_;
  std::shared_ptr<model::Vbe> vbe_;
  QHash<QString, QToolBar*> views_;
};

/// A picture for a face of the environment's own; empty for one that has none here.
[[nodiscard]] QIcon FaceIcon(int faceId);

}  // namespace tessel::workbench
