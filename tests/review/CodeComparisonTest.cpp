#include "hosts/review/CodeComparison.h"

#include <gtest/gtest.h>

#include "hosts/review/CodeTokens.h"

namespace tessel::review {
namespace {

/// Line and cause.
using Told = std::pair<int, std::string>;

std::vector<Told> TellAll(const std::vector<Difference>& differences) {
  std::vector<Told> told;
  for (const Difference& one : differences) told.emplace_back(one.Line, one.Cause);
  return told;
}

struct Case {
  const char* Name;
  StringView Before, After;
  std::vector<Told> Expected;
};

void PrintTo(const Case& one, std::ostream* out) { *out << one.Name; }

class CompareCodeCases : public testing::TestWithParam<Case> {};

TEST_P(CompareCodeCases, TellsWhatIsMoreThanLayout) {
  EXPECT_EQ(TellAll(CompareCode(GetParam().Before, GetParam().After)), GetParam().Expected);
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
    {"CommentBelowASingleLineIf",
     u"If a Then b = 1 ' note\r\nc",
     u"If a Then b = 1\r\n' note\r\nc",
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
  EXPECT_EQ(found[1].LineAfter, 4);
}

TEST(CompareCode, TellsAtMostAsManyAsAsked) {
  EXPECT_EQ(CompareCode(u"10\r\na = 1\r\nb = 2\r\nc = 3\r\n20\r\nd = 4",
                        u"a = 1\r\nb = 2\r\nc = 3\r\nd = 4", 1)
                .size(),
            1U);
}

class CompareHandlersCases : public testing::TestWithParam<Case> {};

TEST_P(CompareHandlersCases, TellsWhatIsMoreThanAHandler) {
  EXPECT_EQ(TellAll(CompareHandlers(GetParam().Before, GetParam().After)), GetParam().Expected);
}

const Case HandlerCases[] = {
    {"Dressed",
     u"Sub A()\r\n  x = 1\r\nEnd Sub",
     u"'errMarker: S\r\nSub A()\r\n'<errHeader>\r\nOn Error GoTo Failed\r\n'</errHeader>\r\n"
     u"100 x = 1\r\n'<errFooter>\r\nExit Sub\r\nFailed:\r\n'</errFooter>\r\nEnd Sub",
     {}},
    {"Undressed",
     u"Sub A()\r\n    '<ERRHEADER>\r\nOn Error GoTo F\r\n'</errHeader>\r\n100 x = 1\r\nEnd Sub",
     u"Sub A()\r\nx = 1\r\nEnd Sub",
     {}},
    {"FooterBehindASingleLineIf",
     u"Sub A()\r\nIf x Then y = 1\r\nEnd Sub",
     u"Sub A()\r\nIf x Then y = 1\r\n'<errFooter>\r\nExit Sub\r\n'</errFooter>\r\nEnd Sub",
     {}},
    {"TargetOfOnError", u"On Error GoTo 0\r\nx", u"On Error GoTo Failed\r\nx", {}},
    {"NumberThatNobodyRefersTo", u"10 x = 1", u"   x = 1", {}},
    {"NumberOfAJump",
     u"Sub A()\r\nGoTo 10\r\n10 x = 1\r\nEnd Sub",
     u"Sub A()\r\nGoTo 10\r\n   x = 1\r\nEnd Sub",
     {{3, "the line number 10, which a jump or Erl refers to, is lost"}}},
    {"SecondNumberOfAJump",
     u"On n GoTo 10, 20\r\n20 x = 1",
     u"On n GoTo 10, 20\r\nx = 1",
     {{2, "the line number 20, which a jump or Erl refers to, is lost"}}},
    {"NumberThatMoves",
     u"Sub A()\r\nResume 10\r\n10 x = 1\r\nEnd Sub",
     u"Sub A()\r\n100 Resume 10\r\n110 x = 1\r\nEnd Sub",
     {{3, "the line number 10, which a jump or Erl refers to, becomes 110"}}},
    {"NumberThatErlIsComparedWith",
     u"10 x = 1\r\nIf Erl = 10 Then y = 2",
     u"x = 1\r\nIf Erl = 10 Then y = 2",
     {{1, "the line number 10, which a jump or Erl refers to, is lost"}}},
    {"NumberInASelectOfErl",
     u"10 x = 1\r\nSelect Case Erl\r\nCase 10\r\ny = 2\r\nEnd Select",
     u"x = 1\r\nSelect Case Erl\r\nCase 10\r\ny = 2\r\nEnd Select",
     {{1, "the line number 10, which a jump or Erl refers to, is lost"}}},
    {"NumberThatAnotherMemberJumpsTo",
     u"Sub A()\r\nGoTo 20\r\n20 x = 1\r\nEnd Sub\r\nSub B()\r\n20 x = 1\r\nEnd Sub",
     u"Sub A()\r\nGoTo 20\r\n20 x = 1\r\nEnd Sub\r\nSub B()\r\nx = 1\r\nEnd Sub",
     {}},
    {"NumberThatStays", u"GoTo 100\r\n100 x = 1", u"GoTo 100\r\n100 x = 1", {}},
    {"NumberAloneOnItsLine",
     u"x = 1\r\n10\r\ny = 2\r\nz = 3",
     u"100 x = 1\r\n110 10\r\n120 y = 2\r\n130 z = 3",
     {{2, "the line number 10 is lost"}}},
    {"NumberAheadOfAContinuation",
     u"x = _\r\n5 + y\r\nz = 1",
     u"x = _\r\n  + y\r\nz = 1",
     {{2, "a continuation line loses the number 5 at its head"}}},
    {"NumberAheadOfTheFirstCase",
     u"Select Case x\r\n' note\r\nCase 1\r\nCase 2\r\nEnd Select",
     u"100 Select Case x\r\n' note\r\n110 Case 1\r\n120 Case 2\r\nEnd Select",
     {{3, "the number 110 stands ahead of the first Case"}}},
    {"NumberAheadOfADirective",
     u"#If W Then\r\nx = 1\r\n#End If",
     u"100 #If W Then\r\nx = 1\r\n#End If",
     {{1, "the number 100 stands ahead of a directive"}}},
    {"HandlerBehindAMemberOnOneLine",
     u"Property Get A(): x = 1: End Property\r\nSub B()\r\nEnd Sub",
     u"Property Get A(): x = 1: End Property\r\n'<errHeader>\r\nx\r\n'</errHeader>\r\nSub "
     u"B()\r\nEnd Sub",
     {{1, "A stands on one line, so its error handler stands behind it"}}},
    {"HandlerWithoutItsLabel",
     u"Declare Sub D Lib \"d\" ()\r\n#If V Then\r\nPrivate Sub A(x)\r\n#Else\r\nSub A(y)\r\n#End "
     u"If\r\nz = 1\r\nEnd Sub",
     u"Declare Sub D Lib \"d\" ()\r\n#If V Then\r\nPrivate Sub A(x)\r\n'<errHeader>\r\nOn Error "
     u"GoTo A_Error\r\n'</errHeader>\r\n"
     u"#Else\r\nSub A(y)\r\n#End If\r\nz = 1\r\nEnd Sub",
     {{3, "the error handler of A jumps to A_Error, a label that isn't there"}}},
    {"HandlerWithoutItsLabelBefore",
     u"Sub A()\r\n'<errHeader>\r\nOn Error GoTo Q\r\n'</errHeader>\r\n x = 1\r\nEnd Sub",
     u"Sub A()\r\n'<errHeader>\r\nOn Error GoTo Q\r\n'</errHeader>\r\nx = 1\r\nEnd Sub",
     {}},
    {"HandlerWithALabelInTheBody",
     u"Sub A()\r\nx = 1\r\nQ:\r\nEnd Sub",
     u"Sub A()\r\n'<errHeader>\r\nOn Error GoTo Q\r\n'</errHeader>\r\nx = 1\r\nQ:\r\nEnd Sub",
     {}},
    {"MarkerInAText",
     u"x = \"'<errFooter>\"\r\ny = 2\r\nEnd Sub",
     u"x\r\n",
     {{1, "a statement is broken ahead of \"=\""}}},
    {"BlockThatIsNotClosed",
     u"Sub A()\r\n'<errHeader>\r\nx = 1\r\nEnd Sub",
     u"Sub A()\r\n",
     {{2, "the comment '<errHeader> moves or is lost"}, {3, "\"x\" is lost"}}},
    {"CommentThatLosesANumber",
     u"' one _\r\n10 two",
     u"' one _\r\n   two",
     {{1, "the comment ' one 10 two becomes the comment ' one two"}}},
};

INSTANTIATE_TEST_SUITE_P(Table, CompareHandlersCases, testing::ValuesIn(HandlerCases),
                         [](const auto& one) { return std::string(one.param.Name); });

TEST(JumpTargets, KnowsEveryNameOfAList) {
  EXPECT_EQ(JumpTargets(u"On n GoTo one, Two\r\nOn Error GoTo Fail: Resume Done"),
            (std::set<String>{u"ONE", u"TWO", u"FAIL", u"DONE", u","}));
}

}  // namespace
}  // namespace tessel::review
