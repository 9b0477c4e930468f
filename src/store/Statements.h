// The system's statements in the words of the engine.
#pragma once

#include <string>

#include "vb/Text.h"

namespace tessel::store {

/// Translates what the engine reads otherwise than the statements mean it: "SELECT TOP n" (also
/// PERCENT-free DISTINCT forms), the constants Yes, No, True, False, On, Off outside names,
/// "DELETE Table.Column FROM Table" and "DELETE * FROM", "UPDATE t SET t.c =", text in double
/// quotes, names in square brackets, `&` between texts. The result is UTF-8. The table of cases
/// stands in the tests.
[[nodiscard]] std::string TranslateStatement(StringView statement);

}  // namespace tessel::store
