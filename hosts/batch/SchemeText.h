// An error-handler scheme as a text file, so that a team can keep it in version control.
#pragma once

#include <string>
#include <string_view>

#include "errorhandlers/CSQLErrorHandler.h"

namespace tessel::batch {

/// The scheme in UTF-8, lines ended by LF: head lines "Key: value", then "Header:" and "Footer:",
/// each followed by its lines of plain text, four blanks in. In values "\" stands for itself as
/// "\\", CR as "\r" and LF as "\n". docs/batch.md has an example.
[[nodiscard]] std::string WriteScheme(const ErrorHandlerScheme& scheme);

/// Reads what WriteScheme wrote; also with CR LF line ends, a byte order mark, empty lines and
/// lines with "#" ahead of the first block. Keys but the name may be absent. Header and footer
/// become rich text with the colours that the scheme editor gives them. Fails with a vb::Failure
/// that names file and line.
[[nodiscard]] ErrorHandlerScheme ReadScheme(std::string_view bytes, const std::string& file);

}  // namespace tessel::batch
