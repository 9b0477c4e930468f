// Where the batch command has its format rules from.
#pragma once

#include <filesystem>
#include <vector>

#include "formatter/CSQLFormating.h"

namespace tessel::batch {

/// The rules of the shared database below a program's directory, or the delivered ones for an empty
/// path. Fails naming the file.
[[nodiscard]] std::vector<FormatRule> LoadRules(const std::filesystem::path& data);

}  // namespace tessel::batch
