// Code of a module that has no end, and would take in what is put behind it.
#pragma once

#include <optional>
#include <vector>

#include "hosts/editing/Tokens.h"
#include "hosts/model/LineBuffer.h"

namespace tessel::batch {

/// Something that text would become a part of.
struct OpenCode {
  int Line;    ///< where it begins, from 1
  String Why;  ///< what it is and what it lacks, to stand behind its place
};

/// What the lines ahead of a place leave open.
struct CodeAhead {
  std::optional<OpenCode> Open;  ///< a member, a Type, an Enum, an #If, a statement
  bool GoesOn = false;           ///< a comment takes in the next line, which may be blank
};

/// Reads the lines from the first to that ahead of `line` (1 to Count() + 1). A head that comes
/// ahead of the End of another one leaves only itself open: branches of #If may hold one each.
[[nodiscard]] CodeAhead ReadAhead(const model::LineBuffer& lines, int line);

/// Whether a statement begins with "#" and that word; blanks may stand between.
[[nodiscard]] bool IsDirective(const std::vector<editing::Token>& statement, StringView word);

}  // namespace tessel::batch
