#include "hosts/workbench/forms/QtWindows.h"

#include <QWidget>

namespace tessel::workbench {

String QtWindows::ClassName(platform::WindowHandle window) {
  const QWidget* const found = QWidget::find(static_cast<WId>(window));
  return found == nullptr ? String() : vb::FromUtf8(found->metaObject()->className());
}

}  // namespace tessel::workbench
