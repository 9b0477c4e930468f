// Texts of the Explorer that no routine shows.
#pragma once

#include "vb/Text.h"

namespace tessel::explorer {

/// What a removal of its own would ask, with the component's name between the signs. Removing is
/// left to the environment's menus, so the question only stands ready.
inline constexpr StringView RemovalQuestion = u"Please confirm the '<>' component removal.";

}  // namespace tessel::explorer
