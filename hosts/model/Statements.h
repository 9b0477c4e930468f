// Statements of a module's lines, as far as members are known by them.
#pragma once

#include <functional>

#include "host/Types.h"
#include "vb/Text.h"

namespace tessel::model {

/// Whether a physical line goes on in the next one: a blank and an underscore at its end.
[[nodiscard]] bool IsContinued(StringView line);

/// What a logical line holds for the member index.
struct LineFacts {
  bool Declares = false;  ///< there is a statement: neither blank nor comment
  bool Head = false;      ///< a member begins
  bool End = false;       ///< a member ends, behind the head if there is one
  bool EndFirst = false;  ///< the end stands ahead of the head
  String Name;
  host::vbext_ProcKind Kind = host::vbext_pk_Proc;
};

/// Reads a logical line (continuations joined): statements separated by colons, strings, comments,
/// [names].
[[nodiscard]] LineFacts ReadLine(StringView line);

}  // namespace tessel::model
