// The snippets of well-known editors as plain text.
#pragma once

#include "vb/Text.h"

namespace tessel {

/// The body of an editor's snippet with words in the place of its tab stops and variables: the
/// default or first choice of a stop, which stands wherever the same number occurs; "Value1" for a
/// stop without one; nothing for "$0". Any text is taken: what isn't well formed stays.
[[nodiscard]] String WithoutTabStops(StringView body);

}  // namespace tessel
