// Windows of the environment, as far as their classes are asked for.
#pragma once

#include <cstdint>

#include "vb/Text.h"

namespace tessel::platform {

using WindowHandle = std::intptr_t;

class Windows {
 public:
  virtual ~Windows() = default;
  /// Class name of a window, e.g. "VbaWindow"; empty for a handle that is no window.
  [[nodiscard]] virtual String ClassName(WindowHandle window) = 0;
};

}  // namespace tessel::platform
