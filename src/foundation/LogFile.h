// The two log files.
#pragma once

#include <filesystem>

#include "vb/Text.h"

namespace tessel {

/// Where a log of that name lies: beside the program, unless the name is a full path.
[[nodiscard]] std::filesystem::path LogPath(StringView fileName);
/// Opens the log for appending, writes the text and a line end, closes it. Fails with 75 naming the
/// file.
void AppendToLog(StringView fileName, StringView text);

}  // namespace tessel
