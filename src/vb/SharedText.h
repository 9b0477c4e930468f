// A text for tables of many rows.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <utility>

#include "vb/Text.h"

namespace tessel::vb {

/// A text that is exchanged whole and never changed in place. Copies share it; one of no more than
/// seven characters of a byte each lies in the handle and takes no other memory. The count of
/// sharers isn't guarded: copies stay on one thread.
class SharedText {
 public:
  SharedText() = default;
  template <std::convertible_to<StringView> Text>
  SharedText(const Text& text) : bits_(BitsOf(text)) {}  // NOLINT: stands where a text does
  SharedText(const SharedText& other) : bits_(other.bits_) { Share(); }
  SharedText(SharedText&& other) noexcept : bits_(std::exchange(other.bits_, Empty)) {}
  SharedText& operator=(SharedText other) noexcept {
    std::swap(bits_, other.bits_);
    return *this;
  }
  ~SharedText() { Release(); }

  /// What `reader` makes of a view of the text, which lasts as long as the call.
  template <class Reader>
  decltype(auto) Read(const Reader& reader) const {
    if (!IsSmall()) return reader(Shared());
    std::array<char16_t, MostSmall> units{};
    for (std::size_t at = 0; at < size(); ++at) units[at] = SmallUnit(at);
    return reader(StringView(units.data(), size()));
  }
  operator String() const {  // NOLINT: stands where a text does
    return Read([](StringView text) { return String(text); });
  }
  [[nodiscard]] std::size_t size() const { return IsSmall() ? (bits_ >> 1) & 7 : Shared().size(); }
  [[nodiscard]] bool empty() const { return bits_ == Empty; }

  template <std::convertible_to<StringView> Text>
  friend bool operator==(const SharedText& left, const Text& right) {
    return left.Read([&](StringView text) { return text == StringView(right); });
  }
  friend bool operator==(const SharedText& left, const SharedText& right) {
    if (left.bits_ == right.bits_) return true;
    // A small text has one form only.
    return !left.IsSmall() && !right.IsSmall() && left.Shared() == right.Shared();
  }

 private:
  struct Block;
  static constexpr std::size_t MostSmall = 7;
  static constexpr std::uint64_t Empty = 1;  // small, of no characters

  // The lowest bit tells a small text, whose length stands in the three bits above it and whose
  // characters in the bytes above these, from the address of a block.
  static std::uint64_t BitsOf(StringView text);
  [[nodiscard]] bool IsSmall() const { return (bits_ & 1) != 0; }
  [[nodiscard]] char16_t SmallUnit(std::size_t at) const {
    return static_cast<char16_t>((bits_ >> (8 * (at + 1))) & 0xFF);
  }
  [[nodiscard]] StringView Shared() const;
  void Share() const;
  void Release() const;

  std::uint64_t bits_ = Empty;
};

}  // namespace tessel::vb
