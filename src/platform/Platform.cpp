#include "platform/Platform.h"

#include <utility>

#include "vb/Failure.h"

namespace tessel::platform {
namespace {
Platform* installed = nullptr;
}

Platform& Current() {
  if (installed == nullptr) throw vb::RuntimeFailure(vb::ObjectNotSet);
  return *installed;
}

bool IsInstalled() { return installed != nullptr; }

Platform* Install(Platform* platform) { return std::exchange(installed, platform); }

}  // namespace tessel::platform
