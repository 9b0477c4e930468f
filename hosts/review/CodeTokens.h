// Code as tokens, to tell layout from meaning.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "vb/Text.h"

namespace tessel::review {

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
  /// The line number ahead of it, where a reader of its own counts it as no token.
  StringView Number = {};
};

// Characters, as all of the reading sees them.

[[nodiscard]] bool IsBlank(char16_t unit);
[[nodiscard]] bool IsLineEnd(char16_t unit);
/// Whether the token is GoTo, GoSub or Resume.
[[nodiscard]] bool IsJump(const Token& token);

/// Reads code (lines separated by CR LF, CR or LF) into tokens. White space, blank lines,
/// continuations and the way in which statements are separated leave no trace. `jumpTargets` holds,
/// folded to upper case, the names that some GoTo, GoSub or Resume of the code names: such a word
/// ahead of a colon is a label even when a statement follows on its line.
[[nodiscard]] std::vector<Token> ReadTokens(StringView code, const std::set<String>& jumpTargets);

/// The names that jumps of the code go to, in upper case.
[[nodiscard]] std::set<String> JumpTargets(StringView code);

}  // namespace tessel::review
