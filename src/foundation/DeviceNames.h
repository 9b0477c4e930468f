// Names that Windows keeps for its devices.
#pragma once

#include "vb/Text.h"

namespace tessel {

/// Whether no file of Windows can have the name, whatever its extension; in any case.
[[nodiscard]] bool IsDeviceName(StringView name);

}  // namespace tessel
