// The environment's tool windows as docks of the main window.
#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "hosts/model/Windows.h"
#include "hosts/workbench/forms/QtDesktop.h"
#include "hosts/workbench/forms/SurfaceWidget.h"

namespace tessel::workbench {

/// One dock for each tool window that holds a document. A dock is open as long as its window is
/// visible, and its place is known by the key that the tool window was made with.
class ToolWindowDocks : public QObject {
 public:
  using ToolWindows = std::function<std::vector<model::ToolWindow>()>;
  ToolWindowDocks(QMainWindow& window, QtDesktop& desktop, ToolWindows toolWindows);
  ~ToolWindowDocks() override;

  /// Makes, opens, closes and removes docks as the tool windows ask for, at the next turn of the
  /// event loop.
  void FollowSoon();
  /// The same at once.
  void Follow();
  /// The dock of a document by its name, null for none.
  [[nodiscard]] QDockWidget* DockOf(StringView document) const;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Dock {
    std::weak_ptr<model::Window> Frame;
    std::weak_ptr<forms::Document> Document;
    QPointer<QDockWidget> Widget;
    QPointer<SurfaceWidget> Content;
  };
  void Make(const model::ToolWindow& toolWindow);
  static void Drop(Dock& dock);
  [[nodiscard]] bool Has(const model::ToolWindow& toolWindow) const;

  QMainWindow& window_;
  QtDesktop& desktop_;
  ToolWindows toolWindows_;
  std::vector<Dock> docks_;
  bool posted_ = false;
};

}  // namespace tessel::workbench
