#include "hosts/workbench/forms/PictureBoxView.h"

#include <QToolButton>

#include "forms/User.h"
#include "hosts/workbench/platform/Pictures.h"

namespace tessel::workbench {
namespace {

constexpr int LinesHigh = 3;

}  // namespace

PictureBoxView::PictureBoxView(forms::PictureBox& box, ViewHost& host)
    : ControlView(box, host), box_(box), widget_(new QToolButton) {
  widget_->setFocusPolicy(Qt::NoFocus);
  // Flat, and drawn without the frame that a button gets under the pointer.
  widget_->setStyleSheet(QStringLiteral("QToolButton { border: none; }"));
  const int side = LinesHigh * widget_->fontMetrics().height();
  widget_->setIconSize({side, side});
  QObject::connect(widget_, &QToolButton::clicked, widget_, [this] {
    if (box_.Click) Act([this] { forms::user::Press(box_); });
  });
}

QWidget* PictureBoxView::Widget() const { return widget_; }

void PictureBoxView::Update() { widget_->setIcon(Picture(box_.Picture())); }

}  // namespace tessel::workbench
