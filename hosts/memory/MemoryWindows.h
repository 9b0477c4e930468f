// Windows that are known by what somebody says of them.
#pragma once

#include <map>

#include "platform/Windows.h"

namespace tessel::memory {

class MemoryWindows : public platform::Windows {
 public:
  std::map<platform::WindowHandle, String> Classes;
  [[nodiscard]] String ClassName(platform::WindowHandle window) override;
};

}  // namespace tessel::memory
