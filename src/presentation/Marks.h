// Marks that stand for cut-out texts, such as "k12k" for the comment of index 12.
#pragma once

#include <vector>

#include "vb/Text.h"

namespace tessel::mCodeConverter {

/// Puts the texts back: gives what replacing sign, i, sign by `texts[i]` for i = 0, 1, 2 ... one
/// after the other gives, in one pass. So a mark inside an inserted text is filled when its index
/// is higher than that of the text, and of marks that share a sign the one of the lowest index
/// counts.
[[nodiscard]] String FillMarks(StringView text, char16_t sign, const std::vector<String>& texts);

}  // namespace tessel::mCodeConverter
