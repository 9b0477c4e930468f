// Bytes of the single-byte Windows code pages as text, and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vb/Text.h"

namespace tessel::vb {

/// Whether there is a table for that code page (1250 to 1258, 874).
[[nodiscard]] bool IsSingleByteCodePage(int codePage);
/// The character of a byte; U+FFFD for one without a character, or a code page without a table.
[[nodiscard]] char16_t FromCodePage(unsigned char byte, int codePage);

// One character for each byte, and each byte back: any file can stand in a text. A byte that the
// page leaves undefined is the character of its number. A code page without a table counts as 1252.

[[nodiscard]] char16_t CharacterOfByte(unsigned char byte, int codePage);
/// Nothing for a character that no byte of the page stands for.
[[nodiscard]] std::optional<unsigned char> ByteOfCharacter(char16_t character, int codePage);
/// A text of as many characters as there are bytes.
[[nodiscard]] String TextOfBytes(std::string_view bytes, int codePage);
/// The bytes of such a text; a character that no byte stands for becomes "?".
[[nodiscard]] std::string BytesOfText(StringView text, int codePage);
/// The bytes of such a text; nothing for a character that no byte stands for, and `at` is its index
/// then.
[[nodiscard]] std::optional<std::string> ExactBytesOfText(StringView text, int codePage,
                                                          std::size_t& at);

}  // namespace tessel::vb
