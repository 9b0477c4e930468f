#include "hosts/editing/Tokens.h"

#include <algorithm>
#include <iterator>

#include "hosts/model/Words.h"

namespace tessel::editing {
namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' ||
         (unit >= 0x80 && unit != 0xA0 && unit != 0x3000);
}
bool IsHexDigit(char16_t unit) {
  return IsDigit(unit) || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}
bool IsOctalDigit(char16_t unit) { return unit >= u'0' && unit <= u'7'; }
bool OneOf(char16_t unit, StringView units) { return units.find(unit) != StringView::npos; }

template <std::size_t N>
bool OneOf(StringView text, const StringView (&words)[N]) {
  return std::any_of(std::begin(words), std::end(words),
                     [&](StringView word) { return vb::SameText(word, text); });
}

/// Words of a date in letters.
bool IsDateWord(StringView word) {
  static constexpr StringView Names[] = {
      u"AM",       u"PM",      u"A",     u"P",        u"Jan",    u"January", u"Feb",
      u"February", u"Mar",     u"March", u"Apr",      u"April",  u"May",     u"Jun",
      u"June",     u"Jul",     u"July",  u"Aug",      u"August", u"Sep",     u"September",
      u"Oct",      u"October", u"Nov",   u"November", u"Dec",    u"December"};
  return OneOf(word, Names);
}

/// Whether a text between two # is a date: "1/2/2003", "10:30 PM", "2 Jan 2003".
bool IsDate(StringView body) {
  bool digits = false, parts = false;
  for (std::size_t at = 0; at < body.size();) {
    const char16_t unit = body[at];
    if (IsLetter(unit)) {
      const auto* const end = std::find_if_not(body.begin() + at, body.end(), IsLetter);
      const auto length = static_cast<std::size_t>(end - body.begin()) - at;
      if (!IsDateWord(body.substr(at, length))) return false;
      parts = true;
      at += length;
      continue;
    }
    digits |= IsDigit(unit);
    parts |= OneOf(unit, u"/-:");
    if (!IsDigit(unit) && !OneOf(unit, u"/-:,. ")) return false;
    ++at;
  }
  return digits && parts;
}

bool IsOperand(const Token& token) {
  switch (token.Kind) {
    case TokenKind::Word:
    case TokenKind::Bracketed:
    case TokenKind::Number:
    case TokenKind::Text:
    case TokenKind::Date:
    case TokenKind::Close:
      return true;
    default:
      return false;
  }
}

class Cutter {
 public:
  Cutter(StringView line, LineStart start) : line_(line), start_(start) {}

  CutLine Run() {
    if (start_ == LineStart::Remark) {
      if (!line_.empty()) Take(TokenKind::Comment, line_.size());
    } else {
      CutAll();
    }
    FindNext();
    return std::move(cut_);
  }

 private:
  void CutAll() {
    while (cut_.Whole) {
      while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
      if (at_ == line_.size()) return;
      if (line_[at_] == u'\'' || IsRem()) {
        Take(TokenKind::Comment, line_.size());
        return;
      }
      Next();
    }
  }

  void FindNext() {
    if (!IsContinued()) return;
    const bool remark = !cut_.Tokens.empty() && cut_.Tokens.back().Kind == TokenKind::Comment;
    cut_.Next = remark ? LineStart::Remark : LineStart::Inside;
  }

  /// A blank, or the line's beginning, and an underline at the end.
  [[nodiscard]] bool IsContinued() const {
    std::size_t end = line_.size();
    while (end > 0 && IsBlank(line_[end - 1])) --end;
    return end > 0 && line_[end - 1] == u'_' && (end == 1 || IsBlank(line_[end - 2]));
  }

  void Take(TokenKind kind, std::size_t end) {
    cut_.Tokens.push_back({kind, line_.substr(at_, end - at_), at_});
    at_ = end;
  }
  void Refuse() { cut_.Whole = false; }

  [[nodiscard]] char16_t At(std::size_t at) const { return at < line_.size() ? line_[at] : u'\0'; }
  [[nodiscard]] const Token* Last() const {
    return cut_.Tokens.empty() ? nullptr : &cut_.Tokens.back();
  }
  /// Whether the last token ends right here.
  [[nodiscard]] bool IsGlued() const {
    return !cut_.Tokens.empty() && Last()->At + Last()->Text.size() == at_;
  }
  [[nodiscard]] bool IsGluedToOperand() const { return IsGlued() && IsOperand(*Last()); }

  [[nodiscard]] bool StartsStatement() const {
    if (cut_.Tokens.empty()) return start_ == LineStart::Statement;
    const Token& last = *Last();
    static constexpr StringView Heads[] = {u"Then", u"Else"};
    const bool number = cut_.Tokens.size() == 1 && last.Kind == TokenKind::Number;
    return last.Kind == TokenKind::Colon || number ||
           (last.Kind == TokenKind::Word && OneOf(last.Text, Heads));
  }

  [[nodiscard]] bool IsRem() const {
    return vb::SameText(line_.substr(at_, 3), u"Rem") && !IsNameUnit(At(at_ + 3)) &&
           !OneOf(At(at_ + 3), u".!=(") && StartsStatement();
  }

  [[nodiscard]] std::size_t EndOfName(std::size_t at) const {
    while (at < line_.size() && IsNameUnit(line_[at])) ++at;
    return at;
  }

  void Next() {
    const char16_t unit = line_[at_];
    if (unit == u'"') return TakeText();
    if (unit == u'[') return TakeUpTo(TokenKind::Bracketed, u']');
    if (IsLetter(unit)) return TakeWord();
    if (IsDigit(unit)) return TakeNumber();
    if (unit == u'.' && IsDigit(At(at_ + 1)) && !IsGluedToOperand()) return TakeNumber();
    if (unit == u'#') return TakeHash();
    if (unit == u'&' && TakeBased()) return;
    TakeSign(unit);
  }

