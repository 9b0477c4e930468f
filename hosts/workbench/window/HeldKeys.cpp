#include "hosts/workbench/window/HeldKeys.h"

#include <QKeyEvent>

namespace tessel::workbench {
namespace {

bool AnswersDialogs(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape ||
         key == Qt::Key_Space;
}

}  // namespace

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::KeyPress;
  if (!watched->isWidgetType() || (!press && event->type() != QEvent::ShortcutOverride)) {
    return QObject::eventFilter(watched, event);
  }
  const auto& key = *static_cast<const QKeyEvent*>(event);
  QWidget* const window = static_cast<QWidget*>(watched)->window();
  if (!key.isAutoRepeat()) {
    window_ = window;
  } else if (press && AnswersDialogs(key.key()) && window != window_) {
    return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tessel::workbench
