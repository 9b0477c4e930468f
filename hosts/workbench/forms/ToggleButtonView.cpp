#include "hosts/workbench/forms/ToggleButtonView.h"

#include <QStyleOptionButton>

#include "forms/User.h"
#include "hosts/workbench/forms/ButtonFace.h"

namespace tessel::workbench {
namespace {

/// One that is down bears the colour of a selection: on a dark palette a shadow alone isn't seen.
class PushButton : public QPushButton {
 protected:
  void initStyleOption(QStyleOptionButton* option) const override {
    QPushButton::initStyleOption(option);
    if (!isChecked()) return;
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    option->palette.setColor(QPalette::Button, option->palette.color(group, QPalette::Highlight));
  }
};

}  // namespace

ToggleButtonView::ToggleButtonView(forms::ToggleButton& button, ViewHost& host)
    : ControlView(button, host), button_(button), widget_(new PushButton) {
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