  void TakeText() {
    std::size_t end = at_ + 1;
    while (end < line_.size() && (line_[end] != u'"' || At(end + 1) == u'"')) {
      end += line_[end] == u'"' ? 2 : 1;
    }
    if (end >= line_.size()) return Refuse();
    Take(TokenKind::Text, end + 1);
  }

  void TakeUpTo(TokenKind kind, char16_t close) {
    const std::size_t end = line_.find(close, at_ + 1);
    if (end == StringView::npos) return Refuse();
    Take(kind, end + 1);
  }

  /// The ^ of a number of 64 bits, which nothing is taken to the power of.
  [[nodiscard]] bool IsLongLong(TokenKind kind, std::size_t at) const {
    const char16_t next = At(at + 1);
    return kind == TokenKind::Number && At(at) == u'^' && !IsNameUnit(next) &&
           !OneOf(next, u"(.-+\"[");
  }

  /// Ends an operand behind its type character.
  void TakeSigned(TokenKind kind, std::size_t end, StringView signs) {
    if (OneOf(At(end), signs) || IsLongLong(kind, end)) ++end;
    Take(kind, end);
    // "a&b" is a name with a type character and something that has no business there.
    const char16_t next = At(at_);
    if (OneOf(line_[at_ - 1], signs) && (IsNameUnit(next) || next == u'"' || next == u'['))
      Refuse();
  }

  void TakeWord() {
    const std::size_t end = EndOfName(at_);
    const StringView word = line_.substr(at_, end - at_);
    if (word == u"_") return Take(TokenKind::Underline, end);
    const char16_t next = At(end);
    static constexpr StringView Files[] = {u"Print",  u"Write", u"Input", u"Put",
                                           u"Get",    u"Close", u"Seek",  u"Lock",
                                           u"Unlock", u"Width", u"As"};
    const bool member = next == u'!' && (IsLetter(At(end + 1)) || At(end + 1) == u'[');
    const bool file = next == u'#' && OneOf(word, Files);
    if (member || file) return Take(TokenKind::Word, end);
    TakeSigned(TokenKind::Word, end, u"$%&!#@");
  }

  void TakeNumber() {
    std::size_t end = at_;
    const auto digits = [&] {
      while (IsDigit(At(end))) ++end;
    };
    digits();
    if (At(end) == u'.') {
      ++end;
      digits();
    }
    const std::size_t mantissa = end;
    if (OneOf(At(end), u"eEdD")) {
      ++end;
      if (OneOf(At(end), u"+-")) ++end;
      const std::size_t exponent = end;
      digits();
      if (end == exponent) end = mantissa;
    }
    if (IsGluedToOperand()) return Refuse();
    TakeSigned(TokenKind::Number, end, u"%&!#@");
  }

  /// &HFF, &O17 and &17; false for the operator.
  bool TakeBased() {
    const char16_t base = At(at_ + 1);
    const bool hex = base == u'h' || base == u'H';
    const bool letter = hex || base == u'o' || base == u'O';
    std::size_t end = at_ + (letter ? 2 : 1);
    const std::size_t digits = end;
    while (hex ? IsHexDigit(At(end)) : IsOctalDigit(At(end))) ++end;
    if (end == digits || IsNameUnit(At(end))) return false;
    if (IsGluedToOperand()) {
      Refuse();
    } else {
      TakeSigned(TokenKind::Number, end, u"%&");
    }
    return true;
  }

  void TakeHash() {
    if (cut_.Tokens.empty() && start_ == LineStart::Statement && IsLetter(At(at_ + 1))) {
      return Take(TokenKind::Word, EndOfName(at_ + 1));  // #If
    }
    const std::size_t end = line_.find(u'#', at_ + 1);
    if (end != StringView::npos && IsDate(line_.substr(at_ + 1, end - at_ - 1))) {
      return Take(TokenKind::Date, end + 1);
    }
    Take(TokenKind::Hash, at_ + 1);
  }

  void TakeSign(char16_t unit) {
    static constexpr StringView Pairs[] = {u"<=", u">=", u"<>", u"=<", u"=>", u"><"};
    const StringView two = line_.substr(at_, 2);
    if (two == u":=") return Take(TokenKind::Assign, at_ + 2);
    if (std::find(std::begin(Pairs), std::end(Pairs), two) != std::end(Pairs)) {
      return Take(TokenKind::Operator, at_ + 2);
    }
    switch (unit) {
      case u',':
        return Take(TokenKind::Comma, at_ + 1);
      case u';':
        return Take(TokenKind::Semicolon, at_ + 1);
      case u'(':
        return Take(TokenKind::Open, at_ + 1);
      case u')':
        return Take(TokenKind::Close, at_ + 1);
      case u':':
        return Take(TokenKind::Colon, at_ + 1);
      case u'.':
        return Take(TokenKind::Dot, at_ + 1);
      case u'!':
        return Take(TokenKind::Bang, at_ + 1);
      default:
        return OneOf(unit, u"=+-*/\\^&<>") ? Take(TokenKind::Operator, at_ + 1) : Refuse();
    }
  }

  StringView line_;
  LineStart start_;
  std::size_t at_ = 0;
  CutLine cut_;
};

}  // namespace

CutLine Cut(StringView line, LineStart start) { return Cutter(line, start).Run(); }

StringView WithoutSign(StringView word) {
  return !word.empty() && OneOf(word.back(), u"$%&!#@") ? word.substr(0, word.size() - 1) : word;
}

bool IsNameUnit(char16_t unit) { return IsLetter(unit) || IsDigit(unit); }

}  // namespace tessel::editing
