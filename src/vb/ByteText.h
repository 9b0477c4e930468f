// Text whose bytes come back, whatever they are.
#pragma once

#include <string>
#include <string_view>

#include "vb/Text.h"

namespace tessel::vb {

/// A byte that is part of no UTF-8 becomes this lone surrogate and the byte added.
inline constexpr char16_t ByteEscape = 0xDC00;
/// Whether a unit outside a pair stands for such a byte.
[[nodiscard]] constexpr bool IsByteEscape(char16_t unit) {
  return unit >= ByteEscape + 0x80 && unit <= ByteEscape + 0xFF;
}

/// Length of the valid UTF-8 sequence at the head of `bytes` (not empty), 0 for none; `point` is
/// its character.
[[nodiscard]] std::size_t ReadUtf8(std::string_view bytes, char32_t& point);
/// Bytes that should be UTF-8, such as the name of a file, as text.
[[nodiscard]] String FromBytes(std::string_view bytes);
/// The bytes that `FromBytes` had; UTF-8 for any other text.
[[nodiscard]] std::string ToBytes(StringView text);

}  // namespace tessel::vb
