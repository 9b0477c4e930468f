// The blanks between the tokens of a statement.
#pragma once

#include <optional>

#include "hosts/editing/Tokens.h"

namespace tessel::editing {

enum class Gap : std::uint8_t {
  None,
  One,
  Keep,       ///< as it stands
  AtLeastOne  ///< as it stands, or one blank where there is none
};

/// Goes along the tokens of a statement, over all its lines, and knows what stands between two.
class Spacing {
 public:
  /// What stands ahead of `token`, whose place in the statement is behind all that were passed.
  /// `blank`: whether there is a blank now.
  [[nodiscard]] Gap Ahead(const Token& token, bool blank) const;
  /// Takes a token in.
  void Pass(const Token& token);
  /// A new line: a statement begins unless the one before goes on.
  void BeginLine(LineStart start);

  /// Whether a token is the name of a member or a field.
  [[nodiscard]] bool BehindDot() const { return left_ && left_->Kind == TokenKind::Dot; }
  [[nodiscard]] bool BehindBang() const { return left_ && left_->Kind == TokenKind::Bang; }
  /// The keyword that the statement begins with, Public and the like left out; empty for none.
  [[nodiscard]] StringView Keyword() const { return keyword_; }
  /// How many tokens of the statement were passed.
  [[nodiscard]] int Passed() const { return inStatement_; }

 private:
  void BeginStatement();
  void PassWord(const Token& word);
  [[nodiscard]] bool IsUnary(const Token& sign) const;
  [[nodiscard]] bool IsAmbiguous(const Token& sign) const;
  [[nodiscard]] bool LeftStandsApart() const;
  [[nodiscard]] Gap AheadOfComma(bool blank) const;
  [[nodiscard]] Gap AheadOfOpen(bool blank) const;
  [[nodiscard]] Gap BehindOperator() const;

  std::optional<Token> left_;
  StringView keyword_;
  int inLine_ = 0;       // tokens of the line
  int inStatement_ = 0;  // tokens of the statement
  int depth_ = 0;
  bool callee_ = true;        // nothing but the name of what is called came yet
  bool drawsLine_ = false;    // a Line method, whose corners are joined by a minus
  bool leftUnary_ = false;    // the last operator belongs to the operand behind it
  bool leftUnclear_ = false;  // whether it does can't be told
  bool leftMember_ = false;   // the last token is a member's name
  bool freshLine_ = true;
};

}  // namespace tessel::editing
