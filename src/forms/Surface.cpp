#include "forms/Surface.h"

#include "platform/Platform.h"

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

MenuItem* Surface::FindMenu(StringView name) const {
  for (MenuItem* menu : menus_) {
    if (MenuItem* const found = menu->Find(name)) return found;
  }
  return nullptr;
}

void Surface::PopupMenu(MenuItem& menu, std::optional<platform::SurfacePoint> place) {
  const auto self = weak_from_this().lock();
  menu.RaiseClick();
  MenuItem* const chosen = platform::Current().Screen().PopUp(*this, menu, place);
  if (chosen != nullptr) chosen->RaiseClick();
}

void Surface::SaveWholeDesign() {
  SaveDesign();
  for (Control* control : controls_) control->SaveDesign();
  for (MenuItem* menu : menus_) menu->SaveBranch();
}

void Surface::RestoreWholeDesign() {
  active_ = arrived_ = nullptr;
  RestoreDesign();
  for (Control* control : controls_) control->RestoreDesign();
  for (MenuItem* menu : menus_) menu->RestoreBranch();
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
