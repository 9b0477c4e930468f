// Keys that reach the code pane in front.
#pragma once

#include "hosts/model/Environment.h"

namespace tessel::drive {

/// Lets the code pane in front have keys in the notation of SendKeys: characters are typed at the
/// caret, "{RIGHT}" and "{LEFT}" move it, any other key is heard and changes nothing. Nothing
/// happens without a pane.
void TypeInPane(model::Environment& environment, StringView keys);

}  // namespace tessel::drive
