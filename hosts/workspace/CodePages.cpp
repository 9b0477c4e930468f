#include "hosts/workspace/CodePages.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <unordered_map>

#include "vb/ByteText.h"
#include "vb/CodePages.h"
#include "vb/Failure.h"

namespace tessel::workspace {
namespace {

unsigned char Byte(char unit) { return static_cast<unsigned char>(unit); }
char16_t Escaped(char unit) { return static_cast<char16_t>(vb::ByteEscape + Byte(unit)); }

// Code pages of one and two bytes

/// What the bytes of a code page stand for, both ways.
struct Table {
  std::array<char16_t, 256> Single{};  // 0 for a byte that leads a pair or stands for nothing
  std::array<bool, 256> Lead{};
  std::unordered_map<std::uint16_t, char16_t> Pairs;
  std::unordered_map<char16_t, std::string> Bytes;
};

void AddSingle(Table& table, unsigned char byte, char16_t character) {
  table.Single[byte] = character;
  table.Bytes.try_emplace(character, 1, static_cast<char>(byte));
}

Table SingleByteTable(int codePage) {
  Table table;
  for (unsigned number = 0x80; number < 0x100; ++number) {
    const auto byte = static_cast<unsigned char>(number);
    AddSingle(table, byte, vb::CharacterOfByte(byte, codePage));
  }
  return table;
}

/// One conversion of the system's library, from a code page to UTF-16.
class Converter {
 public:
  explicit Converter(int codePage)
      : handle_(iconv_open("UTF-16LE", ("CP" + std::to_string(codePage)).c_str())) {
    if (handle_ == reinterpret_cast<iconv_t>(-1)) {
      throw vb::Failure(vb::InvalidCall, u"The system can't read code page " + vb::Str(codePage),
                        u"Tessel");
    }
  }
  ~Converter() { iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// The one character that the bytes stand for, 0 for none.
  char16_t Convert(std::string bytes) {
    char16_t out[2] = {};
    char* from = bytes.data();
    char* to = reinterpret_cast<char*>(out);
    std::size_t left = bytes.size(), room = sizeof out;
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    const std::size_t result = iconv(handle_, &from, &left, &to, &room);
    const bool one = result == 0 && left == 0 && room == sizeof out - sizeof out[0];
    return one ? out[0] : u'\0';
  }

 private:
  iconv_t handle_;
};

Table DoubleByteTable(int codePage) {
  Table table;
  Converter converter(codePage);
  for (unsigned byte = 0x80; byte < 0x100; ++byte) {
    const char16_t character = converter.Convert(std::string(1, static_cast<char>(byte)));
    if (character != 0) AddSingle(table, static_cast<unsigned char>(byte), character);
  }
  for (unsigned lead = 0x81; lead < 0xFF; ++lead) {
    if (table.Single[lead] != 0) continue;
    for (unsigned trail = 0x40; trail < 0xFF; ++trail) {
      const std::string pair{static_cast<char>(lead), static_cast<char>(trail)};
      const char16_t character = converter.Convert(pair);
      if (character == 0) continue;
      table.Lead[lead] = true;
      // Of two pairs for one character only the first is written, so the other is kept as bytes.
      if (!table.Bytes.try_emplace(character, pair).second) continue;
      table.Pairs.emplace(static_cast<std::uint16_t>(lead << 8 | trail), character);
    }
  }
  return table;
}

bool IsDoubleByte(int codePage) {
  return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950;
}

const Table& TableOf(int codePage) {
  static std::map<int, std::unique_ptr<Table>> tables;
  auto& table = tables[codePage];
  if (!table) {
    table = std::make_unique<Table>(IsDoubleByte(codePage) ? DoubleByteTable(codePage)
                                                           : SingleByteTable(codePage));
  }
  return *table;
}

String DecodeByTable(std::string_view bytes, const Table& table) {
  String text(bytes.size(), u'\0');
  char16_t* out = text.data();
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const unsigned char byte = Byte(bytes[at]);
    if (byte < 0x80) {
      *out++ = byte;
    } else if (table.Lead[byte] && at + 1 < bytes.size()) {
      const auto pair = static_cast<std::uint16_t>(byte << 8 | Byte(bytes[at + 1]));
      const auto found = table.Pairs.find(pair);
      *out++ = found != table.Pairs.end() ? found->second : Escaped(bytes[at]);
      if (found != table.Pairs.end()) ++at;
    } else {
      *out++ = table.Single[byte] != 0 ? table.Single[byte] : Escaped(bytes[at]);
    }
  }
  text.resize(static_cast<std::size_t>(out - text.data()));
  return text;
}

std::optional<std::string> EncodeByTable(StringView text, const Table& table, std::size_t& at) {
  // No character takes more than two bytes.
  std::string bytes(2 * text.size(), '\0');
  char* out = bytes.data();
  for (at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (unit < 0x80) {
      *out++ = static_cast<char>(unit);
    } else if (vb::IsByteEscape(unit)) {
      *out++ = static_cast<char>(unit - vb::ByteEscape);
    } else {
      const auto found = table.Bytes.find(unit);
      if (found == table.Bytes.end()) return std::nullopt;
      out = std::copy(found->second.begin(), found->second.end(), out);
    }
  }
  bytes.resize(static_cast<std::size_t>(out - bytes.data()));
  return bytes;
}

}  // namespace

bool IsKnownCodePage(int codePage) {
  return codePage == Utf8CodePage || IsDoubleByte(codePage) || vb::IsSingleByteCodePage(codePage);
}

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char unit) { return Byte(unit) < 0x80; });
}

String Decode(std::string_view bytes, int codePage) {
  if (codePage == Utf8CodePage) return vb::FromBytes(bytes);
  return DecodeByTable(bytes, TableOf(codePage));
}

std::optional<std::string> Encode(StringView text, int codePage, std::size_t& at) {
  if (codePage == Utf8CodePage) return vb::ToBytes(text);
  return EncodeByTable(text, TableOf(codePage), at);
}

}  // namespace tessel::workspace
