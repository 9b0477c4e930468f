// Property values as people read and type them, and as files have them.
#pragma once

#include "hosts/model/DesignerTree.h"
#include "hosts/workbench/designer/PropertyTable.h"

namespace tessel::workbench {

/// Kind of a value that stands in a file: by name, else by its looks.
[[nodiscard]] ValueKind KindOf(const model::DesignerNode& node, StringView property,
                               StringView raw);

/// A raw value as it is shown: "True", "2 - Dropdown List", "&H00FF0000&", texts without quotes.
[[nodiscard]] String ShownValue(ValueKind kind, Choices choices, StringView raw);

/// What the file is to have for a value that was typed. `before` is the raw value that stands, or
/// empty. Fails with 380 when the text is no value of that kind.
[[nodiscard]] String RawFromShown(ValueKind kind, Choices choices, StringView shown,
                                  StringView before);

/// The choices as they are shown, "0 - None" ...; for a flag True and False.
[[nodiscard]] std::vector<String> ShownChoices(ValueKind kind, Choices choices);

}  // namespace tessel::workbench
