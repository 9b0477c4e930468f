#include "hosts/memory/MemoryWindows.h"

namespace tessel::memory {

String MemoryWindows::ClassName(platform::WindowHandle window) {
  const auto found = Classes.find(window);
  return found == Classes.end() ? String() : found->second;
}

}  // namespace tessel::memory
