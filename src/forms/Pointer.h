// The shape of the mouse pointer for the length of a task.
#pragma once

#include "platform/Platform.h"

namespace tessel::forms {

/// Shows a pointer over the whole program as long as it lives.
class PointerShape {
 public:
  explicit PointerShape(platform::Pointer shape)
      : before_(platform::Current().Screen().SetPointer(shape)) {}
  ~PointerShape() {
    if (platform::IsInstalled()) platform::Current().Screen().SetPointer(before_);
  }
  PointerShape(const PointerShape&) = delete;
  PointerShape& operator=(const PointerShape&) = delete;

 private:
  platform::Pointer before_;
};

}  // namespace tessel::forms
