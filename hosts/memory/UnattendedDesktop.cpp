#include "hosts/memory/UnattendedDesktop.h"

#include "forms/Form.h"

namespace tessel::memory {
namespace {

using platform::MessageAnswer;

MessageAnswer RefusalOf(int style) {
  switch (style & 7) {
    case platform::OKCancel:
    case platform::YesNoCancel:
    case platform::RetryCancel:
      return MessageAnswer::Cancel;
    case platform::AbortRetryIgnore:
      return MessageAnswer::Abort;
    case platform::YesNo:
      return MessageAnswer::No;
    default:
      return MessageAnswer::OK;
  }
}

}  // namespace

MessageAnswer UnattendedDesktop::ShowMessage(StringView text, StringView title, int style) {
  if (OnMessage) OnMessage({String(text), String(title), style});
  return RefusalOf(style);
}

void UnattendedDesktop::Show(forms::Form& form, platform::ShowStyle style) {
  Shown.push_back(&form);
  if (style == platform::ShowStyle::Modeless) return;
  Attend(form);
  if (form.Visible()) form.CloseByFrame();
  if (form.Visible()) form.Hide();
}

void UnattendedDesktop::Hidden(forms::Form& form) { std::erase(Shown, &form); }

void UnattendedDesktop::Gone(forms::Form& form) {
  std::erase(Shown, &form);
  PlainScreen::Gone(form);
}

}  // namespace tessel::memory
