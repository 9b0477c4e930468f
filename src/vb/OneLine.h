// Texts that have to stay on one line.
#pragma once

#include "vb/Text.h"

namespace tessel::vb {

/// The text without line ends: each becomes a blank, and so do tabs and whatever else controls a
/// line.
[[nodiscard]] String InOneLine(StringView text);

}  // namespace tessel::vb
