#include "vb/CodePages.h"

#include <gtest/gtest.h>

#include <set>

namespace tessel::vb {
namespace {

constexpr int Pages[] = {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 932, 65001, 0};

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST(CodePages, EachByteOfEachPageHasACharacterOfItsOwnAndComesBack) {
  const std::string bytes = AllBytes();
  for (const int page : Pages) {
    const String text = TextOfBytes(bytes, page);
    ASSERT_EQ(text.size(), 256U);
    EXPECT_EQ(std::set<char16_t>(text.begin(), text.end()).size(), 256U) << page;
    EXPECT_EQ(BytesOfText(text, page), bytes) << page;
  }
}

TEST(CodePages, CharactersAreThoseOfThePage) {
  EXPECT_EQ(TextOfBytes("\xC6\x80\x41", 1251), u"\u0416\u0402A");
  EXPECT_EQ(TextOfBytes("\xC6\x80\x41", 1252), u"\u00C6\u20ACA");
  EXPECT_EQ(CharacterOfByte(0x81, 1252), u'\x81') << "undefined there";
  EXPECT_EQ(ByteOfCharacter(u'\u0416', 1251), 0xC6);
  EXPECT_EQ(ByteOfCharacter(u'\u0416', 1252), std::nullopt);
  EXPECT_EQ(BytesOfText(u"\u0416A", 1252), "?A");
}

}  // namespace
}  // namespace tessel::vb
