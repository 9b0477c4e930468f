#include "hosts/editing/Spacing.h"

#include <algorithm>
#include <iterator>

#include "hosts/model/Words.h"

namespace tessel::editing {
namespace {

using model::FindWord;
using model::IsKeyword;
using model::Word;
using model::WordKind;

template <std::size_t N>
bool OneOf(StringView text, const StringView (&words)[N]) {
  return std::any_of(std::begin(words), std::end(words),
                     [&](StringView word) { return vb::SameText(word, text); });
}

/// Reserved words that are values, so that a sign behind them joins two operands.
bool IsValue(StringView word) {
  static constexpr StringView Values[] = {u"Me", u"Nothing", u"True", u"False", u"Empty", u"Null"};
  return OneOf(word, Values);
}

/// Words that parentheses behind them don't belong to.
bool StandsApart(StringView word) {
  static constexpr StringView Words[] = {
      u"And",    u"As",   u"ByRef",  u"ByVal", u"Call",   u"Case",  u"Each",   u"Else",
      u"ElseIf", u"Eqv",  u"If",     u"Imp",   u"In",     u"Is",    u"Let",    u"Like",
      u"Mod",    u"Not",  u"Or",     u"Print", u"Put",    u"Get",   u"Select", u"Set",
      u"Then",   u"To",   u"Until",  u"While", u"With",   u"Write", u"Xor",    u"LSet",
      u"RSet",   u"Step", u"Return", u"#If",   u"#ElseIf"};
  return OneOf(word, Words);
}

bool IsModifier(StringView word) {
  static constexpr StringView Words[] = {u"Public", u"Private", u"Friend", u"Static", u"Global"};
  return OneOf(word, Words);
}

bool IsOperand(const Token& token) {
  return token.Kind == TokenKind::Number || token.Kind == TokenKind::Text ||
         token.Kind == TokenKind::Date || token.Kind == TokenKind::Close ||
         token.Kind == TokenKind::Bracketed;
}

bool IsMember(const Token& token) {
  return token.Kind == TokenKind::Dot || token.Kind == TokenKind::Bang;
}

}  // namespace

void Spacing::BeginLine(LineStart start) {
  inLine_ = 0;
  freshLine_ = start == LineStart::Statement;
  if (freshLine_) BeginStatement();
}

void Spacing::BeginStatement() {
  left_.reset();
  keyword_ = {};
  inStatement_ = depth_ = 0;
  callee_ = true;
  drawsLine_ = leftUnary_ = leftUnclear_ = leftMember_ = false;
}

bool Spacing::IsUnary(const Token& sign) const {
  if (sign.Kind != TokenKind::Operator || (sign.Text != u"-" && sign.Text != u"+")) return false;
  if (!left_) return true;
  if (IsOperand(*left_)) return false;
  if (left_->Kind != TokenKind::Word) return true;
  if (leftMember_) return false;
  if (vb::SameText(left_->Text, u"Step")) return vb::SameText(keyword_, u"For");
  const Word word = FindWord(left_->Text);
  if (word.Kind == WordKind::Reserved) return !IsValue(word.Text);
  return word.Text == u"Print" || word.Text == u"Write";
}

/// "Foo -1" calls Foo, or takes one away from it.
bool Spacing::IsAmbiguous(const Token& sign) const {
  if (sign.Kind != TokenKind::Operator || (sign.Text != u"-" && sign.Text != u"+")) return false;
  return (callee_ && depth_ == 0 && inStatement_ > 0) || drawsLine_ ||
         vb::StartsWithText(keyword_, u"Def");  // DefInt A-Z
}

Gap Spacing::AheadOfComma(bool blank) const {
  if (left_->Kind == TokenKind::Comma) return Gap::One;
  if (left_->Kind == TokenKind::Semicolon) return Gap::Keep;
  const bool keyword = left_->Kind == TokenKind::Word && !leftMember_ && IsKeyword(left_->Text);
  const bool first = depth_ == 0 && (callee_ || keyword);
  return first && blank ? Gap::One : Gap::None;
}

bool Spacing::LeftStandsApart() const {
  if (left_->Kind != TokenKind::Word || leftMember_ || !StandsApart(left_->Text)) return false;
  // "Step(1, 2)" is a corner of a drawing.
  return !vb::SameText(left_->Text, u"Step") || vb::SameText(keyword_, u"For");
}

Gap Spacing::AheadOfOpen(bool blank) const {
  const bool name = left_->Kind == TokenKind::Word || left_->Kind == TokenKind::Close ||
                    left_->Kind == TokenKind::Bracketed;
  if (!name || LeftStandsApart()) return Gap::One;
  return blank ? Gap::One : Gap::None;
}

Gap Spacing::BehindOperator() const {
  if (leftUnclear_) return Gap::Keep;
  return leftUnary_ ? Gap::None : Gap::One;
}

Gap Spacing::Ahead(const Token& token, bool blank) const {
  if (token.Kind == TokenKind::Comment || token.Kind == TokenKind::Underline) return Gap::Keep;
  if (!left_)
    return inLine_ == 0 ? Gap::Keep : Gap::AtLeastOne;  // behind a number, a label, a colon
  if (token.Kind == TokenKind::Colon) {
    return freshLine_ && inLine_ == inStatement_ && inLine_ == 1 ? Gap::Keep : Gap::None;
  }
  if (IsMember(token) || IsMember(*left_)) return Gap::Keep;
  if (left_->Kind == TokenKind::Open || token.Kind == TokenKind::Close) return Gap::None;
  if (token.Kind == TokenKind::Comma) return AheadOfComma(blank);
  if (token.Kind == TokenKind::Assign || left_->Kind == TokenKind::Assign) return Gap::None;
  if (left_->Kind == TokenKind::Comma) return Gap::One;
  if (token.Kind == TokenKind::Semicolon) return Gap::Keep;
  if (left_->Kind == TokenKind::Hash) return Gap::None;
  if (IsAmbiguous(token)) return Gap::Keep;
  if (token.Kind == TokenKind::Word && vb::SameText(token.Text, u"As")) return Gap::AtLeastOne;
  if (left_->Kind == TokenKind::Operator) return BehindOperator();
  if (token.Kind == TokenKind::Open) return AheadOfOpen(blank);
  return Gap::One;
}

void Spacing::PassWord(const Token& word) {
  const bool member = left_ && IsMember(*left_);
  if (vb::SameText(word.Text, u"Line") && (member || inStatement_ == 0)) drawsLine_ = true;
  if (vb::SameText(word.Text, u"Input")) drawsLine_ = false;
  if (inStatement_ == 0 && IsModifier(word.Text)) return;
  if (keyword_.empty() && !member && (inStatement_ == 0 || IsModifier(left_->Text))) {
    const Word known = FindWord(word.Text);
    if (known.Kind == WordKind::Reserved || known.Kind == WordKind::Common) keyword_ = known.Text;
  }
  const bool callable =
      FindWord(word.Text).Kind != WordKind::Reserved || vb::SameText(word.Text, u"Me");
  if (!member && depth_ == 0 && (inStatement_ > 0 || !callable)) callee_ = false;
  leftMember_ = member;
}

void Spacing::Pass(const Token& token) {
  if (token.Kind == TokenKind::Comment || token.Kind == TokenKind::Underline) return;
  leftUnary_ = IsUnary(token);
  leftUnclear_ = IsAmbiguous(token);
  const bool number = freshLine_ && inLine_ == 0 && token.Kind == TokenKind::Number;
  const bool separates = token.Kind == TokenKind::Colon ||
                         (token.Kind == TokenKind::Word && !BehindDot() &&
                          (vb::SameText(token.Text, u"Then") || vb::SameText(token.Text, u"Else")));
  ++inLine_;
  if (number || token.Kind == TokenKind::Colon) return BeginStatement();
  leftMember_ = false;
  if (token.Kind == TokenKind::Word) PassWord(token);
  const bool continuesCallee = token.Kind == TokenKind::Word || token.Kind == TokenKind::Open ||
                               token.Kind == TokenKind::Close || IsMember(token) || depth_ > 0 ||
                               token.Kind == TokenKind::Bracketed;
  if (!continuesCallee) callee_ = false;
  if (token.Kind == TokenKind::Open) ++depth_;
  if (token.Kind == TokenKind::Close && depth_ > 0) --depth_;
  ++inStatement_;
  left_ = token;
  if (separates) {
    BeginStatement();
    left_ = token;  // the blank behind it is like any other
  }
}

}  // namespace tessel::editing
