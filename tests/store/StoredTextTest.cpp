#include "store/StoredText.h"

#include <gtest/gtest.h>

#include <random>

#include "store/CellTable.h"

namespace tessel::store {
namespace {

/// Whether the search over stored bytes agrees with the one over the text itself.
void Agree(const String& text, const String& word) {
  const bool wanted = vb::InStr(text, word, vb::Compare::Text) > 0;
  ASSERT_EQ(StoredWord(word).IsIn(ToStored(text)), wanted)
      << vb::ToUtf8(word) << " in " << vb::ToUtf8(text);
}

TEST(StoredText, AWordIsFoundInStoredBytesWhereTheTextHoldsIt) {
  std::mt19937 random(20240902);
  // Few letters, so that words are found; among them such as are alike only by folding: the sign of
  // kelvin, dotted and dotless i, long s, half a pair.
  const String letters = u"abkisABKIS@`[{ \r\u00e4\u00c4\u0130\u0131\u017f\u212a\u20ac\xd83d\xde00";
  const auto any = [&](std::size_t length, std::size_t kinds) {
    String text;
    while (text.size() < length) text += letters[random() % kinds];
    return text;
  };
  const std::size_t plain = letters.find(u'\u00e4');
  for (int round = 0; round < 20000; ++round) {
    const std::size_t kinds = round % 3 == 0 ? plain : letters.size();
    const String word = any(random() % 4, random() % 2 == 0 ? plain : letters.size());
    const String text = any(random() % 90, kinds);
    Agree(text, word);
    Agree(text + word, word);
  }
}

TEST(StoredText, AWordAtEitherEndOfALongTextIsFound) {
  for (const std::size_t length : {30U, 31U, 32U, 33U, 63U, 64U, 65U, 1000U}) {
    const String filling(length, u'e');
    Agree(u"Needle" + filling, u"nEEDLE");
    Agree(filling + u"Needle", u"nEEDLE");
    Agree(filling + u"Needl", u"needle");
    Agree(filling + u"N", u"n");
  }
}

TEST(StoredText, NothingIsFoundInNoText) {
  Agree(u"", u"");
  Agree(u"", u"a");
  Agree(u"a", u"");
  Agree(u"\u00e4", u"");
}

TEST(CellTable, CellsComeBackAsTheyWentIn) {
  const std::vector<Value> values{Null{},
                                  true,
                                  false,
                                  std::int64_t{-5},
                                  std::int64_t{1} << 40,
                                  0.5,
                                  String(u"a\xd83d\xde00\xd83d"),
                                  String()};
  CellTable cells;
  for (const Value& value : values) cells.Add(value);
  ASSERT_EQ(cells.Size(), values.size());
  for (std::size_t at = 0; at < values.size(); ++at) EXPECT_EQ(cells.At(at), values[at]);
  EXPECT_EQ(cells.StoredText(6), "a\xF0\x9F\x98\x80\xED\xA0\xBD");
  EXPECT_EQ(cells.StoredText(3), "");
}

TEST(CellTable, ACellTakesAnotherValueAndTheOthersStay) {
  CellTable cells;
  for (const StringView text : {u"one", u"two", u"three"}) cells.Add(String(text));
  cells.Set(1, String(u"a longer one"));
  cells.Set(2, Null{});
  EXPECT_EQ(cells.At(0), Value(String(u"one")));
  EXPECT_EQ(cells.At(1), Value(String(u"a longer one")));
  EXPECT_EQ(cells.At(2), Value(Null{}));
  cells.SetWhole(0, 7);
  EXPECT_EQ(cells.At(0), Value(std::int64_t{7}));
  EXPECT_EQ(cells.Size(), 3U);
  cells.Clear();
  EXPECT_EQ(cells.Size(), 0U);
}

}  // namespace
}  // namespace tessel::store
