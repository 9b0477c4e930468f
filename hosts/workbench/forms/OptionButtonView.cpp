#include "hosts/workbench/forms/OptionButtonView.h"

#include <QButtonGroup>

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

OptionButtonView::OptionButtonView(forms::OptionButton& option, QButtonGroup& group, ViewHost& host)
    : ControlView(option, host), option_(option), group_(group), widget_(new QRadioButton) {
  group_.addButton(widget_);
  QObject::connect(widget_, &QRadioButton::clicked, widget_,
                   [this] { Act([this] { forms::user::Press(option_); }); });
}

void OptionButtonView::Update() {
  widget_->setText(ToQt(option_.Caption()));
  // The model alone says which is on, and that can be none.
  group_.setExclusive(false);
  widget_->setChecked(option_.Value());
  group_.setExclusive(true);
}

}  // namespace tessel::workbench
