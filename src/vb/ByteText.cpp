#include "vb/ByteText.h"

#include <algorithm>

namespace tessel::vb {
namespace {

unsigned char Byte(char unit) { return static_cast<unsigned char>(unit); }

}  // namespace

std::size_t ReadUtf8(std::string_view bytes, char32_t& point) {
  const unsigned char first = Byte(bytes.front());
  const std::size_t length = first < 0x80                    ? 1
                             : first >= 0xC2 && first < 0xE0 ? 2
                             : first >= 0xE0 && first < 0xF0 ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
  if (length == 0 || bytes.size() < length) return 0;
  point = length == 1 ? first : first & (0xFFU >> (length + 1));
  for (std::size_t at = 1; at < length; ++at) {
    if ((Byte(bytes[at]) & 0xC0) != 0x80) return 0;
    point = (point << 6) | (Byte(bytes[at]) & 0x3FU);
  }
  const bool tooLong = (length == 3 && point < 0x800) || (length == 4 && point < 0x10000);
  const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
  return tooLong || surrogate || point > 0x10FFFF ? 0 : length;
}

String FromBytes(std::string_view bytes) {
  String text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    char32_t point = 0;
    const std::size_t length = ReadUtf8(bytes, point);
    if (length == 0) {
      text += static_cast<char16_t>(ByteEscape + Byte(bytes.front()));
    } else if (point > 0xFFFF) {
      text += static_cast<char16_t>(0xD7C0 + (point >> 10));
      text += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    } else {
      text += static_cast<char16_t>(point);
    }
    bytes.remove_prefix(std::max<std::size_t>(1, length));
  }
  return text;
}

std::string ToBytes(StringView text) {
  std::string bytes;
  bytes.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t at = 0; at <= text.size(); ++at) {
    const bool pair =
        at > 0 && at < text.size() && text[at - 1] >= 0xD800 && text[at - 1] <= 0xDBFF;
    if (at < text.size() && (!IsByteEscape(text[at]) || pair)) continue;
    bytes += ToUtf8(text.substr(start, at - start));
    if (at < text.size()) bytes += static_cast<char>(text[at] - ByteEscape);
    start = at + 1;
  }
  return bytes;
}

}  // namespace tessel::vb
