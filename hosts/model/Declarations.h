// Which names the lines of a module declare.
#pragma once

#include <vector>

#include "hosts/model/LineBuffer.h"

namespace tessel::model {

/// What a declaration is: the kinds of procedures by the host's numbers, and all others.
inline constexpr int VariableKind = -1;

/// A member's head, or a variable, constant, event or other name of the declarations.
struct Declaration {
  int Line = 0;  ///< first line of its statement
  String Name;
  int Kind = VariableKind;
};

/// The declarations in the statements that begin on lines [first, first + count), in order. Names
/// other than members count up to line `lastDeclaring`. A first line that goes on a statement is
/// no declaration's beginning.
[[nodiscard]] std::vector<Declaration> DeclarationsIn(const LineBuffer& lines, int first, int count,
                                                      int lastDeclaring);

/// The last physical line of the statement that begins on a line.
[[nodiscard]] int StatementEnd(const LineBuffer& lines, int line);
/// The first physical line of the statement that `line` belongs to.
[[nodiscard]] int StatementStart(const LineBuffer& lines, int line);

}  // namespace tessel::model
