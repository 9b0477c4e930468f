// Watches one code window or designer.
#pragma once

#include <memory>

#include "watchers/cSubclass.h"
#include "watchers/clsEventCODE.h"

namespace tessel {

/// Hears keys, clicks and accelerators of its window and starts the notices that they bring.
class cVbaWindow : public iSubclass, public std::enable_shared_from_this<cVbaWindow> {
 public:
  [[nodiscard]] const String& ClassHwnd() const { return classHwnd_; }
  void SetClassHwnd(StringView value) { classHwnd_ = value; }
  void SetEventCODE(std::shared_ptr<clsEventCODE> value) { eventCODE_ = std::move(value); }
  [[nodiscard]] platform::WindowHandle hwndWinCode() const { return hwndWinCode_; }
  void SethwndWinCode(platform::WindowHandle value) { hwndWinCode_ = value; }
  /// Watches a window of a class from now on; a window that came is a notice by itself.
  void Start(platform::WindowHandle hWnd, StringView ClassName);
  /// Lets the window go, which is a notice as well.
  void UnSubClass();

  void iSubclass_After(std::intptr_t& lReturn, platform::WindowHandle hWnd, std::uint32_t uMsg,
                       std::intptr_t wParam, std::intptr_t lParam) override;
  void iSubclass_Before(bool&, std::intptr_t&, platform::WindowHandle, std::uint32_t, std::intptr_t,
                        std::intptr_t) override {}

 private:
  String classHwnd_;
  std::shared_ptr<clsEventCODE> eventCODE_;
  platform::WindowHandle hwndWinCode_ = 0;
  cSubclass subclass_;
};

}  // namespace tessel
