// Bytes of the single-byte Windows code pages as text.
#pragma once

namespace tessel::vb {

/// Whether there is a table for that code page (1250 to 1258, 874).
[[nodiscard]] bool IsSingleByteCodePage(int codePage);
/// The character of a byte; U+FFFD for one without a character, or a code page without a table.
[[nodiscard]] char16_t FromCodePage(unsigned char byte, int codePage);

}  // namespace tessel::vb
