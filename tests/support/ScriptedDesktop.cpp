#include "support/ScriptedDesktop.h"

#include "forms/User.h"

namespace tessel::memory {
namespace {

template <class T>
std::optional<T> TakeFirst(std::deque<T>& queue) {
  if (queue.empty()) return std::nullopt;
  T first = std::move(queue.front());
  queue.pop_front();
  return first;
}

}  // namespace

platform::MessageAnswer ScriptedDesktop::ShowMessage(StringView text, StringView title, int style) {
  Messages.push_back({String(text), String(title), style});
  const auto refusal = UnattendedDesktop::ShowMessage(text, title, style);
  return TakeFirst(Answers).value_or(refusal);
}

std::optional<String> ScriptedDesktop::InputBox(StringView prompt, StringView title, StringView) {
  Journal.push_back("input " + vb::ToUtf8(title) + ": " + vb::ToUtf8(prompt));
  return TakeFirst(Inputs).value_or(std::nullopt);
}

std::vector<String> ScriptedDesktop::FileDialog(const platform::FileDialogRequest& request) {
  Journal.push_back((request.Save ? "save " : "open ") + vb::ToUtf8(request.Filter));
  return TakeFirst(Files).value_or(std::vector<String>{});
}

bool ScriptedDesktop::FontDialog(forms::Font& font, StringView) {
  return OnFontDialog && OnFontDialog(font);
}

void ScriptedDesktop::Attend(forms::Form& form) {
  if (OnShow) OnShow(form);
  if (OnModal) OnModal(form);
}

void ScriptedDesktop::SetForeground(forms::Form& form) {
  Journal.push_back("foreground " + vb::ToUtf8(form.Name()));
}

forms::MenuItem* ScriptedDesktop::PopUp(forms::Surface&, forms::MenuItem& menu,
                                        std::optional<platform::SurfacePoint>) {
  const String chosen = OnMenu ? OnMenu(menu) : String();
  return chosen.empty() ? nullptr : &forms::user::ItemOf(menu, chosen);
}

void ScriptedDesktop::SetText(StringView text) {
  if (FailClipboard) throw vb::Failure(*FailClipboard);
  MemoryClipboard::SetText(text);
  Journal.push_back("clipboard " + vb::ToUtf8(text));
}

void ScriptedDesktop::SendKeys(StringView keys) { Journal.push_back("keys " + vb::ToUtf8(keys)); }

void ScriptedDesktop::Beep() { Journal.emplace_back("beep"); }

int ScriptedDesktop::OpenDocument(StringView target, StringView verb, StringView) {
  Journal.push_back("open " + vb::ToUtf8(verb) + " " + vb::ToUtf8(target));
  return ShellAnswer;
}

void ScriptedDesktop::ShowHelp(StringView helpFile, StringView topic) {
  Journal.push_back("help " + vb::ToUtf8(helpFile) + " " + vb::ToUtf8(topic));
}

}  // namespace tessel::memory
