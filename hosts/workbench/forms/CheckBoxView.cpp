#include "hosts/workbench/forms/CheckBoxView.h"

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

CheckBoxView::CheckBoxView(forms::CheckBox& box, ViewHost& host)
    : ControlView(box, host), box_(box), widget_(new QCheckBox) {
  QObject::connect(widget_, &QCheckBox::clicked, widget_, [this](bool ticked) {
    Act([this, ticked] { forms::user::Check(box_, ticked ? 1 : 0); });
  });
}

void CheckBoxView::Update() {
  widget_->setText(ToQt(box_.Caption()));
  widget_->setChecked(box_.Value() == 1);
}

}  // namespace tessel::workbench
