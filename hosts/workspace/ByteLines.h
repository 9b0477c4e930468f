// Lines of files in bytes, whatever code page they are in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::workspace {

/// With ASCII letters in lower case.
[[nodiscard]] std::string Lower(std::string_view text);
/// Without blanks, tabs and line ends at both ends.
[[nodiscard]] std::string_view Trimmed(std::string_view line);
/// Whether a line begins with a word that is given in lower case.
[[nodiscard]] bool StartsWith(std::string_view line, std::string_view word);
/// End of the line that begins at `at`, behind its CR LF, CR or LF.
[[nodiscard]] std::size_t NextLine(std::string_view bytes, std::size_t at);
/// Number (from 1) of the line that holds the byte `at`.
[[nodiscard]] int LineNumber(std::string_view bytes, std::size_t at);
/// All lines with their ends.
[[nodiscard]] std::vector<std::string> LinesOf(std::string_view bytes);
/// The line end of a line, empty when it has none.
[[nodiscard]] std::string_view LineEndOf(std::string_view line);
/// Length without the NUL bytes that pad a file behind its text.
[[nodiscard]] std::size_t LengthWithoutPadding(std::string_view bytes);

}  // namespace tessel::workspace
