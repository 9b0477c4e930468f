// Puts a declaration into the spacing and the case that the environment gives it.
#pragma once

#include "vb/Text.h"

namespace tessel::workbench {

/// Whether a line declares something: a member, a variable, a constant, a type, an enumeration, an
/// event, an external procedure or an option.
[[nodiscard]] bool IsDeclaration(StringView line);

/// The line with one blank between its words, none ahead of a comma or inside parentheses, blanks
/// around operators, and keywords in their usual case. The margin, strings, dates, a comment with
/// the room ahead of it, bracketed names, and the line itself when it is no declaration or holds a
/// string that never ends, stay as they are.
[[nodiscard]] String TidyDeclaration(StringView line);

}  // namespace tessel::workbench
