// The platform of the tests: everything in memory, and the user is a script.
#pragma once

#include <optional>

#include "hosts/memory/UnattendedPlatform.h"
#include "support/ScriptedDesktop.h"
#include "vb/Failure.h"

namespace tessel::memory {

/// A registry whose writes can be made to fail.
class FailingRegistry : public MemoryRegistry {
 public:
  /// When set, every write fails with this.
  std::optional<vb::Failure> FailWrites;
  void SetValue(platform::RootKey root, StringView key, StringView name,
                const platform::RegistryValue& value) override {
    if (FailWrites) throw vb::Failure(*FailWrites);
    MemoryRegistry::SetValue(root, key, name, value);
  }
};

/// The user is a script, the machine has a name.
class MemoryPlatform : public PlatformWith<ScriptedDesktop, FailingRegistry> {
 public:
  MemoryPlatform() {
    IdentityService.Computer = u"WORKSHOP";
    IdentityService.User = u"builder";
  }
};

}  // namespace tessel::memory
