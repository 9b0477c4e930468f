// Failures of the engine in words for the user of a database.
#pragma once

#include "vb/Text.h"

namespace tessel::store {

inline constexpr StringView Damaged = u"the file is damaged; take it from a copy",
                            NoRoom = u"there is no room left on the disk",
                            ReadOnly = u"the file can't be written, it is read-only",
                            CannotOpen = u"the file or its folder can't be opened";

/// What a failure that the engine describes so means, without the statement; empty for one that
/// isn't known.
[[nodiscard]] String PlainCause(StringView description);

}  // namespace tessel::store
