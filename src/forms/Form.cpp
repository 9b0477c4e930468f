#include "forms/Form.h"

#include <exception>

#include "platform/Platform.h"
#include "vb/Failure.h"

namespace tessel::forms {

using platform::ShowStyle;

Form::Form(std::string_view name, StringView caption) : Surface(name, caption) {}

// A hidden form can go as well, and one that was never shown can have been given a place.
Form::~Form() {
  if (platform::IsInstalled()) platform::Current().Screen().Gone(*this);
}

std::shared_ptr<Form> Form::shared_from_this() {
  return std::static_pointer_cast<Form>(Surface::shared_from_this());
}

std::weak_ptr<Form> Form::weak_from_this() {
  return std::static_pointer_cast<Form>(Surface::weak_from_this().lock());
}

void Form::Load() {
  if (loaded_) return;
  const auto self = weak_from_this().lock();
  if (!std::exchange(designed_, true)) SaveWholeDesign();
  loaded_ = true;
  try {
    Form_Load();
  } catch (...) {
    loaded_ = false;
    platform::Current().Screen().Gone(*this);
    RestoreWholeDesign();  // a later attempt must not find half of this one
    throw;
  }
}

void Form::Show(ShowStyle style) {
  const auto self = weak_from_this().lock();  // alive until the user is done with it
  if (visible_ && style == ShowStyle::Modal) {
    throw vb::Failure(400, u"Form already displayed; can't show modally: " + Name());
  }
  Load();
  if (visible_) {
    platform::Current().Screen().SetForeground(*this);
    return;
  }
  visible_ = true;
  modal_ = style == ShowStyle::Modal;
  try {
    ShowLoaded(style);
  } catch (...) {
    Hide();  // else it could never be shown modally any more
    throw;
  }
}

void Form::ShowLoaded(ShowStyle style) {
  Form_Activate();
  // A form whose activation hid or unloaded it is not shown at all.
  if (visible_) platform::Current().Screen().Show(*this, style);
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  platform::Current().Screen().Hidden(*this);
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
  visible_ = false;
  platform::Current().Screen().Gone(*this);
  RestoreWholeDesign();
  if (failed) std::rethrow_exception(failed);
}

void Form::CloseByFrame() {
  const auto self = weak_from_this().lock();
  if (visible_ && !Form_QueryUnload()) Unload();
}

}  // namespace tessel::forms
