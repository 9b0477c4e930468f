#include "hosts/workbench/forms/FormPlace.h"

#include <QLayout>
#include <QScrollArea>
#include <QWidget>

#include "hosts/workbench/forms/ScreenPlace.h"

namespace tessel::workbench {
namespace {

/// As long as a window is hidden, a change of a size stays in the layout where it happened.
void ForgetSizes(QWidget& window) {
  for (QLayout* const layout : window.findChildren<QLayout*>()) {
    layout->invalidate();
    layout->parentWidget()->updateGeometry();
  }
}

/// A window that the screen can't hold is seen in part.
void MakeScrollable(QWidget& window) {
  QWidget* const content = window.layout()->itemAt(window.layout()->count() - 1)->widget();
  if (qobject_cast<QScrollArea*>(content) != nullptr) return;
  auto* const area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  window.layout()->removeWidget(content);
  area->setWidget(content);
  window.layout()->addWidget(area);
  window.layout()->activate();
}

}  // namespace

QRect FormPlace::Get() const {
  if (opened_) {
    return window_.isMaximized() ? window_.normalGeometry() : QRect(window_.pos(), window_.size());
  }
  return place_.value_or(QRect(window_.pos(), window_.sizeHint()));
}

void FormPlace::Set(const QRect& place, bool maximized) {
  moved_ = !opened_ && place.size() == window_.sizeHint();
  place_ = place;
  maximized_ = maximized;
  if (opened_) Apply();
}

void FormPlace::Prepare() {
  if (!opened_) Apply();
  opened_ = true;
}

void FormPlace::Apply() {
  ForgetSizes(window_);
  const QRect room = ScreenAround(place_ ? place_->center() : window_.pos());
  if (!room.contains(QRect(room.topLeft(), window_.minimumSizeHint()))) MakeScrollable(window_);
  const QSize wanted = place_ && !moved_ ? place_->size() : window_.sizeHint();
  window_.resize(wanted.expandedTo(window_.minimumSizeHint()).boundedTo(room.size()));
  if (!place_) return;
  QRect place(place_->topLeft(), window_.size());
  if (moved_) place.moveCenter(place_->center());
  window_.move(KeptOnScreen(place).topLeft());
}

}  // namespace tessel::workbench
