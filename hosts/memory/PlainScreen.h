// A screen that nobody sees.
#pragma once

#include <map>
#include <utility>

#include "platform/Screen.h"

namespace tessel::memory {

/// Knows where each form would stand: what `SetPlacement` said, else a place in a corner. How a
/// form is shown is left to others.
class PlainScreen : public platform::Screen {
 public:
  void Gone(forms::Form& form) override { places_.erase(&form); }
  void SetForeground(forms::Form&) override {}
  [[nodiscard]] std::optional<platform::WindowPlacement> GetPlacement(forms::Form& form) override;
  /// A form never stands minimized: nothing would show that it waits.
  void SetPlacement(forms::Form& form, const platform::WindowPlacement& placement) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> DesktopPlacement() override;
  platform::Pointer SetPointer(platform::Pointer shape) override {
    return std::exchange(pointer_, shape);
  }
  [[nodiscard]] platform::Pointer PresentPointer() const { return pointer_; }

 private:
  std::map<const forms::Form*, platform::WindowPlacement> places_;
  platform::Pointer pointer_ = platform::Pointer::Default;
};

}  // namespace tessel::memory
