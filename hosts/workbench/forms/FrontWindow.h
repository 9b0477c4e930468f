// The window that the next one stands in front of.
#pragma once

#include <QPointer>
#include <QWidget>

namespace tessel::workbench {

struct FrontWindow {
  /// The program's window, in front of which all others stand. Null: they stand alone.
  QPointer<QWidget> Parent;

  [[nodiscard]] QWidget* Get() const;
};

}  // namespace tessel::workbench
