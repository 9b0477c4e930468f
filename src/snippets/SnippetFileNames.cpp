#include "snippets/SnippetFileNames.h"

#include <string_view>

#include "foundation/DeviceNames.h"

namespace tessel {
namespace {

/// Windows looks at what stands ahead of the first dot.
bool IsDeviceFile(StringView name) {
  return IsDeviceName(vb::Trim(name.substr(0, name.find(u'.'))));
}

}  // namespace

std::string SnippetFileName(const String& name) {
  constexpr std::string_view Refused = "%/\\:*?\"<>|", Digits = "0123456789ABCDEF";
  constexpr std::size_t Longest = 100;
  const std::string text = vb::ToUtf8(name);
  const bool device = IsDeviceFile(name);
  std::string file;
  const auto isInside = [](char unit) {
    return (static_cast<unsigned char>(unit) & 0xC0U) == 0x80U;
  };
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char sign = text[at];
    const auto unit = static_cast<unsigned char>(sign);
    const bool hidden = at == 0 && (device || sign == '.' || sign == '_' || sign == ' ');
    if (unit < ' ' || hidden || Refused.find(sign) != std::string_view::npos) {
      file += {'%', Digits[unit >> 4U], Digits[unit & 15U]};
    } else {
      file += sign;
    }
    // The whole name stands in the file, so a long one may be cut, but not within a character.
    if (file.size() >= Longest && (at + 1 == text.size() || !isInside(text[at + 1]))) break;
  }
  while (!file.empty() && (file.back() == ' ' || file.back() == '.')) file.back() = '_';
  return file.empty() ? "%20" : file;
}

std::string UsedNames::Take(const String& name, const std::string& extension) {
  const std::string plain = SnippetFileName(name);
  std::string file = plain + extension;
  for (int number = 2; !used_.insert(vb::LCase(vb::FromUtf8(file))).second; ++number) {
    file.assign(plain).append(" (").append(std::to_string(number)).append(")").append(extension);
  }
  return file;
}

}  // namespace tessel
