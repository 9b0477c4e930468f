// A member of a module as the channel and the command tell of it.
#pragma once

#include <nlohmann/json.hpp>

#include "scanning/mFunctions.h"

namespace tessel::drive {

/// The name with the token of its kind behind it, as the dialogs show it.
[[nodiscard]] String NameAndType(const Member& member);

/// name, kind, name-and-type, start-line, body-line and count-lines.
[[nodiscard]] nlohmann::ordered_json MemberJson(const Member& member);

}  // namespace tessel::drive
