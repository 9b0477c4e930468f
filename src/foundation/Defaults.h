// What the Settings dialog keeps: the defaults that builders and other tools open with.
#pragma once

#include "vb/Text.h"

namespace tessel {

/// The section of the defaults in the settings.
inline constexpr StringView DefaultsSection = u"Settings\\VBCode\\frmSettings";

/// A default as it was stored; `standard` when it wasn't, and without settings.
[[nodiscard]] String DefaultText(StringView name, StringView standard);
/// The same for a check box or an option: on when "1" or "True" is stored.
[[nodiscard]] bool DefaultFlag(StringView name, bool standard);

}  // namespace tessel
