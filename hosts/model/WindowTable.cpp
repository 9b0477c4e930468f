#include "hosts/model/WindowTable.h"

#include <algorithm>
#include <utility>

namespace tessel::model {

using platform::WindowHook;
using platform::WindowMessage;

namespace {

constexpr std::intptr_t HandleStep = 0x10;

bool IsOrEmpty(StringView wanted, StringView text) { return wanted.empty() || wanted == text; }

}  // namespace

WindowTable::Handle WindowTable::Create(StringView className, StringView caption, Handle parent) {
  const Handle handle = CreateUntold(className, caption, parent);
  TellCreated(handle);
  return handle;
}

WindowTable::Handle WindowTable::CreateUntold(StringView className, StringView caption,
                                              Handle parent) {
  const Handle handle = std::exchange(next_, next_ + HandleStep);
  windows_.push_back({handle, String(className), String(caption), false, parent});
  return handle;
}

void WindowTable::TellCreated(Handle window) {
  if (const WindowInfo* const info = InfoOf(window)) {
    TellParent(WindowInfo(*info), platform::WM_Create);
  }
}

void WindowTable::Destroy(Handle window) {
  const WindowInfo* const found = InfoOf(window);
  if (found == nullptr) return;
  const WindowInfo info = *found;
  TellParent(info, platform::WM_Destroy);
  while (const Handle child = Find(window, 0, {}, {})) Destroy(child);
  std::erase_if(windows_, [&](const WindowInfo& one) { return one.Handle == window; });
  hooks_.erase(window);
  if (focus_ == window) focus_ = 0;
}

/// The low word of the first value says what happened.
void WindowTable::TellParent(const WindowInfo& window, std::uint32_t event) {
  Post({{window.Parent, platform::WM_ParentNotify, static_cast<std::intptr_t>(event),
         window.Handle}});
}

const WindowInfo* WindowTable::InfoOf(Handle window) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const WindowInfo& one) { return one.Handle == window; });
  return found == windows_.end() ? nullptr : &*found;
}

WindowInfo* WindowTable::InfoOf(Handle window) {
  return const_cast<WindowInfo*>(std::as_const(*this).InfoOf(window));
}

void WindowTable::SetCaption(Handle window, StringView caption) {
  if (WindowInfo* const info = InfoOf(window)) info->Caption = caption;
}

void WindowTable::SetVisible(Handle window, bool visible) {
  if (WindowInfo* const info = InfoOf(window)) info->Visible = visible;
}

bool WindowTable::IsVisible(Handle window) const {
  const WindowInfo* const info = InfoOf(window);
  return info != nullptr && info->Visible;
}

std::vector<WindowInfo> WindowTable::All() const { return windows_; }

WindowTable::Handle WindowTable::Find(Handle parent, Handle behind, StringView className,
                                      StringView text) {
  bool passed = behind == 0;
  for (const WindowInfo& one : windows_) {
    if (one.Parent != parent) continue;
    if (passed && IsOrEmpty(className, one.Class) && IsOrEmpty(text, one.Caption)) {
      return one.Handle;
    }
    passed = passed || one.Handle == behind;
  }
  return 0;
}

String WindowTable::ClassName(Handle window) {
  const WindowInfo* const info = InfoOf(window);
  return info == nullptr ? String() : info->Class;
}

String WindowTable::Text(Handle window) {
  const WindowInfo* const info = InfoOf(window);
  return info == nullptr ? String() : info->Caption;
}

std::optional<platform::WindowRectangle> WindowTable::Rectangle(Handle window) {
  if (InfoOf(window) == nullptr || !PlaceOf) return std::nullopt;
  return PlaceOf(window);
}

String WindowTable::ProcessName(Handle window) {
  return InfoOf(window) == nullptr ? String() : String(u"VB6.EXE");
}

WindowTable::Handle WindowTable::Parent(Handle window) {
  const WindowInfo* const info = InfoOf(window);
  return info == nullptr ? 0 : info->Parent;
}

void WindowTable::SetFocus(Handle window) {
  if (InfoOf(window) == nullptr) return;
  focus_ = window;
  if (const auto wanted = FocusWanted) wanted(window);
}

bool WindowTable::Hook(Handle window, const std::shared_ptr<WindowHook>& hook) {
  if (InfoOf(window) == nullptr) return false;
  hooks_[window].push_back(hook);
  return true;
}

