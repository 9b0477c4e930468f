// Who works on which machine.
#pragma once

#include "vb/Text.h"

namespace tessel::platform {

class Identity {
 public:
  virtual ~Identity() = default;
  [[nodiscard]] virtual String ComputerName() = 0;
  [[nodiscard]] virtual String UserName() = 0;
  /// A new GUID in its text form with braces.
  [[nodiscard]] virtual String NewGuid() = 0;
};

}  // namespace tessel::platform
