#include "forms/Surface.h"

namespace tessel::forms {

Surface::Surface(std::string_view name, StringView caption)
    : name_(name.begin(), name.end()), caption_(this, String(caption)) {}

Surface::~Surface() = default;

void Surface::Changed() {
  if (view_ != nullptr) view_->SurfaceChanged();
}

Control* Surface::Find(StringView name) const {
  for (Control* control : controls_) {
    if (vb::SameText(control->Name(), name)) return control;
  }
  return nullptr;
}

void Surface::SaveWholeDesign() {
  SaveDesign();
  for (Control* control : controls_) control->SaveDesign();
}

void Surface::RestoreWholeDesign() {
  active_ = arrived_ = nullptr;
  RestoreDesign();
  for (Control* control : controls_) control->RestoreDesign();
}

void Surface::MoveFocus(Control* control) {
  if (active_ == control) return;
  Control* const before = active_;
  active_ = control;
  // A control on its way to the focus has none to lose. Else two fields that both call the user
  // back would do so for ever.
  if (before != nullptr && before == arrived_) {
    arrived_ = nullptr;
    Raise(*before, before->LostFocus);
    if (active_ != control) return;  // the handler sent the focus elsewhere
  }
  arrived_ = control;
  if (view_ != nullptr) view_->FocusChanged(control);
  Raise(*control, control->GotFocus);
}

}  // namespace tessel::forms
