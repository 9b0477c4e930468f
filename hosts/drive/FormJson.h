// A form as replies tell it.
#pragma once

#include "forms/Surface.h"
#include "hosts/drive/Channel.h"

namespace tessel::drive {

/// Name, caption, visibility and every control of a form or document; groups of its layout are told
/// as labels.
[[nodiscard]] Json SurfaceJson(const forms::Surface& surface);

}  // namespace tessel::drive
