#include "hosts/memory/MemoryPlatform.h"

#include <algorithm>
#include <chrono>

#include "forms/Form.h"
#include "vb/Failure.h"

namespace tessel::memory {

using platform::MessageAnswer;

// Registry

MemoryRegistry::Key* MemoryRegistry::Find(platform::RootKey root, StringView key) {
  auto& keys = keys_[root];
  const auto found = std::find_if(keys.begin(), keys.end(),
                                  [&](const Key& one) { return vb::SameText(one.Path, key); });
  return found == keys.end() ? nullptr : &*found;
}

std::optional<platform::RegistryValue> MemoryRegistry::GetValue(platform::RootKey root,
                                                                StringView key, StringView name) {
  if (const Key* found = Find(root, key)) {
    for (const auto& value : found->Values) {
      if (vb::SameText(value.Name, name)) return value.Value;
    }
  }
  return std::nullopt;
}

void MemoryRegistry::SetValue(platform::RootKey root, StringView key, StringView name,
                              const platform::RegistryValue& value) {
  if (FailWrites) throw vb::Failure(*FailWrites);
  Key* found = Find(root, key);
  if (found == nullptr) found = &keys_[root].emplace_back(Key{String(key), {}});
  for (auto& one : found->Values) {
    if (vb::SameText(one.Name, name)) {
      one.Value = value;
      return;
    }
  }
  found->Values.push_back({String(name), value});
}

bool MemoryRegistry::DeleteKey(platform::RootKey root, StringView key) {
  auto& keys = keys_[root];
  const String below = String(key) + u"\\";
  if (std::any_of(keys.begin(), keys.end(),
                  [&](const Key& one) { return vb::StartsWithText(one.Path, below); })) {
    return false;
  }
  return std::erase_if(keys, [&](const Key& one) { return vb::SameText(one.Path, key); }) > 0;
}

std::optional<std::vector<String>> MemoryRegistry::ValueNames(platform::RootKey root,
                                                              StringView key) {
  const Key* found = Find(root, key);
  if (found == nullptr) return std::nullopt;
  std::vector<String> names;
  for (const auto& value : found->Values) names.push_back(value.Name);
  return names;
}

// Clock

vb::Date VirtualClock::Now() {
  using namespace std::chrono;
  const sys_days day = year{Start.Year} / Start.Month / Start.Day;
  const sys_seconds now = day + hours{Start.Hour} + minutes{Start.Minute} + seconds{Start.Second} +
                          seconds{ticks_ / 1000};
  const auto today = floor<days>(now);
  const year_month_day date{today};
  const hh_mm_ss time{now - today};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

platform::TimerId VirtualClock::StartTimer(int ms, std::function<void()> tick) {
  timers_.push_back({nextId_, ticks_ + ms, std::move(tick)});
  return nextId_++;
}

void VirtualClock::StopTimer(platform::TimerId timer) {
  std::erase_if(timers_, [&](const Timer& one) { return one.Id == timer; });
}

bool VirtualClock::RunOneDue(std::int64_t limit) {
  const auto next = std::min_element(
      timers_.begin(), timers_.end(),
      [](const Timer& a, const Timer& b) { return a.Due != b.Due ? a.Due < b.Due : a.Id < b.Id; });
  if (next == timers_.end() || next->Due > limit) return false;
  const Timer timer = std::move(*next);
  timers_.erase(next);
  ticks_ = std::max(ticks_, timer.Due);
  timer.Tick();
  return true;
}

void VirtualClock::DoEvents() {
  if (OnDoEvents) OnDoEvents();
  while (RunOneDue(ticks_)) {
  }
}

void VirtualClock::Advance(int ms) {
  const std::int64_t end = ticks_ + ms;
  while (RunOneDue(end)) {
  }
  ticks_ = std::max(ticks_, end);
}

// Desktop

namespace {
MessageAnswer DefaultAnswer(int style) {
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

template <class T>
std::optional<T> TakeFirst(std::deque<T>& queue) {
  if (queue.empty()) return std::nullopt;
  T first = std::move(queue.front());
  queue.pop_front();
  return first;
}
}  // namespace

MessageAnswer ScriptedDesktop::ShowMessage(StringView text, StringView title, int style) {
  Messages.push_back({String(text), String(title), style});
  if (OnMessage) OnMessage(Message(Messages.back()));
  return TakeFirst(Answers).value_or(DefaultAnswer(style));
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

void ScriptedDesktop::Show(forms::Form& form, platform::ShowStyle style) {
  Shown.push_back(&form);
  if (OnShow) OnShow(form);
  if (style == platform::ShowStyle::Modeless) return;
  if (OnModal) OnModal(form);
  if (form.Visible()) form.CloseByFrame();
  if (form.Visible()) form.Hide();
}

void ScriptedDesktop::Hidden(forms::Form& form, bool) { std::erase(Shown, &form); }

void ScriptedDesktop::SetForeground(forms::Form& form) {
  Journal.push_back("foreground " + vb::ToUtf8(form.Name()));
}

std::optional<platform::WindowPlacement> ScriptedDesktop::GetPlacement(forms::Form&) {
  return Placement;
}

void ScriptedDesktop::SetPlacement(forms::Form&, const platform::WindowPlacement& placement) {
  Placement = placement;
}

std::optional<platform::WindowPlacement> ScriptedDesktop::DesktopPlacement() {
  return ScreenPlacement;
}

void ScriptedDesktop::SetClipboardText(StringView text) {
  clipboardText_ = text;
  clipboardPicture_ = 0;
  Journal.push_back("clipboard " + vb::ToUtf8(text));
}

void ScriptedDesktop::SetClipboardPicture(int picture) {
  clipboardText_.clear();
  clipboardPicture_ = picture;
}

void ScriptedDesktop::ClearClipboard() {
  clipboardText_.clear();
  clipboardPicture_ = 0;
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

// The rest

String MemoryWindows::ClassName(platform::WindowHandle window) {
  const auto found = Classes.find(window);
  return found == Classes.end() ? String() : found->second;
}

String MemoryIdentity::NewGuid() {
  const std::string digits = std::to_string(++guids_);
  return vb::FromUtf8("{00000000-0000-0000-0000-" + std::string(12 - digits.size(), '0') + digits +
                      "}");
}

String MemoryApp::NativePath(StringView path) { return vb::Replace(path, u"\\", u"/"); }

}  // namespace tessel::memory
