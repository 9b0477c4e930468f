// Where the window of a form stands. Files keep the place of its body; people know the one of the
// window, which has a frame, a title and maybe menus around it.
#pragma once

#include <optional>

#include "hosts/workbench/designer/DesignerEditor.h"

namespace tessel::workbench {

/// Whether a property of an outermost block is the window's Left, Top, Width or Height, which its
/// file keeps as another one.
[[nodiscard]] bool IsWindowPlace(const model::DesignerNode& node, StringView property);

/// The property that the file keeps in the place of a window's: "ClientLeft" of "Left"; empty for
/// any other property. The other way: "Left" of "ClientLeft".
[[nodiscard]] StringView BodyProperty(StringView windowProperty);
[[nodiscard]] StringView WindowProperty(StringView bodyProperty);

/// Twips that a window's property has; nothing when the file doesn't say the body's.
[[nodiscard]] std::optional<double> WindowPlace(const model::DesignerNode& root,
                                                StringView property);

/// The edits that give a window's property a number of twips, with the scale that depends on it.
[[nodiscard]] PropertyEdits WindowPlaceEdits(model::DesignerNode& root, StringView property,
                                             double twips);

}  // namespace tessel::workbench
