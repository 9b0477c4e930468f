// Bytes of files as text, and back without loss.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vb/Text.h"

namespace tessel::workspace {

inline constexpr int Utf8CodePage = 65001;

/// Whether files of that code page can be read: 65001, 1250 to 1258, 874, 932, 936, 949, 950.
[[nodiscard]] bool IsKnownCodePage(int codePage);

/// Whether there is no byte above 127, so that every code page reads the same.
[[nodiscard]] bool IsAscii(std::string_view bytes);

/// Decodes. A byte that stands for no character, or for one that would be written otherwise, is
/// kept as a lone surrogate (U+DC00 and the byte), so that `Encode` gives every input back.
[[nodiscard]] String Decode(std::string_view bytes, int codePage);

/// Encodes; nothing when a character isn't in the code page, and `at` is its index then.
[[nodiscard]] std::optional<std::string> Encode(StringView text, int codePage, std::size_t& at);

/// The code page that the files of one project most likely have: 65001 when all of them are valid
/// UTF-8 with characters beyond ASCII, 932, 949, 936 or 950 when they read as Japanese, Korean or
/// Chinese, 1251 when their high bytes stand in words, else 1252.
[[nodiscard]] int GuessCodePage(const std::vector<std::string_view>& files);

}  // namespace tessel::workspace
