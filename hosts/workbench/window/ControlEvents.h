// The events that a code window offers for an object.
#pragma once

#include <span>

#include "vb/Text.h"

namespace tessel::workbench {

struct ObjectEvent {
  StringView Name;
  StringView Parameters;
};

/// Events of a class ("VB.CommandButton", "VB.Form", "Class"); empty for an unknown one. The first
/// is the one that a double click opens.
[[nodiscard]] std::span<const ObjectEvent> EventsOf(StringView className);

}  // namespace tessel::workbench
