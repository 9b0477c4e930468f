#include "vb/ByteText.h"

#include <gtest/gtest.h>

#include "vb/Failure.h"

namespace tessel::vb {
namespace {

TEST(ByteText, GivesEveryByteBack) {
  std::string all;
  for (int high = 0; high < 256; ++high) {
    for (int low = 0; low < 256; low += 5) {
      all += {static_cast<char>(high), static_cast<char>(low)};
    }
  }
  EXPECT_EQ(ToBytes(FromBytes(all)), all);
}

TEST(ByteText, IsUtf8WhereTheBytesAre) {
  const std::string text = "a \xC3\xBC \xE2\x82\xAC \xF0\x9F\x99\x82";
  EXPECT_EQ(FromBytes(text), u"a \u00FC \u20AC \U0001F642");
  EXPECT_EQ(ToBytes(u"a \u00FC \u20AC \U0001F642"), text);
}

TEST(ByteText, TakesNoByteOfATooLongOrSplitCharacter) {
  EXPECT_EQ(FromBytes("\xC0\x80"), String({0xDCC0, 0xDC80})) << "NUL in two bytes";
  EXPECT_EQ(FromBytes("\xED\xA0\x80"), String({0xDCED, 0xDCA0, 0xDC80})) << "a surrogate";
  EXPECT_EQ(FromBytes("\xE2\x82"), String({0xDCE2, 0xDC82})) << "cut off";
}

TEST(ByteText, LeavesTheHalvesOfACharacterTogether) {
  // The second half of this pair would stand for a byte if it were alone.
  const String pair{0xD83D, 0xDC81};
  EXPECT_EQ(ToBytes(pair), "\xF0\x9F\x92\x81");
  EXPECT_EQ(FromBytes(ToBytes(pair)), pair);
}

TEST(ByteText, IsWhatAFailureSaysOfAFile) {
  EXPECT_STREQ(Failure(5, FromBytes("M\xFC.bas: gone")).what(), "M\xFC.bas: gone");
}

}  // namespace
}  // namespace tessel::vb
