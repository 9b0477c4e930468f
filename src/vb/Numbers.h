// Numbers in texts, read as the language reads them.
#pragma once

#include <cstdint>

#include "vb/Text.h"

namespace tessel::vb {

/// True when the whole text can be converted to a number: blanks around it, a sign ahead or behind,
/// thousands separators, a currency sign, exponents with E or D, &H and &O forms, one pair of
/// brackets. Empty text is not numeric. The table of cases stands in the tests.
[[nodiscard]] bool IsNumeric(StringView text);

/// The number at the head of the text, blanks, tabs and line feeds skipped wherever they stand;
/// 0 when there is none. Knows &H and &O, no thousands separators.
[[nodiscard]] double Val(StringView text);

/// The whole text as a 32-bit number, rounded half to even. Fails with 13 (not numeric) or 6.
[[nodiscard]] std::int32_t CLng(StringView text);

/// The number rounded half to even to 32 bits; failure 6 when it does not fit.
[[nodiscard]] std::int32_t CLng(double number);

/// Shortest decimal text of a number with a point, no blank ahead ("0.5" as ".5", "1E+20").
[[nodiscard]] String NumberText(double number);

}  // namespace tessel::vb
