// The words of the language as the environment writes them.
#pragma once

#include <span>

#include "vb/Text.h"

namespace tessel::workbench {

/// Keywords and the language's own types, in their usual case, sorted without regard to it.
[[nodiscard]] std::span<const StringView> BasicWords();

/// A word as the environment writes it; empty for one that is no keyword.
[[nodiscard]] StringView CanonicalWord(StringView word);

}  // namespace tessel::workbench
