#include "hosts/workbench/forms/FrontWindow.h"

#include <QApplication>

namespace tessel::workbench {

QWidget* FrontWindow::Get() const {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  QWidget* const active = QApplication::activeWindow();
  return active != nullptr ? active : Parent.data();
}

}  // namespace tessel::workbench
