#include "hosts/workbench/forms/ToggleButtonView.h"

#include "forms/User.h"
#include "hosts/workbench/forms/ButtonFace.h"

namespace tessel::workbench {

ToggleButtonView::ToggleButtonView(forms::ToggleButton& button, ViewHost& host)
    : ControlView(button, host), button_(button), widget_(new QPushButton) {
  widget_->setAutoDefault(false);
  widget_->setCheckable(true);
  QObject::connect(widget_, &QPushButton::clicked, widget_,
                   [this] { Act([this] { forms::user::Press(button_); }); });
}

void ToggleButtonView::Update() {
  ShowFace(*widget_, button_);
  widget_->setChecked(button_.Value() == 1);
}

}  // namespace tessel::workbench
