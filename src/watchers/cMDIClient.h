// Watches the environment's client area, in which its code windows and designers come and go.
#pragma once

#include <memory>
#include <utility>

#include "foundation/Routine.h"
#include "host/VBE.h"
#include "watchers/cSubclass.h"
#include "watchers/clsEventCODE.h"

namespace tessel {

/// Keeps gVbaWindows in step with the windows that are there.
class cMDIClient : public iSubclass, public std::enable_shared_from_this<cMDIClient> {
 public:
  void SetEventCODE(std::shared_ptr<clsEventCODE> value) { eventCODE_ = std::move(value); }
  /// Takes up the windows that are open and hears of all that follow.
  void Start(const std::shared_ptr<host::VBE>& VBInstance);
  void UnSubClass();

  void iSubclass_After(std::intptr_t& lReturn, platform::WindowHandle hWnd, std::uint32_t uMsg,
                       std::intptr_t wParam, std::intptr_t lParam) override;
  void iSubclass_Before(bool&, std::intptr_t&, platform::WindowHandle, std::uint32_t, std::intptr_t,
                        std::intptr_t) override {}

 private:
  void Opened(const Statements& run, platform::WindowHandle child);
  void Closed(const Statements& run, platform::WindowHandle child);
  void Watch(const Statements& run, platform::WindowHandle child, StringView className);
  void renewProject();

  std::shared_ptr<clsEventCODE> eventCODE_;
  cSubclass subclass_;
};

}  // namespace tessel