void WindowTable::Unhook(Handle window, const WindowHook& hook) {
  const auto found = hooks_.find(window);
  if (found == hooks_.end()) return;
  std::erase_if(found->second, [&](const WeakHook& one) {
    const auto held = one.lock();
    return !held || held.get() == &hook;
  });
}

void WindowTable::Post(std::vector<WindowMessage> messages) {
  auto send = [this, messages = std::move(messages)] {
    for (const WindowMessage& message : messages) SendWhenFree(message);
  };
  if (Deliver) {
    Deliver(std::move(send));
  } else {
    send();
  }
}

bool WindowTable::IsCalling(Handle window) const {
  const auto found = hooks_.find(window);
  if (found == hooks_.end()) return false;
  return std::any_of(found->second.begin(), found->second.end(), [&](const WeakHook& one) {
    const auto hook = one.lock();
    return hook && std::find(calling_.begin(), calling_.end(), hook.get()) != calling_.end();
  });
}

void WindowTable::SendWhenFree(const WindowMessage& message) {
  if (IsCalling(message.Window)) {
    waiting_.push_back(message);
  } else {
    Send(message);
  }
}

void WindowTable::SendWaiting() {
  for (;;) {
    const auto next = std::find_if(waiting_.begin(), waiting_.end(), [this](const auto& message) {
      return !IsCalling(message.Window);
    });
    if (next == waiting_.end()) return;
    const WindowMessage message = *next;
    waiting_.erase(next);
    Send(message);
  }
}

std::intptr_t WindowTable::Send(const WindowMessage& message) {
  const auto found = hooks_.find(message.Window);
  const std::intptr_t result = Pass(found == hooks_.end() ? Chain() : found->second, message);
  SendWaiting();
  return result;
}

std::intptr_t WindowTable::Pass(Chain rest, const WindowMessage& message) {
  while (!rest.empty()) {
    const auto hook = rest.back().lock();
    rest.pop_back();
    if (hook) return PassHook(*hook, std::move(rest), message);
  }
  return OwnProcedure(message);
}

std::intptr_t WindowTable::OwnProcedure(const WindowMessage& message) const {
  constexpr std::intptr_t LowWord = 0xFFFF;
  const bool pressed = message.Number == platform::WM_ParentNotify &&
                       (message.WParam & LowWord) == platform::WM_LButtonDown;
  if (const auto tell = ChildPressed; tell && pressed) tell(message.Window);
  return 0;
}

std::intptr_t WindowTable::PassHook(WindowHook& hook, Chain rest, const WindowMessage& message) {
  std::intptr_t result = 0;
  bool handled = false;
  const bool before = hook.Before.Passes(message.Number);
  const auto lost = [&] {
    if (hook.HasOwner()) return false;
    Unhook(message.Window, hook);
    return true;
  };
  if (before) {
    if (lost()) return 0;
    CallBack(hook, [&] { hook.OnBefore(handled, result, message); });
  }
  if (handled) return result;
  result = Pass(std::move(rest), message);
  if (hook.After.Passes(message.Number)) {
    if (lost()) return 0;
    CallBack(hook, [&] { hook.OnAfter(result, message); });
  }
  return result;
}

void WindowTable::CallBack(WindowHook& hook, const std::function<void()>& callback) {
  if (std::find(calling_.begin(), calling_.end(), &hook) != calling_.end()) return;
  struct Mark {
    std::vector<const WindowHook*>& Calling;
    const WindowHook* Hook;
    ~Mark() { std::erase(Calling, Hook); }
  };
  calling_.push_back(&hook);
  const Mark mark{calling_, &hook};
  std::optional<CallsOf> addIn;
  if (calls_) addIn.emplace(*calls_, CallsOf::AddIn);
  callback();
}

std::intptr_t WindowTable::CallPrevious(const WindowHook& hook, const WindowMessage& message) {
  const auto found = hooks_.find(message.Window);
  if (found == hooks_.end()) return 0;
  const Chain& chain = found->second;
  const auto at = std::find_if(chain.begin(), chain.end(),
                               [&](const WeakHook& one) { return one.lock().get() == &hook; });
  return at == chain.end() ? 0 : Pass(Chain(chain.begin(), at), message);
}

}  // namespace tessel::model
