// The language's text operations, with its own counting: positions start at 1, 0 means not found.
#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tessel {

/// Text of the host: 16-bit units, so that lengths and columns are those that the host counts.
using String = std::u16string;
using StringView = std::u16string_view;

}  // namespace tessel

namespace tessel::vb {

inline constexpr StringView CrLf = u"\r\n";

/// How texts are compared: by unit, or without regard to case (Unicode simple folding).
enum class Compare { Binary, Text };

/// Refuses a temporary String where the result is a view into the argument.
template <class T>
concept Temporary = std::same_as<T, String>;

/// Index of `unit` in `text` at or behind `from`, npos if absent: find, but many units at a time.
[[nodiscard]] std::size_t FindUnit(StringView text, char16_t unit, std::size_t from = 0);

/// Position of `what` in `text`, 0 if absent. An empty `what` is found at `start`.
[[nodiscard]] std::size_t InStr(StringView text, StringView what,
                                Compare compare = Compare::Binary);
/// The same from position `start` (1 or more; else a failure 5) on.
[[nodiscard]] std::size_t InStr(std::size_t start, StringView text, StringView what,
                                Compare compare = Compare::Binary);
/// Position of the last `what` in `text`, 0 if absent.
[[nodiscard]] std::size_t InStrRev(StringView text, StringView what);

/// The text from position `start` (failure 5 when 0) on; empty behind the end. A view into `text`.
[[nodiscard]] StringView Mid(StringView text, std::size_t start);
[[nodiscard]] StringView Mid(StringView text, std::size_t start, std::size_t length);
[[nodiscard]] StringView Left(StringView text, std::size_t length);
[[nodiscard]] StringView Right(StringView text, std::size_t length);
/// These take off blanks (U+0020) only.
[[nodiscard]] StringView Trim(StringView text);
[[nodiscard]] StringView LTrim(StringView text);
[[nodiscard]] StringView RTrim(StringView text);

template <Temporary T>
StringView Mid(T&&, std::size_t) = delete;
template <Temporary T>
StringView Mid(T&&, std::size_t, std::size_t) = delete;
template <Temporary T>
StringView Left(T&&, std::size_t) = delete;
template <Temporary T>
StringView Right(T&&, std::size_t) = delete;
template <Temporary T>
StringView Trim(T&&) = delete;
template <Temporary T>
StringView LTrim(T&&) = delete;
template <Temporary T>
StringView RTrim(T&&) = delete;

[[nodiscard]] String UCase(StringView text);
[[nodiscard]] String LCase(StringView text);

/// `text` with every `what` replaced by `with`, from left to right. An empty `what` changes
/// nothing.
[[nodiscard]] String Replace(StringView text, StringView what, StringView with,
                             Compare compare = Compare::Binary);

/// The pieces of `text` between the separators. Empty text gives no piece at all.
[[nodiscard]] std::vector<String> Split(StringView text, StringView separator);
/// The same as views into `text`.
[[nodiscard]] std::vector<StringView> SplitViews(StringView text, StringView separator);
template <Temporary T>
std::vector<StringView> SplitViews(T&&, StringView) = delete;
[[nodiscard]] String Join(const std::vector<String>& pieces, StringView separator);
[[nodiscard]] String Join(const std::vector<StringView>& pieces, StringView separator);

/// Below 0, 0 or above 0 as `left` stands before, beside or behind `right`.
[[nodiscard]] int StrComp(StringView left, StringView right, Compare compare = Compare::Text);
/// True when the texts are equal without regard to case.
[[nodiscard]] bool SameText(StringView left, StringView right);
/// True when `text` begins with `head` without regard to case.
[[nodiscard]] bool StartsWithText(StringView text, StringView head);

/// `count` blanks; a negative count is failure 5.
[[nodiscard]] String Space(std::ptrdiff_t count);
/// `count` times `unit`; a negative count is failure 5.
[[nodiscard]] String Repeat(std::ptrdiff_t count, char16_t unit);

/// UTF-8 to text; damaged bytes become U+FFFD.
[[nodiscard]] String FromUtf8(std::string_view bytes);
/// Text to UTF-8; a lone surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(StringView text);

/// Decimal text of a whole number, without blanks.
template <std::integral T>
[[nodiscard]] String Str(T number) {
  const std::string digits = std::to_string(number);
  return String(digits.begin(), digits.end());
}

}  // namespace tessel::vb
