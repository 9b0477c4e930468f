#include "vb/Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <functional>

#include "vb/Failure.h"

namespace tessel::vb {
namespace {

/// Simple case folding of one unit; what lies beyond the basic plane has no case that matters here.
char16_t Fold(char16_t unit) {
  if (unit < 0x80) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
  }
  if (unit >= 0xD800 && unit <= 0xDFFF) return unit;
  const utf8proc_int32_t lower = utf8proc_tolower(unit);
  return lower > 0xFFFF ? unit : static_cast<char16_t>(lower);
}

char16_t Upper(char16_t unit) {
  if (unit < 0x80) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
  }
  if (unit >= 0xD800 && unit <= 0xDFFF) return unit;
  const utf8proc_int32_t upper = utf8proc_toupper(unit);
  return upper > 0xFFFF ? unit : static_cast<char16_t>(upper);
}

bool FoldsEqual(StringView left, StringView right) {
  for (std::size_t at = 0; at < left.size(); ++at) {
    if (left[at] != right[at] && Fold(left[at]) != Fold(right[at])) return false;
  }
  return true;
}

constexpr std::size_t None = StringView::npos;

/// Index of `what` at or behind `from`, npos if absent.
std::size_t FindText(StringView text, StringView what, std::size_t from) {
  if (what.empty()) return from <= text.size() ? from : None;
  const char16_t first = Fold(what.front());
  // Of some letters the capital is that of another letter.
  const char16_t capital = Fold(Upper(first)) == first ? Upper(first) : first;
  for (std::size_t at = from; at + what.size() <= text.size(); ++at) {
    const char16_t unit = text[at];
    // Most units are neither: that is told without folding.
    if (unit != first && unit != capital && (unit < 0x80 || Fold(unit) != first)) continue;
    if (FoldsEqual(text.substr(at + 1, what.size() - 1), what.substr(1))) return at;
  }
  return None;
}

/// text.find, with a fast search for the first unit.
std::size_t FindBinary(StringView text, StringView what, std::size_t from) {
  if (what.empty()) return text.find(what, from);
  for (std::size_t at = FindUnit(text, what.front(), from); at != None;
       at = FindUnit(text, what.front(), at + 1)) {
    if (text.substr(at, what.size()) == what) return at;
  }
  return None;
}

std::size_t Find(StringView text, StringView what, std::size_t from, Compare compare) {
  return compare == Compare::Binary ? FindBinary(text, what, from) : FindText(text, what, from);
}

