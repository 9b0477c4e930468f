#include "hosts/workbench/forms/ButtonView.h"

#include "forms/User.h"
#include "hosts/workbench/forms/ButtonFace.h"

namespace tessel::workbench {

ButtonView::ButtonView(forms::Button& button, ViewHost& host)
    : ControlView(button, host), button_(button), widget_(new QPushButton) {
  widget_->setAutoDefault(false);
  QObject::connect(widget_, &QPushButton::clicked, widget_,
                   [this] { Act([this] { forms::user::Press(button_); }); });
}

void ButtonView::Update() {
  ShowFace(*widget_, button_);
  widget_->setDefault(button_.Default);
}

}  // namespace tessel::workbench
