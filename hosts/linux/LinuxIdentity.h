// Who works on this machine.
#pragma once

#include "platform/Identity.h"

namespace tessel::linux_host {

class LinuxIdentity : public platform::Identity {
 public:
  [[nodiscard]] String ComputerName() override;
  [[nodiscard]] String UserName() override;
  /// A random GUID (RFC 4122, version 4) in upper case with braces.
  [[nodiscard]] String NewGuid() override;
};

}  // namespace tessel::linux_host
