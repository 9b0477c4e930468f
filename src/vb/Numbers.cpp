#include "vb/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "vb/Failure.h"

namespace tessel::vb {
namespace {

bool IsSpace(char16_t unit) {
  return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == 0xA0;
}
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsExponentMark(char16_t unit) {
  return unit == u'E' || unit == u'e' || unit == u'D' || unit == u'd';
}

int DigitValue(char16_t unit) {
  if (IsDigit(unit)) return unit - u'0';
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  return 99;
}

/// Reads a text from left to right.
class Cursor {
 public:
  explicit Cursor(StringView text) : text_(text) {}
  [[nodiscard]] bool AtEnd() const { return at_ == text_.size(); }
  [[nodiscard]] char16_t Peek() const { return AtEnd() ? u'\0' : text_[at_]; }
  [[nodiscard]] char16_t PeekBehind() const {
    return at_ + 1 < text_.size() ? text_[at_ + 1] : u'\0';
  }
  void Skip() { ++at_; }
  void SkipSpace() {
    while (!AtEnd() && IsSpace(Peek())) Skip();
  }
  bool Take(char16_t unit) {
    if (Peek() != unit || AtEnd()) return false;
    Skip();
    return true;
  }
  [[nodiscard]] std::size_t At() const { return at_; }
  void GoTo(std::size_t at) { at_ = at; }

