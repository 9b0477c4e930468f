#include "vb/Numbers.h"

#include <gtest/gtest.h>

#include "vb/Failure.h"

namespace tessel::vb {
namespace {

struct NumericCase {
  StringView Text;
  bool Numeric;
};

TEST(IsNumeric, AnswersByTheTable) {
  const NumericCase cases[] = {
      {u"1e5", true},   {u"1E+5", true},   {u"1d2", true},    {u"&HFF", true}, {u"&O17", true},
      {u"&hff&", true}, {u"1.", true},     {u".5", true},     {u" 12 ", true}, {u"1,000", true},
      {u"-5", true},    {u"5-", true},     {u"+5", true},     {u"(5)", true},  {u"$5", true},
      {u"5$", true},    {u"-$5", true},    {u"\t7", true},    {u"", false},    {u"+", false},
      {u"-", false},    {u".", false},     {u"1:2", false},   {u"1e", false},  {u"&H", false},
      {u"1 2", false},  {u"1_000", false}, {u"1e400", false}, {u"--5", false}, {u"-5-", false},
      {u"(5", false},   {u"abc", false},   {u"1.2.3", false}, {u"&HG", false}, {u"5x", false},
      {u"Sub", false},  {u"10", true},     {u"1,5", true},    {u"&", false},   {u"$", false}};
  for (const NumericCase& one : cases)
    EXPECT_EQ(IsNumeric(one.Text), one.Numeric) << ToUtf8(one.Text);
}

struct ValCase {
  StringView Text;
  double Value;
};

TEST(Val, ReadsTheNumberAtTheHead) {
  const ValCase cases[] = {{u"", 0},
                           {u"12abc", 12},
                           {u" 1 2 3", 123},
                           {u"1.5.2", 1.5},
                           {u"-7", -7},
                           {u"+7", 7},
                           {u"1e3", 1000},
                           {u"1e", 1},
                           {u"2d2x", 200},
                           {u"&HFF", 255},
                           {u"&HFFFF", -1},
                           {u"&O17", 15},
                           {u"1,000", 1},
                           {u"abc", 0},
                           {u".5", 0.5},
                           {u"6.00", 6},
                           {u"\t4\r\n2", 42},
                           {u"8.25", 8.25},
                           {u"-8.25e-1", -.825},
                           {u"1e-400", 0},
                           {u"-0.0001e-399", 0}};
  for (const ValCase& one : cases) EXPECT_DOUBLE_EQ(Val(one.Text), one.Value) << ToUtf8(one.Text);
}

TEST(Val, FailsForANumberThatIsTooLarge) {
  for (const StringView text : {u"1e309", u"-1e400", u"1e99999999999999999999"}) {
    EXPECT_THROW(static_cast<void>(Val(text)), Failure) << ToUtf8(text);
  }
  EXPECT_THROW(static_cast<void>(Val(String(400, u'9') + u"e-10")), Failure);
  EXPECT_DOUBLE_EQ(Val(String(400, u'9') + u"e-398"), 100);
  EXPECT_DOUBLE_EQ(Val(u"." + String(400, u'0') + u"1e402"), 10);
}

TEST(CLng, RoundsHalvesToEvenAndFailsOutside) {
  EXPECT_EQ(CLng(u"2.5"), 2);
  EXPECT_EQ(CLng(u"3.5"), 4);
  EXPECT_EQ(CLng(u"-2.5"), -2);
  EXPECT_EQ(CLng(u"2147483647"), 2147483647);
  EXPECT_THROW(static_cast<void>(CLng(u"2147483648")), Failure);
  EXPECT_THROW(static_cast<void>(CLng(u"x")), Failure);
}

TEST(NumberText, LeavesTheZeroAheadOfThePointOut) {
  EXPECT_EQ(NumberText(0.5), u".5");
  EXPECT_EQ(NumberText(-0.25), u"-.25");
  EXPECT_EQ(NumberText(12), u"12");
}

}  // namespace
}  // namespace tessel::vb
