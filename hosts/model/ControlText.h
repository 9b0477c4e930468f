// The property in which controls show a text of their own.
#pragma once

#include "vb/Text.h"

namespace tessel::model {

/// "Caption" or "Text" for a class, with or without its library, whose new controls show their name
/// there; empty for every other.
[[nodiscard]] StringView TextPropertyOf(StringView className);

}  // namespace tessel::model