 private:
  StringView text_;
  std::size_t at_ = 0;
};

/// Whether a decimal text of digits, point and exponent lies above 1; asked for one that no double
/// holds.
bool IsLarge(std::string_view plain) {
  const std::size_t mark = std::min(plain.find('e'), plain.size());
  const std::string_view digits = plain.substr(0, mark);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = std::min(digits.find_first_of("123456789"), digits.size());
  const bool negative = plain.substr(mark).starts_with("e-");
  std::size_t exponent = 0;
  for (const char digit : plain.substr(mark)) {
    if (digit >= '0' && digit <= '9' && exponent < digits.size() + 1000) {
      exponent = exponent * 10 + static_cast<std::size_t>(digit - '0');
    }
  }
  // Places that the first digit stands ahead of the point, by the text and by the exponent.
  const auto places = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
  return places + (negative ? -1 : 1) * static_cast<std::ptrdiff_t>(exponent) > 0;
}

/// A decimal text as the number that it is in every locale; nothing when it is too large.
std::optional<double> ToDouble(std::string_view plain) {
  double value = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (error != std::errc::result_out_of_range) return value;
  const bool negative = plain.starts_with('-');
  if (IsLarge(plain.substr(negative ? 1 : 0))) return std::nullopt;
  return negative ? -0.0 : 0.0;
}

/// &H and &O numbers with an optional closing "&"; up to 64 bits.
std::optional<double> ReadRadix(Cursor& in) {
  in.Skip();
  unsigned base = 8;
  if (in.Peek() == u'H' || in.Peek() == u'h') {
    base = 16;
    in.Skip();
  } else if (in.Peek() == u'O' || in.Peek() == u'o') {
    in.Skip();
  }
  std::uint64_t value = 0;
  int digits = 0;
  while (!in.AtEnd() && DigitValue(in.Peek()) < static_cast<int>(base)) {
    if (value > (std::numeric_limits<std::uint64_t>::max() >> 4)) return std::nullopt;
    value = value * base + static_cast<unsigned>(DigitValue(in.Peek()));
    ++digits;
    in.Skip();
  }
  if (digits == 0) return std::nullopt;
  // Values of 16 and 32 bits are signed, as the language reads them.
  if (value <= 0xFFFF) return static_cast<std::int16_t>(value);
  if (value <= 0xFFFFFFFF) return static_cast<std::int32_t>(value);
  return static_cast<double>(static_cast<std::int64_t>(value));
}

/// Digits with thousands separators, a point, an exponent.
std::optional<double> ReadDecimal(Cursor& in) {
  std::string plain;
  bool digits = false, point = false;
  for (; !in.AtEnd(); in.Skip()) {
    const char16_t unit = in.Peek();
    if (IsDigit(unit)) {
      plain += static_cast<char>(unit);
      digits = true;
    } else if (unit == u'.' && !point) {
      plain += '.';
      point = true;
    } else if (!(unit == u',' && digits && !point)) {
      break;
    }
  }
  if (!digits) return std::nullopt;
  if (IsExponentMark(in.Peek())) {
    in.Skip();
    plain += 'e';
    if (in.Peek() == u'+' || in.Peek() == u'-') {
      if (in.Peek() == u'-') plain += '-';
      in.Skip();
    }
    if (!IsDigit(in.Peek())) return std::nullopt;
    for (; IsDigit(in.Peek()); in.Skip()) plain += static_cast<char>(in.Peek());
  }
  return ToDouble(plain);
}

struct Marks {
  bool Sign = false, Currency = false, Bracket = false, Negative = false;
};

/// Sign, currency sign and opening bracket ahead of the digits, each once, blanks between them.
bool ReadLead(Cursor& in, Marks& marks) {
  for (;;) {
    in.SkipSpace();
    const char16_t unit = in.Peek();
    if ((unit == u'+' || unit == u'-') && !marks.Sign && !marks.Bracket) {
      marks.Sign = true;
      marks.Negative = unit == u'-';
    } else if (unit == u'$' && !marks.Currency) {
      marks.Currency = true;
    } else if (unit == u'(' && !marks.Bracket && !marks.Sign) {
      marks.Bracket = marks.Negative = true;
    } else {
      return !in.AtEnd();
    }
    in.Skip();
  }
}

/// What may follow the digits: the closing bracket, a sign or currency sign that did not stand
/// ahead.
bool ReadTail(Cursor& in, Marks& marks) {
  bool closed = !marks.Bracket;
  for (;;) {
    in.SkipSpace();
    if (in.AtEnd()) return closed;
    const char16_t unit = in.Peek();
    if (unit == u')' && !closed) {
      closed = true;
    } else if ((unit == u'+' || unit == u'-') && !marks.Sign && !marks.Bracket) {
      marks.Sign = true;
      marks.Negative = unit == u'-';
    } else if (unit == u'$' && !marks.Currency) {
      marks.Currency = true;
    } else {
      return false;
    }
    in.Skip();
  }
}

/// The whole text as a number.
std::optional<double> ReadNumber(StringView text) {
  Cursor in(text);
  Marks marks;
  if (!ReadLead(in, marks)) return std::nullopt;
  const bool radix = in.Peek() == u'&';
  if (radix && (marks.Sign || marks.Currency || marks.Bracket)) return std::nullopt;
  const std::optional<double> value = radix ? ReadRadix(in) : ReadDecimal(in);
  if (!value) return std::nullopt;
  if (radix) {
    in.Take(u'&');
    in.SkipSpace();
    return in.AtEnd() ? value : std::nullopt;
  }
  if (!ReadTail(in, marks)) return std::nullopt;
  return marks.Negative ? -*value : *value;
}

/// Words are by far the most frequent question: most are told by their first character.
bool MayStartNumber(char16_t unit) {
  return IsDigit(unit) || IsSpace(unit) || unit == u'+' || unit == u'-' || unit == u'.' ||
         unit == u'&' || unit == u'$' || unit == u'(';
}

}  // namespace

bool IsNumeric(StringView text) {
  if (text.empty() || !MayStartNumber(text.front())) return false;
  return ReadNumber(text).has_value();
}

double Val(StringView text) {
  String dense;
  for (const char16_t unit : text) {
    if (unit != u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r') dense += unit;
  }
  Cursor in(dense);
  if (in.Peek() == u'&') return ReadRadix(in).value_or(0);
  std::string plain;
  if (in.Peek() == u'+' || in.Peek() == u'-') {
    if (in.Peek() == u'-') plain += '-';
    in.Skip();
  }
  bool digits = false, point = false;
  for (; IsDigit(in.Peek()) || (in.Peek() == u'.' && !point); in.Skip()) {
    plain += static_cast<char>(in.Peek());
    point |= in.Peek() == u'.';
    digits |= IsDigit(in.Peek());
  }
  if (!digits) return 0;
  if (IsExponentMark(in.Peek())) {
    std::string exponent = "e";
    in.Skip();
    if (in.Peek() == u'+' || in.Peek() == u'-') {
      if (in.Peek() == u'-') exponent += '-';
      in.Skip();
    }
    const std::size_t head = exponent.size();
    for (; IsDigit(in.Peek()); in.Skip()) exponent += static_cast<char>(in.Peek());
    if (exponent.size() > head) plain += exponent;
  }
  const std::optional<double> value = ToDouble(plain);
  if (!value) throw RuntimeFailure(Overflow);
  return *value;
}

std::int32_t CLng(StringView text) {
  const std::optional<double> value = ReadNumber(text);
  if (!value) throw RuntimeFailure(TypeMismatch);
  return CLng(*value);
}

std::int32_t CLng(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    throw RuntimeFailure(Overflow);
  }
  return static_cast<std::int32_t>(rounded);
}

String NumberText(double number) {
  char buffer[40];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
  if (error != std::errc()) throw RuntimeFailure(InternalError);
  std::string text(buffer, end);
  for (char& unit : text) {
    if (unit == 'e') unit = 'E';
  }
  if (text.rfind("0.", 0) == 0) text.erase(0, 1);
  if (text.rfind("-0.", 0) == 0) text.erase(1, 1);
  return String(text.begin(), text.end());
}

}  // namespace tessel::vb
