#include "hosts/workbench/designer/InlineRename.h"

#include <QKeyEvent>
#include <algorithm>

namespace tessel::workbench {
namespace {

constexpr int LeastWidth = 140;

}  // namespace

InlineRename::InlineRename(QWidget* over, const QString& name, const QRect& place)
    : QLineEdit(name, over), before_(name) {
  const int height = sizeHint().height();
  const int width = std::max(LeastWidth, std::min(place.width(), 2 * LeastWidth));
  const int left = std::clamp(place.left(), 0, std::max(0, over->width() - width));
  const int top = std::clamp(place.top(), 0, std::max(0, over->height() - height));
  setGeometry(left, top, width, height);
  setAccessibleName(QStringLiteral("New name"));
  selectAll();
  show();
  setFocus(Qt::OtherFocusReason);
}

void InlineRename::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return Close(false);
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return Close(true);
  QLineEdit::keyPressEvent(event);
}

void InlineRename::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason) Close(true);
}

void InlineRename::Close(bool take) {
  if (!open_) return;
  // A failure that is shown takes the focus again.
  open_ = false;
  hide();
  deleteLater();
  if (parentWidget() != nullptr) parentWidget()->setFocus(Qt::OtherFocusReason);
  if (take && text() != before_ && OnDone) OnDone(text());
}

}  // namespace tessel::workbench
