// Lets one object hear some of the messages of one window.
#pragma once

#include <cstdint>
#include <memory>

#include "watchers/iSubclass.h"

namespace tessel {

/// Stands in front of a window's own procedure with two tables of messages, those that the owner
/// hears before it and those that it hears after it. Takes itself off when the owner is gone. Knows
/// no failures: on a handle that is no window, messages never arrive.
class cSubclass {
 public:
  /// As a message: all of them.
  static constexpr std::uint32_t ALL_MESSAGES = 0xFFFFFFFF;
  /// Tables.
  static constexpr int Before = 1, After = 2;

  cSubclass();
  ~cSubclass();
  cSubclass(const cSubclass&) = delete;
  cSubclass& operator=(const cSubclass&) = delete;

  /// Lists a message, in a slot that is free if there is one. One that is met on the way to such a
  /// slot stays where it is.
  void AddMsg(std::uint32_t uMsg, int When);
  /// What the window answers without this, for use inside a callback; 0 without a window.
  std::intptr_t CallOrigWndProc(platform::WindowHandle hWnd, std::uint32_t uMsg,
                                std::intptr_t wParam, std::intptr_t lParam);
  /// Frees the slot of a message; ALL_MESSAGES clears the table.
  void DelMsg(std::uint32_t uMsg, int When);
  /// A window that is held is let go, its tables stay.
  void Subclass(platform::WindowHandle hWnd, std::weak_ptr<iSubclass> Owner);
  /// Lets the window go and clears the tables. No effect without a window.
  void UnSubClass();

 private:
  class Block;
  [[nodiscard]] platform::MessageTable& TableOf(int When) const;
  void LetGo();

  std::shared_ptr<Block> block_;
  platform::WindowHandle window_ = 0;
};

}  // namespace tessel
