// What is known of properties ahead of any file.
#pragma once

#include <span>
#include <vector>

#include "vb/Text.h"

namespace tessel::workbench {

/// What a property's value is.
enum class ValueKind {
  Text,
  Number,
  Whole,  ///< a whole number from 0 on
  Flag,
  Color,
  Choice,
  Plain,   ///< as the file writes it
  Binary,  ///< stands in the companion file
  Object,  ///< a block of its own, as a font
};

/// The choices of a numbered property; the place in the list is the number.
using Choices = std::span<const StringView>;

/// Kind of a property by class and name; Plain for one that isn't known.
[[nodiscard]] ValueKind KnownKind(StringView className, StringView property);

/// Choices of a property; empty when it has none.
[[nodiscard]] Choices ChoicesOf(StringView className, StringView property);

/// Whether a name stands in the tables at all.
[[nodiscard]] bool IsKnown(StringView className, StringView property);

/// The properties that a control or form of a class can be given though its file doesn't have them.
[[nodiscard]] std::vector<StringView> CommonProperties(StringView className);

/// The value that a property has when the file doesn't say any, as it is shown; empty when that
/// depends on more than the class.
[[nodiscard]] StringView DefaultValue(StringView className, StringView property);

}  // namespace tessel::workbench
