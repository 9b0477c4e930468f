#include "vb/Text.h"

#include <gtest/gtest.h>

#include "vb/Dates.h"
#include "vb/Failure.h"

namespace tessel::vb {
namespace {

TEST(InStr, CountsFromOneAndAnswersZero) {
  EXPECT_EQ(InStr(u"abc", u"b"), 2U);
  EXPECT_EQ(InStr(u"abc", u"x"), 0U);
  EXPECT_EQ(InStr(3, u"abcb", u"b"), 4U);
  EXPECT_EQ(InStr(5, u"abc", u"b"), 0U);
  EXPECT_EQ(InStr(u"aBc", u"b"), 0U);
  EXPECT_EQ(InStr(u"aBc", u"b", Compare::Text), 2U);
  EXPECT_EQ(InStr(u"\u0416x", u"\u0436X", Compare::Text), 1U);
  // The capital of the dotless i is that of the plain one: the two letters are none the less
  // others.
  EXPECT_EQ(InStr(u"Ix", u"\u0131x", Compare::Text), 0U);
  EXPECT_EQ(InStr(u"\u0131x", u"\u0131X", Compare::Text), 1U);
  EXPECT_THROW(static_cast<void>(InStr(0, u"a", u"a")), Failure);
  EXPECT_EQ(InStrRev(u"a_b_c", u"_"), 4U);
}

TEST(Trim, TakesBlanksOnly) {
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(Trim(u"\ta\t"), u"\ta\t");
  EXPECT_EQ(Trim(u"\u00A0a"), u"\u00A0a");
  EXPECT_EQ(Trim(u"   "), u"");
}

TEST(Mid, IsEmptyBehindTheEndAndFailsAtZero) {
  EXPECT_EQ(Mid(u"abc", 2), u"bc");
  EXPECT_EQ(Mid(u"abc", 2, 1), u"b");
  EXPECT_EQ(Mid(u"abc", 4), u"");
  EXPECT_EQ(Left(u"abc", 9), u"abc");
  EXPECT_EQ(Right(u"abc", 2), u"bc");
  EXPECT_THROW(static_cast<void>(Mid(u"abc", 0)), Failure);
}

TEST(Split, GivesNoPieceOfEmptyText) {
  EXPECT_TRUE(Split(u"", u",").empty());
  EXPECT_EQ(Split(u"a,,b,", u","), (std::vector<String>{u"a", u"", u"b", u""}));
  EXPECT_EQ(Join(std::vector<String>{u"a", u"", u"b"}, u"|"), u"a||b");
}

TEST(Replace, GoesFromLeftToRight) {
  EXPECT_EQ(Replace(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(Replace(u"aBa", u"b", u"-", Compare::Text), u"a-a");
  EXPECT_EQ(Replace(u"abc", u"", u"x"), u"abc");
}

TEST(Repeat, FailsForANegativeCount) {
  EXPECT_EQ(Space(3), u"   ");
  EXPECT_THROW(static_cast<void>(Repeat(-1, u'\r')), Failure);
}

TEST(Utf8, GoesBothWaysAndMarksDamage) {
  EXPECT_EQ(ToUtf8(FromUtf8("a\xC3\xA9\xF0\x9F\x98\x80")), "a\xC3\xA9\xF0\x9F\x98\x80");
  EXPECT_EQ(FromUtf8("\xFF"
                     "a"),
            u"\uFFFDa");
  EXPECT_EQ(ToUtf8(String(1, char16_t{0xD800})), "\xEF\xBF\xBD");
}

TEST(Utf8, LongRunsOfPlainLettersKeepTheirPlaces) {
  const String other = u"\u00E9\u20AC\xD83D\xDE00";
  for (std::size_t ahead = 0; ahead < 40; ++ahead) {
    String text;
    for (std::size_t at = 0; at < ahead; ++at) text += static_cast<char16_t>(u'a' + at % 26);
    const String whole = text + other + text + other;
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
    EXPECT_EQ(FromUtf8(ToUtf8(whole)), whole);
    EXPECT_EQ(FromUtf8(ToUtf8(text) + "\xC3" + ToUtf8(text)), text + u"\uFFFD" + text);
  }
}

TEST(FormatDateTime, HasAFixedForm) {
  const Date date{2026, 11, 21, 14, 5, 9};
  EXPECT_EQ(FormatDateTime(date), u"2026-11-21 14:05:09");
  EXPECT_EQ(FormatDateTime(DatePart(date)), u"2026-11-21");
  EXPECT_EQ(FormatDateTime(TimePart(date)), u"14:05:09");
  EXPECT_EQ(FormatDateTime(date, DateFormat::ShortTime), u"14:05");
  EXPECT_EQ(FormatDateTime(date, DateFormat::LongDate), u"Saturday, 21 November 2026");
}

}  // namespace
}  // namespace tessel::vb
