#include "forms/Control.h"

#include "forms/Form.h"

namespace tessel::forms {

Control::Control(Form* owner, std::string_view name)
    : owner_(owner), name_(name.begin(), name.end()) {
  owner_->Register(this);
}

Control::~Control() = default;

void Control::Changed() {
  if (View* view = owner_->GetView()) view->ControlChanged(*this);
}

void Control::SetEnabled(bool value) {
  if (enabled_ == value) return;
  enabled_ = value;
  Changed();
}

void Control::SetVisible(bool value) {
  if (visible_ == value) return;
  visible_ = value;
  Changed();
}

void Control::SetToolTipText(StringView text) {
  toolTip_ = text;
  Changed();
}

void Control::SetFocus() {
  if (TakesFocus() && enabled_ && visible_) owner_->MoveFocus(this);
}

bool Control::HasFocus() const { return owner_->ActiveControl() == this; }

void Control::SaveDesign() {
  designEnabled_ = enabled_;
  designVisible_ = visible_;
}

void Control::RestoreDesign() {
  enabled_ = designEnabled_;
  visible_ = designVisible_;
}

}  // namespace tessel::forms
