// A line of code cut into its tokens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "vb/Text.h"

namespace tessel::editing {

enum class TokenKind : std::uint8_t {
  Word,       ///< with its type character: "Left$"; "#If" at the head of a line
  Bracketed,  ///< [a name]
  Number,
  Text,  ///< with its quotes
  Date,
  Comma,
  Semicolon,
  Open,
  Close,
  Operator,
  Assign,  ///< :=
  Colon,
  Dot,
  Bang,       ///< ! ahead of a member
  Hash,       ///< # ahead of a file number
  Comment,    ///< to the end of the line
  Underline,  ///< the statement goes on in the next line
};

struct Token {
  TokenKind Kind;
  StringView Text;  ///< a part of the line
  std::size_t At;   ///< index in the line
};

/// What a line begins with.
enum class LineStart : std::uint8_t {
  Statement,
  Inside,  ///< the statement of the line before goes on
  Remark,  ///< the comment of the line before goes on
};

struct CutLine {
  std::vector<Token> Tokens;
  LineStart Next = LineStart::Statement;  ///< of the line behind
  /// Every unit was understood: no text that never ends, no sign that the language doesn't have,
  /// no two operands without anything between.
  bool Whole = true;
};

/// Cuts a line, whose text the tokens refer to.
[[nodiscard]] CutLine Cut(StringView line, LineStart start = LineStart::Statement);
template <vb::Temporary T>
CutLine Cut(T&&, LineStart = LineStart::Statement) = delete;

/// A word without its type character.
[[nodiscard]] StringView WithoutSign(StringView word);

/// Whether a unit can stand in a name; digits count.
[[nodiscard]] bool IsNameUnit(char16_t unit);

[[nodiscard]] inline bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }

/// Whether a token is that word, without regard to case.
[[nodiscard]] inline bool Is(const Token& token, StringView word) {
  return token.Kind == TokenKind::Word && vb::SameText(token.Text, word);
}

}  // namespace tessel::editing
