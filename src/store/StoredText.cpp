#include "store/StoredText.h"

#include <algorithm>
#include <vector>

namespace tessel::store {
namespace {

/// First byte of a lone surrogate, and how many bytes it has.
constexpr unsigned char HalfLead = 0xED;
constexpr std::size_t HalfBytes = 3;

bool IsHalf(char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }
bool IsPair(StringView text) {
  return text.size() > 1 && text[0] < 0xDC00 && text[1] >= 0xDC00 && text[1] <= 0xDFFF;
}

using Byte = unsigned char;
constexpr Byte FirstBeyondAscii = 0x80, CaseBit = 0x20;
/// A fixed number of comparisons without a jump between them runs as one.
constexpr std::size_t Block = 32;

const Byte* BytesOf(std::string_view text) { return reinterpret_cast<const Byte*>(text.data()); }

bool IsAscii(std::string_view text) {
  const Byte* const bytes = BytesOf(text);
  Byte all = 0;
  for (std::size_t at = 0; at < text.size(); ++at) all |= bytes[at];
  return all < FirstBeyondAscii;
}

/// The bits in which the two cases of a small letter differ; none for other signs.
Byte CaseBitsOf(char small) { return small >= 'a' && small <= 'z' ? CaseBit : 0; }

bool IsWordAt(std::string_view text, std::string_view small) {
  return std::equal(small.begin(), small.end(), text.begin(), [](char one, char other) {
    return (static_cast<Byte>(other) | CaseBitsOf(one)) == static_cast<Byte>(one);
  });
}

/// Looks for the first two letters in a block of text at a time, and for the whole word where they
/// are.
bool HoldsPlain(std::string_view text, std::string_view small) {
  if (text.size() < small.size()) return false;
  const Byte* const bytes = BytesOf(text);
  const std::size_t step = small.size() > 1 ? 1 : 0;
  const Byte first = BytesOf(small)[0], firstBits = CaseBitsOf(small[0]);
  const Byte second = BytesOf(small)[step], secondBits = CaseBitsOf(small[step]);
  const auto isStart = [&](std::size_t at) {
    return static_cast<Byte>(static_cast<Byte>(bytes[at] | firstBits) == first) &
           static_cast<Byte>(static_cast<Byte>(bytes[at + step] | secondBits) == second);
  };
  const std::size_t starts = text.size() - small.size() + 1;
  for (std::size_t from = 0; from < starts; from += Block) {
    const std::size_t end = std::min(from + Block, starts);
    if (end - from == Block) {
      Byte any = 0;
      for (std::size_t next = 0; next < Block; ++next) {
        any |= static_cast<Byte>(isStart(from + next));
      }
      if (any == 0) continue;
    }
    for (std::size_t at = from; at < end; ++at) {
      if (isStart(at) != 0 && IsWordAt(text.substr(at), small)) return true;
    }
  }
  return false;
}

/// What stands for a plain letter when case doesn't count, though it is none: the sign of kelvin is
/// a k.
const std::vector<std::string>& OtherPlainLetters() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> found;
    for (char16_t unit = FirstBeyondAscii; unit < 0xFFFF; ++unit) {
      if (vb::LCase({&unit, 1}).front() < FirstBeyondAscii) found.push_back(ToStored({&unit, 1}));
    }
    return found;
  }();
  return all;
}

bool HoldsOtherPlainLetter(std::string_view text) {
  const auto& others = OtherPlainLetters();
  return std::any_of(others.begin(), others.end(), [&](const std::string& other) {
    return text.find(other) != std::string_view::npos;
  });
}

}  // namespace

std::string ToStored(StringView text) {
  std::string bytes;
  std::size_t done = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!IsHalf(text[at])) continue;
    if (IsPair(text.substr(at))) {
      ++at;
      continue;
    }
    bytes += vb::ToUtf8(text.substr(done, at - done));
    bytes += {static_cast<char>(HalfLead), static_cast<char>(0x80U | (text[at] >> 6U & 0x3FU)),
              static_cast<char>(0x80U | (text[at] & 0x3FU))};
    done = at + 1;
  }
  return done == 0 ? vb::ToUtf8(text) : bytes + vb::ToUtf8(text.substr(done));
}

String FromStored(std::string_view bytes) {
  String text;
  std::size_t done = 0;
  for (std::size_t at = bytes.find(static_cast<char>(HalfLead)); at != std::string_view::npos;
       at = bytes.find(static_cast<char>(HalfLead), at + 1)) {
    if (bytes.size() - at < HalfBytes) break;
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    const auto third = static_cast<unsigned char>(bytes[at + 2]);
    if (second < 0xA0 || second > 0xBF || third < 0x80 || third > 0xBF) continue;
    text += vb::FromUtf8(bytes.substr(done, at - done));
    text += static_cast<char16_t>(0xD000U | (second & 0x3FU) << 6U | (third & 0x3FU));
    done = at + HalfBytes;
  }
  return done == 0 ? vb::FromUtf8(bytes) : text + vb::FromUtf8(bytes.substr(done));
}

StoredWord::StoredWord(StringView word) : word_(word) {
  const std::string small = vb::ToUtf8(vb::LCase(word));
  if (IsAscii(small)) plain_ = small;
}

bool StoredWord::IsIn(std::string_view stored) const {
  if (stored.size() < plain_.size()) return false;
  if (!plain_.empty() && HoldsPlain(stored, plain_)) return true;
  if (IsAscii(stored)) return word_.empty() && !stored.empty();
  if (!plain_.empty() && !HoldsOtherPlainLetter(stored)) return false;
  return vb::InStr(FromStored(stored), word_, vb::Compare::Text) > 0;
}

}  // namespace tessel::store
