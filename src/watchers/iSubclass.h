// What listens to the messages of a window.
#pragma once

#include <cstdint>

#include "platform/Windows.h"

namespace tessel {

/// Called around a window's own procedure. A failure goes no further than the call.
class iSubclass {
 public:
  virtual ~iSubclass() = default;
  /// Behind the own procedure; `lReturn` is its answer, which may be changed.
  virtual void iSubclass_After(std::intptr_t& lReturn, platform::WindowHandle hWnd,
                               std::uint32_t uMsg, std::intptr_t wParam, std::intptr_t lParam) = 0;
  /// Ahead of it: with `bHandled` the own procedure is skipped and `lReturn` is the answer.
  virtual void iSubclass_Before(bool& bHandled, std::intptr_t& lReturn, platform::WindowHandle hWnd,
                                std::uint32_t uMsg, std::intptr_t wParam, std::intptr_t lParam) = 0;
};

}  // namespace tessel
