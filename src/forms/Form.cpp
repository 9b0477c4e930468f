#include "forms/Form.h"

#include <exception>

#include "platform/Platform.h"
#include "vb/Failure.h"

namespace tessel::forms {

using platform::ShowStyle;

Form::Form(std::string_view name, StringView caption)
    : name_(name.begin(), name.end()), caption_(caption), designCaption_(caption) {}

Form::~Form() {
  if (visible_ && platform::IsInstalled()) platform::Current().Desktop().Hidden(*this, true);
}

void Form::SetCaption(StringView caption) {
  caption_ = caption;
  if (view_ != nullptr) view_->FormChanged();
}

Control* Form::Find(StringView name) const {
  for (Control* control : controls_) {
    if (vb::SameText(control->Name(), name)) return control;
  }
  return nullptr;
}

void Form::SaveDesign() {
  if (designed_) return;
  designed_ = true;
  designCaption_ = caption_;
  for (Control* control : controls_) control->SaveDesign();
}

void Form::RestoreDesign() {
  caption_ = designCaption_;
  for (Control* control : controls_) control->RestoreDesign();
}

void Form::Load() {
  if (loaded_) return;
  const auto self = weak_from_this().lock();
  SaveDesign();
  loaded_ = true;
  try {
    Form_Load();
  } catch (...) {
    loaded_ = false;
    RestoreDesign();  // a later attempt must not find half of this one
    throw;
  }
}

void Form::Show(ShowStyle style) {
  const auto self = weak_from_this().lock();  // alive until the user is done with it
  if (visible_ && style == ShowStyle::Modal) {
    throw vb::Failure(400, u"Form already displayed; can't show modally: " + name_);
  }
  Load();
  if (visible_) {
    platform::Current().Desktop().SetForeground(*this);
    return;
  }
  visible_ = true;
  modal_ = style == ShowStyle::Modal;
  Form_Activate();
  // A form whose activation hid or unloaded it is not shown at all.
  if (visible_) platform::Current().Desktop().Show(*this, style);
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  platform::Current().Desktop().Hidden(*this, false);
}

void Form::Unload() {
  const auto self = weak_from_this().lock();
  if (!loaded_) return;
  loaded_ = false;
  std::exception_ptr failed;
  try {
    Form_Unload();
  } catch (...) {
    failed = std::current_exception();  // a form that stayed open could not be closed any more
  }
  const bool shown = visible_;
  visible_ = false;
  active_ = arrived_ = nullptr;
  if (shown) platform::Current().Desktop().Hidden(*this, true);
  RestoreDesign();
  if (failed) std::rethrow_exception(failed);
}

void Form::CloseByFrame() {
  const auto self = weak_from_this().lock();
  if (visible_ && !Form_QueryUnload()) Unload();
}

void Form::MoveFocus(Control* control) {
  if (active_ == control) return;
  Control* const before = active_;
  active_ = control;
  // A control on its way to the focus has none to lose. Else two fields that both call the user
  // back would do so for ever.
  if (before != nullptr && before == arrived_) {
    arrived_ = nullptr;
    if (const auto handler = before->LostFocus) handler();
    if (active_ != control) return;  // the handler sent the focus elsewhere
  }
  arrived_ = control;
  if (view_ != nullptr) view_->FocusChanged(control);
  if (const auto handler = control->GotFocus) handler();
}

}  // namespace tessel::forms
