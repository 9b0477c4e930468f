#include "store/Criterion.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <optional>

#include "store/Connection.h"
#include "store/Pieces.h"
#include "vb/Numbers.h"

namespace tessel::store {
namespace {

/// Below it each whole number is a number of its own.
constexpr double LargestWhole = 9e15;

std::optional<double> Number(const Value& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  return std::nullopt;
}

/// "*" and "%" stand for anything, ahead of and behind the text.
bool IsLike(StringView text, StringView pattern) {
  const auto isWild = [](char16_t unit) { return unit == u'*' || unit == u'%'; };
  const bool open = !pattern.empty() && isWild(pattern.front());
  if (open) pattern.remove_prefix(1);
  const bool openEnd = !pattern.empty() && isWild(pattern.back());
  if (openEnd) pattern.remove_suffix(1);
  if (open && openEnd) return vb::InStr(text, pattern, vb::Compare::Text) > 0;
  if (openEnd) return vb::StartsWithText(text, pattern);
  if (!open) return vb::SameText(text, pattern);
  return text.size() >= pattern.size() && vb::SameText(vb::Right(text, pattern.size()), pattern);
}

}  // namespace

class Criterion::Parser {
 public:
  Parser(StringView text, const ColumnOf& columnOf) : text_(text), columnOf_(columnOf) {
    for (Piece& piece : CutStatement(text)) {
      if (piece.Kind != PieceKind::Blank) pieces_.push_back(std::move(piece));
    }
  }

  std::vector<std::vector<Comparison>> Parse() {
    std::vector<std::vector<Comparison>> any(1);
    any.back().push_back(ParseOne());
    while (at_ < pieces_.size()) {
      if (Take(u"OR")) {
        any.emplace_back();
      } else if (!Take(u"AND")) {
        Fail();
      }
      any.back().push_back(ParseOne());
    }
    return any;
  }

 private:
  [[noreturn]] void Fail() const {
    throw vb::Failure(StoreFailure, u"The criterion can't be read: " + String(text_),
                      u"Tessel.store");
  }
  const Piece& Next() {
    if (at_ >= pieces_.size()) Fail();
    return pieces_[at_++];
  }
  bool Take(StringView text) {
    if (at_ >= pieces_.size() || !vb::SameText(pieces_[at_].Text, text)) return false;
    ++at_;
    return true;
  }

  Comparison ParseOne() {
    const Piece& field = Next();
    if (field.Kind != PieceKind::Word && field.Kind != PieceKind::Name) Fail();
    const std::size_t column = columnOf_(Content(field));
    const Operator test = ParseOperator();
    return {column, test, ParseValue()};
  }

  Operator ParseOperator() {
    if (Take(u"LIKE")) return Operator::Like;
    if (Take(u"=")) return Operator::Equal;
    if (Take(u"<")) {
      if (Take(u">")) return Operator::Unequal;
      return Take(u"=") ? Operator::LessEqual : Operator::Less;
    }
    if (Take(u">")) return Take(u"=") ? Operator::GreaterEqual : Operator::Greater;
    Fail();
  }

  Value ParseValue() {
    const Piece& first = Next();
    if (first.Kind == PieceKind::Text) return Content(first);
    if (IsWord(first, u"NULL")) return Null{};
    String number = first.Text;
    if (IsSign(first, u'-')) number += Next().Text;
    if (Take(u".")) number += u"." + Next().Text;
    if (!vb::IsNumeric(number)) Fail();
    const double value = vb::Val(number);
    if (value == std::floor(value) && std::abs(value) < LargestWhole) {
      return static_cast<std::int64_t>(value);
    }
    return value;
  }

  StringView text_;
  const ColumnOf& columnOf_;
  std::vector<Piece> pieces_;
  std::size_t at_ = 0;
};

Criterion::Criterion(StringView text, const ColumnOf& columnOf)
    : any_(Parser(text, columnOf).Parse()) {}

bool Criterion::Fits(const std::function<Value(std::size_t)>& cellOf) const {
  return std::any_of(any_.begin(), any_.end(), [&](const std::vector<Comparison>& all) {
    return std::all_of(all.begin(), all.end(),
                       [&](const Comparison& one) { return Compare(one, cellOf(one.Column)); });
  });
}

bool Criterion::Compare(const Comparison& one, const Value& cell) {
  if (IsNull(cell) || IsNull(one.Wanted)) {
    const bool both = IsNull(cell) && IsNull(one.Wanted);
    return one.Test == Operator::Equal ? both : one.Test == Operator::Unequal && !both;
  }
  if (one.Test == Operator::Like) return IsLike(ToText(cell), ToText(one.Wanted));
  const auto left = Number(cell), right = Number(one.Wanted);
  const std::partial_ordering order =
      left && right ? *left <=> *right : vb::StrComp(ToText(cell), ToText(one.Wanted)) <=> 0;
  switch (one.Test) {
    case Operator::Equal:
      return std::is_eq(order);
    case Operator::Unequal:
      return std::is_neq(order);
    case Operator::Less:
      return std::is_lt(order);
    case Operator::LessEqual:
      return std::is_lteq(order);
    case Operator::Greater:
      return std::is_gt(order);
    default:
      return std::is_gteq(order);
  }
}

}  // namespace tessel::store
