#include "hosts/batch/CodeTokens.h"

#include <gtest/gtest.h>

namespace tessel::batch {
void PrintTo(const Difference& difference, std::ostream* out) {
  *out << difference.Line << ": " << difference.Cause;
}

namespace {

struct Case {
  const char* Name;
  StringView Before, After;
  std::vector<Difference> Expected;
};

void PrintTo(const Case& one, std::ostream* out) { *out << one.Name; }

class CompareCodeCases : public testing::TestWithParam<Case> {};

TEST_P(CompareCodeCases, TellsWhatIsMoreThanLayout) {
  EXPECT_EQ(CompareCode(GetParam().Before, GetParam().After), GetParam().Expected);
}

const Case Cases[] = {
    {"Equal", u"x = 1\r\n", u"x = 1\r\n", {}},
    {"Indent", u"x = 1\r\n", u"    x  =  1\r\n", {}},
    {"BlankLines", u"a\r\n\r\n\r\nb", u"a\r\nb\r\n", {}},
    {"LoneCarriageReturns", u"a\r\nb", u"\r\ra\r\nb\r\n", {}},
    {"Continuation", u"a = b _\r\n    + c", u"a = b + c", {}},
    {"ContinuedComment", u"' one _\r\n    two", u"' one two", {}},
    {"StatementsOnALine", u"a = 1: b = 2", u"a = 1\r\nb = 2", {}},
    {"CommentMovesToALineOfItsOwn", u"a = 1 ' note\r\nb", u"a = 1\r\n' note\r\nb", {}},
    {"LabelAlone", u"Foo:\r\nx", u"Foo:\r\nx", {}},
    {"LabelThatIsJumpedTo", u"GoTo Foo\r\nFoo: x = 1", u"GoTo Foo\r\nFoo:\r\nx = 1", {}},
    {"LineNumberKept", u"10 x = 1", u"10  x = 1", {}},
    {"LoneLineNumber", u"x\r\n10\r\ny", u"x\r\n\r\ny", {{2, "the line number 10 is lost"}}},
    {"WordAheadOfAColon",
     u"Beep: DoEvents",
     u"Beep:\r\nDoEvents",
     {{1, "the word Beep ahead of a colon becomes a label"}}},
    {"SingleLineIf",
     u"If a Then b = 1: c = 2",
     u"If a Then b = 1\r\nc = 2",
     {{1, "statements behind Then leave the If of their line"}}},
    {"DateWithColons",
     u"d = #10:30:00 AM#",
     u"d = #10\r\n30\r\n00 AM#",
     {{1, "\"#10:30:00 AM#\" becomes \"#\""}}},
    {"Remark",
     u"Rem x: y",
     u"Rem x\r\ny",
     {{1, "\"y\" is new"}, {1, "the comment Rem x: y becomes the comment Rem x"}}},
    {"BrokenStatement",
     u"a = b + c",
     u"a = b\r\n+ c",
     {{1, "a statement is broken ahead of \"+\""}}},
    {"NamedArgument", u"Foo a:=1: b", u"Foo a:=1\r\nb", {}},
    {"BlockIfWithComment",
     u"If a Then ' note\r\nb\r\nEnd If",
     u"If a Then\r\n' note\r\nb\r\nEnd If",
     {}},
    {"TextsAreNotLayout",
     u"a = \"x  y\"",
     u"a = \"x y\"",
     {{1, "\"\"x  y\"\" becomes \"\"x y\"\""}}},
};

INSTANTIATE_TEST_SUITE_P(Table, CompareCodeCases, testing::ValuesIn(Cases),
                         [](const auto& one) { return std::string(one.param.Name); });

TEST(CompareCode, GoesOnBehindADifference) {
  const auto found = CompareCode(u"10\r\na = 1\r\nb = 2\r\nc = 3\r\n20\r\nd = 4",
                                 u"a = 1\r\nb = 2\r\nc = 3\r\nd = 4");
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].Line, 1);
  EXPECT_EQ(found[1].Line, 5);
}

TEST(JumpTargets, KnowsEveryNameOfAList) {
  EXPECT_EQ(JumpTargets(u"On n GoTo one, Two\r\nOn Error GoTo Fail: Resume Done"),
            (std::set<String>{u"ONE", u"TWO", u"FAIL", u"DONE", u","}));
}

}  // namespace
}  // namespace tessel::batch
