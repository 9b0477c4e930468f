// Keys that reach the code pane in front.
#pragma once

#include "hosts/model/Environment.h"

namespace tessel::drive {

/// Lets the code pane in front have keys in the notation of SendKeys: characters, "{ENTER}" and
/// "{TAB}" are typed at the caret, "{BACKSPACE}" takes back, "{RIGHT}" and "{LEFT}" move it; any
/// other key, as a character of control, is heard and changes nothing. Nothing happens without a
/// pane.
void TypeInPane(model::Environment& environment, StringView keys);

}  // namespace tessel::drive
