// The names that lines of code declare, and where.
#pragma once

#include <cstdint>
#include <vector>

#include "hosts/editing/Tokens.h"
#include "hosts/model/LineBuffer.h"

namespace tessel::editing {

enum class DeclaredKind : std::uint8_t {
  Procedure,
  External,  ///< a procedure of a library
  Event,
  Variable,
  Constant,
  Type,
  Field,  ///< of a type
  Enum,
  Value,  ///< of an enumeration
  Parameter,
  Local,
  Label,
  Control,    ///< on a designer; line 0
  Component,  ///< the module itself; line 0
};

/// A name where it is declared. Lines and columns count from 1.
struct Declared {
  String Name;  ///< without brackets and type character
  DeclaredKind Kind = DeclaredKind::Variable;
  int Line = 0, Column = 0;
  bool Public = false;  ///< seen by other modules
};

/// What the lines from `first` to `last`, all of which must exist, declare. The first of them
/// begins a statement. What a procedure declares is local.
[[nodiscard]] std::vector<Declared> ReadDeclarations(const model::LineBuffer& lines, int first,
                                                     int last);

}  // namespace tessel::editing
