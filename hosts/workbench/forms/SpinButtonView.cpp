#include "hosts/workbench/forms/SpinButtonView.h"

#include <QToolButton>

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

SpinButtonView::SpinButtonView(forms::SpinButton& spin, ViewHost& host)
    : ControlView(spin, host), spin_(spin), widget_(new SpinArrows) {
  widget_->Turned = [this](int steps) {
    Act([this, steps] { forms::user::Spin(spin_, spin_.Value() + steps); });
  };
}

void SpinButtonView::Update() {
  widget_->Up().setEnabled(spin_.Value() < spin_.Max());
  widget_->Down().setEnabled(spin_.Value() > spin_.Min());
  widget_->setAccessibleDescription(ToQt(vb::Str(spin_.Value())));
}

}  // namespace tessel::workbench
