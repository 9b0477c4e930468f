// One cell of a table.
#pragma once

#include <cstdint>
#include <variant>

#include "vb/Text.h"

namespace tessel::store {

struct Null {
  bool operator==(const Null&) const = default;
};

/// Null, truth value, whole number, number or text. A column declared as a truth value reads as
/// bool.
using Value = std::variant<Null, bool, std::int64_t, double, String>;

/// The value as text: "" for Null, "True"/"False" for a truth value.
[[nodiscard]] String ToText(Value value);
/// The value as a 32-bit number; Null and empty text are 0, True is -1. Fails with 13 or 6.
[[nodiscard]] std::int32_t ToLong(const Value& value);
/// Null is false, a number is true unless 0, text by "True"/"False" or its number. Fails with 13.
[[nodiscard]] bool ToBoolean(const Value& value);
[[nodiscard]] bool IsNull(const Value& value);

}  // namespace tessel::store
