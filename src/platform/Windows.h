// Windows of the environment: what they are, and what is sent to them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "vb/Text.h"

namespace tessel::platform {

/// 0 is no window.
using WindowHandle = std::intptr_t;

struct WindowRectangle {
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
  bool operator==(const WindowRectangle&) const = default;
};

/// What a window procedure gets.
struct WindowMessage {
  WindowHandle Window = 0;
  std::uint32_t Number = 0;
  std::intptr_t WParam = 0, LParam = 0;
};

/// Messages that the logic of the tools knows, with the system's numbers.
enum : std::uint32_t {
  WM_Create = 1,
  WM_Destroy = 2,
  WM_KeyUp = 257,
  WM_Command = 273,
  WM_LButtonDown = 513,
  WM_LButtonUp = 514,
  WM_ParentNotify = 528,
};

/// The messages that pass a hook: none, some or all.
struct MessageTable {
  bool All = false;
  std::vector<std::uint32_t> Numbers{};

  [[nodiscard]] bool Passes(std::uint32_t number) const {
    return All || std::find(Numbers.begin(), Numbers.end(), number) != Numbers.end();
  }
};

/// Stands in front of a window's own procedure. Its callbacks are not called for messages that come
/// while one of them runs.
class WindowHook {
 public:
  virtual ~WindowHook() = default;
  MessageTable Before, After;

  /// Whether there is somebody to call. False takes the hook off; the message ends with 0.
  [[nodiscard]] virtual bool HasOwner() const = 0;
  /// Ahead of the own procedure; `handled` keeps it from being called, and `result` is the answer.
  virtual void OnBefore(bool& handled, std::intptr_t& result, const WindowMessage& message) = 0;
  /// Behind the own procedure, whose answer may be changed.
  virtual void OnAfter(std::intptr_t& result, const WindowMessage& message) = 0;
};

/// Handles that are no window (any more) have no class, no text and no place, and take no message.
class Windows {
 public:
  virtual ~Windows() = default;
  /// The first child of `parent` (0: window of the desktop) behind the child `behind` (0: from the
  /// first) that has the class and the text; empty ones stand for any. 0 for none.
  [[nodiscard]] virtual WindowHandle Find(WindowHandle parent, WindowHandle behind,
                                          StringView className, StringView text) = 0;
  /// Class name of a window, e.g. "VbaWindow".
  [[nodiscard]] virtual String ClassName(WindowHandle window) = 0;
  [[nodiscard]] virtual String Text(WindowHandle window) = 0;
  /// On the screen, in pixels; nothing for a window that has no place there.
  [[nodiscard]] virtual std::optional<WindowRectangle> Rectangle(WindowHandle window) = 0;
  [[nodiscard]] virtual WindowHandle Parent(WindowHandle window) = 0;
  /// File name of the program whose window it is, e.g. "VB6.EXE".
  [[nodiscard]] virtual String ProcessName(WindowHandle window) = 0;
  [[nodiscard]] virtual WindowHandle Focus() = 0;
  virtual void SetFocus(WindowHandle window) = 0;

  /// Puts a hook in front of what the window has, the newest is called first. False when there is
  /// no such window. The hook lives as long as its owner wants: one that is gone is passed over.
  virtual bool Hook(WindowHandle window, const std::shared_ptr<WindowHook>& hook) = 0;
  /// No effect when the hook isn't there.
  virtual void Unhook(WindowHandle window, const WindowHook& hook) = 0;
  /// Calls what the window had ahead of the hook, for use inside its callbacks.
  virtual std::intptr_t CallPrevious(const WindowHook& hook, const WindowMessage& message) = 0;
};

}  // namespace tessel::platform
