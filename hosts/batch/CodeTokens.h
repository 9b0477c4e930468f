// Code as tokens, to tell layout from meaning.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "vb/Text.h"

namespace tessel::batch {

/// What a token is. Separators between statements are one kind, whether a colon or a line end.
enum class TokenKind {
  Word,           ///< identifier, keyword, number, operator or date
  Text,           ///< string with its quotes
  Comment,        ///< from the apostrophe or Rem on
  LineNumber,     ///< number at the head of a line
  Label,          ///< word and colon at the head of a line
  Separator,      ///< between two statements
  EndOfSingleIf,  ///< end of the line of an If that has its statements on the same line
};

struct Token {
  TokenKind Kind;
  StringView Text;  ///< into the code
  int Line;         ///< from 1
};

/// Reads code (lines separated by CR LF, CR or LF) into tokens. White space, blank lines,
/// continuations and the way in which statements are separated leave no trace. `jumpTargets` holds,
/// folded to upper case, the names that some GoTo, GoSub or Resume of the code names: such a word
/// ahead of a colon is a label even when a statement follows on its line.
[[nodiscard]] std::vector<Token> ReadTokens(StringView code, const std::set<String>& jumpTargets);

/// The names that jumps of the code go to, in upper case.
[[nodiscard]] std::set<String> JumpTargets(StringView code);

/// A difference that is more than layout.
struct Difference {
  int Line;  ///< in the text before, from 1
  std::string Cause;
  bool operator==(const Difference&) const = default;
};

/// Compares code before and after a run. Stops at the first differences of each stretch and goes on
/// behind it; at most `most` are told.
[[nodiscard]] std::vector<Difference> CompareCode(StringView before, StringView after,
                                                  std::size_t most = 20);

}  // namespace tessel::batch
