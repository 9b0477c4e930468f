#include "hosts/workbench/forms/SpinArrows.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace tessel::workbench {
namespace {

constexpr int PageSteps = 10, WheelStep = 120;

int StepsOfKey(int key) {
  switch (key) {
    case Qt::Key_Up:
      return 1;
    case Qt::Key_Down:
      return -1;
    case Qt::Key_PageUp:
      return PageSteps;
    case Qt::Key_PageDown:
      return -PageSteps;
    default:
      return 0;
  }
}

}  // namespace

SpinArrows::SpinArrows() {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  up_ = AddArrow(Qt::UpArrow, 1);
  down_ = AddArrow(Qt::DownArrow, -1);
  setFocusPolicy(Qt::StrongFocus);
  setFixedSize(fontMetrics().height() * 5 / 4, QLineEdit().sizeHint().height());
}

QToolButton* SpinArrows::AddArrow(Qt::ArrowType arrow, int step) {
  auto* const button = new QToolButton(this);
  button->setArrowType(arrow);
  button->setAutoRepeat(true);
  button->setFocusPolicy(Qt::NoFocus);
  button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  layout()->addWidget(button);
  connect(button, &QToolButton::clicked, this, [this, step] {
    if (Turned) Turned(step);
  });
  return button;
}

void SpinArrows::keyPressEvent(QKeyEvent* event) {
  const int steps = StepsOfKey(event->key());
  if (steps != 0 && Turned) {
    Turned(steps);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void SpinArrows::wheelEvent(QWheelEvent* event) {
  wheel_ += event->angleDelta().y();
  const int steps = wheel_ / WheelStep;
  wheel_ -= steps * WheelStep;
  if (steps != 0 && Turned) Turned(steps);
  event->accept();
}

void SpinArrows::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void SpinArrows::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

void SpinArrows::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.fillRect(rect(), palette().highlight());
}

}  // namespace tessel::workbench
