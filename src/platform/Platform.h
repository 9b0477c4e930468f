// The bundle of services that a host hands to the add-in.
#pragma once

#include "platform/App.h"
#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/Files.h"
#include "platform/Identity.h"
#include "platform/Registry.h"
#include "platform/Windows.h"

namespace tessel::platform {

/// All services of one host, which owns them and keeps them alive longer than the add-in.
class Platform {
 public:
  virtual ~Platform() = default;
  [[nodiscard]] virtual platform::Registry& Registry() = 0;
  [[nodiscard]] virtual platform::Desktop& Desktop() = 0;
  [[nodiscard]] virtual platform::Clock& Clock() = 0;
  [[nodiscard]] virtual platform::Windows& Windows() = 0;
  [[nodiscard]] virtual platform::Identity& Identity() = 0;
  [[nodiscard]] virtual platform::App& App() = 0;
  [[nodiscard]] virtual platform::Files& Files() = 0;
};

/// The platform in force. The language's run-time services are process-wide, and so is this: the
/// host installs it before anything else and takes it away last. Fails with 91 when none is set.
[[nodiscard]] Platform& Current();
[[nodiscard]] bool IsInstalled();
/// Installs a platform, or none; returns the one before.
Platform* Install(Platform* platform);

/// Installs a platform for a scope.
class ScopedPlatform {
 public:
  explicit ScopedPlatform(Platform& platform) : before_(Install(&platform)) {}
  ~ScopedPlatform() { Install(before_); }
  ScopedPlatform(const ScopedPlatform&) = delete;
  ScopedPlatform& operator=(const ScopedPlatform&) = delete;

 private:
  Platform* before_;
};

}  // namespace tessel::platform
