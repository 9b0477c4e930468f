// A form as replies tell it.
#pragma once

#include "forms/Form.h"
#include "hosts/drive/Channel.h"

namespace tessel::drive {

/// Name, caption, visibility and every control of a form.
[[nodiscard]] Json FormJson(const forms::Form& form);

}  // namespace tessel::drive