template <class Piece>
std::vector<Piece> SplitInto(StringView text, StringView separator) {
  std::vector<Piece> pieces;
  if (text.empty()) return pieces;
  if (separator.empty()) return {Piece(text)};
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = FindBinary(text, separator, start);
    if (end == None) break;
    pieces.emplace_back(text.substr(start, end - start));
    start = end + separator.size();
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

template <class Piece>
String JoinPieces(const std::vector<Piece>& pieces, StringView separator) {
  std::size_t length = 0;
  for (const auto& piece : pieces) length += piece.size() + separator.size();
  String result;
  result.reserve(length);
  for (std::size_t at = 0; at < pieces.size(); ++at) {
    if (at > 0) result += separator;
    result += pieces[at];
  }
  return result;
}

void AppendUtf8(std::string& out, char32_t point) {
  const auto byte = [&](char32_t value) {
    out += static_cast<char>(static_cast<unsigned char>(value));
  };
  if (point < 0x80) {
    byte(point);
  } else if (point < 0x800) {
    byte(0xC0 | (point >> 6));
    byte(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    byte(0xE0 | (point >> 12));
    byte(0x80 | ((point >> 6) & 0x3F));
    byte(0x80 | (point & 0x3F));
  } else {
    byte(0xF0 | (point >> 18));
    byte(0x80 | ((point >> 12) & 0x3F));
    byte(0x80 | ((point >> 6) & 0x3F));
    byte(0x80 | (point & 0x3F));
  }
}

/// How many bytes from `from` on are plain ASCII.
std::size_t AsciiLength(std::string_view bytes, std::size_t from) {
  constexpr std::size_t Block = 16;
  const char* const all = bytes.data();
  std::size_t at = from;
  // A fixed number of bytes without a jump between them is looked at as one.
  for (; at + Block <= bytes.size(); at += Block) {
    unsigned char any = 0;
    for (std::size_t next = 0; next < Block; ++next) {
      any |= static_cast<unsigned char>(all[at + next]);
    }
    if (any >= 0x80) break;
  }
  while (at < bytes.size() && static_cast<unsigned char>(all[at]) < 0x80) ++at;
  return at - from;
}

void AppendAscii(String& text, std::string_view bytes) {
  const std::size_t before = text.size();
  text.resize(before + bytes.size());
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    text[before + at] = static_cast<unsigned char>(bytes[at]);
  }
}

constexpr char16_t Replacement = 0xFFFD;

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::size_t FindUnit(StringView text, char16_t unit, std::size_t from) {
  constexpr std::size_t Block = 16;
  const char16_t* const units = text.data();
  std::size_t at = from;
  // A fixed number of comparisons without a jump between them runs as one.
  for (; at + Block <= text.size(); at += Block) {
    unsigned equal = 0;
    for (std::size_t next = 0; next < Block; ++next) equal |= units[at + next] == unit ? 1U : 0U;
    if (equal != 0) break;
  }
  for (; at < text.size(); ++at) {
    if (units[at] == unit) return at;
  }
  return None;
}

std::size_t InStr(StringView text, StringView what, Compare compare) {
  return InStr(1, text, what, compare);
}

std::size_t InStr(std::size_t start, StringView text, StringView what, Compare compare) {
  if (start == 0) throw RuntimeFailure(InvalidCall);
  if (text.empty() || start > text.size()) return 0;
  const std::size_t found = Find(text, what, start - 1, compare);
  return found == None ? 0 : found + 1;
}

std::size_t InStrRev(StringView text, StringView what) {
  if (text.empty()) return 0;
  if (what.empty()) return text.size();
  const std::size_t found = text.rfind(what);
  return found == None ? 0 : found + 1;
}

StringView Mid(StringView text, std::size_t start) { return Mid(text, start, text.size()); }

StringView Mid(StringView text, std::size_t start, std::size_t length) {
  if (start == 0) throw RuntimeFailure(InvalidCall);
  return start > text.size() ? StringView() : text.substr(start - 1, length);
}

StringView Left(StringView text, std::size_t length) { return text.substr(0, length); }

StringView Right(StringView text, std::size_t length) {
  return text.substr(text.size() - std::min(length, text.size()));
}

StringView LTrim(StringView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  return first == None ? StringView() : text.substr(first);
}

StringView RTrim(StringView text) {
  const std::size_t last = text.find_last_not_of(u' ');
  return last == None ? StringView() : text.substr(0, last + 1);
}

StringView Trim(StringView text) { return LTrim(RTrim(text)); }

String UCase(StringView text) {
  String result(text);
  std::transform(result.begin(), result.end(), result.begin(), Upper);
  return result;
}

String LCase(StringView text) {
  String result(text);
  std::transform(result.begin(), result.end(), result.begin(), Fold);
  return result;
}

String Replace(StringView text, StringView what, StringView with, Compare compare) {
  if (what.empty()) return String(text);
  String result;
  std::size_t start = 0;
  for (;;) {
    const std::size_t found = Find(text, what, start, compare);
    if (found == None) break;
    if (result.empty()) result.reserve(text.size() + with.size());
    result += text.substr(start, found - start);
    result += with;
    start = found + what.size();
  }
  if (start == 0) return String(text);
  result += text.substr(start);
  return result;
}

std::vector<String> Split(StringView text, StringView separator) {
  return SplitInto<String>(text, separator);
}

std::vector<StringView> SplitViews(StringView text, StringView separator) {
  return SplitInto<StringView>(text, separator);
}

String Join(const std::vector<String>& pieces, StringView separator) {
  return JoinPieces(pieces, separator);
}

String Join(const std::vector<StringView>& pieces, StringView separator) {
  return JoinPieces(pieces, separator);
}

int StrComp(StringView left, StringView right, Compare compare) {
  if (compare == Compare::Binary) return left.compare(right);
  const std::size_t shorter = std::min(left.size(), right.size());
  for (std::size_t at = 0; at < shorter; ++at) {
    const int difference = Fold(left[at]) - Fold(right[at]);
    if (difference != 0) return difference;
  }
  return left.size() < right.size() ? -1 : left.size() > right.size() ? 1 : 0;
}

bool SameText(StringView left, StringView right) {
  return left.size() == right.size() && FoldsEqual(left, right);
}

bool StartsWithText(StringView text, StringView head) {
  return text.size() >= head.size() && FoldsEqual(text.substr(0, head.size()), head);
}

String Space(std::ptrdiff_t count) { return Repeat(count, u' '); }

String Repeat(std::ptrdiff_t count, char16_t unit) {
  if (count < 0) throw RuntimeFailure(InvalidCall);
  return String(static_cast<std::size_t>(count), unit);
}

String FromUtf8(std::string_view bytes) {
  String result;
  std::size_t plain = AsciiLength(bytes, 0);
  if (plain < bytes.size()) result.reserve(bytes.size());
  AppendAscii(result, bytes.substr(0, plain));
  for (std::size_t at = plain; at < bytes.size();) {
    const auto* const rest = reinterpret_cast<const utf8proc_uint8_t*>(bytes.data() + at);
    utf8proc_int32_t point = 0;
    utf8proc_ssize_t used =
        utf8proc_iterate(rest, static_cast<utf8proc_ssize_t>(bytes.size() - at), &point);
    if (used <= 0) {
      used = 1;
      point = Replacement;
    }
    if (point > 0xFFFF) {
      result += static_cast<char16_t>(0xD7C0 + (point >> 10));
      result += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    } else {
      result += static_cast<char16_t>(point);
    }
    at += static_cast<std::size_t>(used);
    plain = AsciiLength(bytes, at);
    AppendAscii(result, bytes.substr(at, plain));
    at += plain;
  }
  return result;
}

std::string ToUtf8(StringView text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    char32_t point = text[at];
    if (point < 0x80) {
      result += static_cast<char>(point);
      continue;
    }
    if (IsHigh(text[at]) && at + 1 < text.size() && IsLow(text[at + 1])) {
      point = 0x10000 + ((point - 0xD800) << 10) + (text[at + 1] - 0xDC00U);
      ++at;
    } else if (IsHigh(text[at]) || IsLow(text[at])) {
      point = Replacement;
    }
    AppendUtf8(result, point);
  }
  return result;
}

}  // namespace tessel::vb
