#include "forms/Control.h"

#include "forms/Surface.h"

namespace tessel::forms {

Control::Control(Surface* owner, std::string_view name)
    : owner_(owner), name_(name.begin(), name.end()) {
  owner_->Register(this);
}

Control::~Control() = default;

void Control::Changed() {
  if (View* view = owner_->GetView()) view->ControlChanged(*this);
}

void Control::Carry(const std::function<void()>& handler) const { owner_->Carry(handler); }

void Control::SetFocus() {
  if (TakesFocus() && enabled_ && visible_) owner_->MoveFocus(this);
}

bool Control::HasFocus() const { return owner_->ActiveControl() == this; }

}  // namespace tessel::forms
