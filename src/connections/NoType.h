// The entry of type lists that stands for "no type".
#pragma once

#include "vb/Text.h"

namespace tessel {

inline constexpr StringView NoType = u"(None)";

}  // namespace tessel
