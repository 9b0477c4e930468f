// Puts a line into the spacing and the case that the environment gives it.
#pragma once

#include <functional>
#include <vector>

#include "hosts/editing/Tokens.h"

namespace tessel::editing {

/// A name as it is shown: `name` without its type character, `member` for one behind a dot, `at`
/// its index in the line. Empty for a name that keeps its case.
using NameCase = std::function<String(StringView name, bool member, std::size_t at)>;

/// The line with blanks around operators and behind commas, one blank between words, keywords in
/// their usual case and names in the case that `names` gives. `ahead` are the lines of the same
/// statement or comment ahead of it, the first one first. What the line means never changes: the
/// margin, texts, dates, comments and the room ahead of them, bracketed names, names of fields
/// behind ! and whatever could be read in two ways stay as they are, and so does the whole line
/// when it isn't understood to its end.
[[nodiscard]] String TidyLine(StringView line, const std::vector<StringView>& ahead,
                              const NameCase& names);

}  // namespace tessel::editing
