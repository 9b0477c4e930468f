#include "hosts/model/Statements.h"

#include <gtest/gtest.h>

namespace tessel::model {
namespace {

struct LineCase {
  StringView Line;
  /// "d" for a declaring statement, "e" for an end ahead of a head, "NAME/kind" for a head, "E" for
  /// an end behind it.
  StringView Expected;
};

String Facts(StringView line) {
  const LineFacts facts = ReadLine(line);
  String text;
  const auto add = [&](bool holds, StringView word) {
    if (!holds) return;
    if (!text.empty()) text += u" ";
    text += word;
  };
  add(facts.Declares, u"d");
  add(facts.EndFirst, u"e");
  add(facts.Head, facts.Name + u"/" + vb::Str(static_cast<int>(facts.Kind)));
  add(facts.End, u"E");
  return text;
}

void Check(std::initializer_list<LineCase> cases) {
  for (const LineCase& one : cases)
    EXPECT_EQ(Facts(one.Line), one.Expected) << vb::ToUtf8(one.Line);
}

TEST(Statements, FindsNothingInBlankAndCommentLines) {
  Check({{u"", u""},
         {u" \t ", u""},
         {u"\u00A0\u3000", u""},
         {u"' Sub A()", u""},
         {u"   ' x: End Sub", u""},
         {u"Rem", u""},
         {u"REM End Sub", u""},
         {u"rem x: Sub A()", u""},
         {u"Rem: Sub A()", u""},
         {u"Rem* Sub A()", u""},
         {u"10 Rem Sub A()", u""}});
}

TEST(Statements, KnowsTheHeadsOfAllKinds) {
  Check({{u"Sub A()", u"d A/0"},
         {u"Function A() As Long", u"d A/0"},
         {u"Property Let A(v)", u"d A/1"},
         {u"Property Set A(v)", u"d A/2"},
         {u"Property Get A()", u"d A/3"},
         {u"pRiVaTe sTaTiC pRoPeRtY   gEt\tA", u"d A/3"},
         {u"Static Friend Sub A", u"d A/0"},
         {u"Global Sub A()", u"d A/0"},
         {u"\tPublic Function A()", u"d A/0"}});
}

TEST(Statements, ReadsEveryFormOfAName) {
  Check({{u"Function A$()", u"d A/0"},
         {u"Function A% ()", u"d A/0"},
         {u"Function A@", u"d A/0"},
         {u"Sub Command1_Click()", u"d Command1_Click/0"},
         {u"Sub [Sub]()", u"d Sub/0"},
         {u"Sub [a: b]()", u"d a: b/0"},
         {u"Sub \u00C4rger()", u"d \u00C4rger/0"},
         {u"Sub \u6570\u636E()", u"d \u6570\u636E/0"},
         {u"Sub As_If()", u"d As_If/0"},
         {u"Sub Ass()", u"d Ass/0"},
         {u"Sub [As]()", u"d As/0"}});
}

TEST(Statements, TakesNoOtherStatementForAHead) {
  Check({{u"Declare Sub A Lib \"k\" ()", u"d"},
         {u"Private Declare Function A Lib \"k\" () As Long", u"d"},
         {u"Event A()", u"d"},
         {u"Public Event Sub_A()", u"d"},
         {u"Exit Sub", u"d"},
         {u"Exit Function", u"d"},
         {u"Exit Property", u"d"},
         {u"Subs A", u"d"},
         {u"Functional = 1", u"d"},
         {u"Sub_A", u"d"},
         {u"Property.Value = 1", u"d"},
         {u"Property = 1", u"d"},
         {u"Public A As Long", u"d"},
         {u"Sub", u"d"},
         {u"Sub ()", u"d"},
         {u"x = \"Sub A()\"", u"d"},
         {u"x = \"a: Sub A()\"", u"d"},
         {u"x = \"\"\": Sub A()\"", u"d"},
         {u"#If Sub Then", u"d"}});
}

TEST(Statements, TakesAFieldOfATypeForNoHead) {
  Check({{u"Function As Long", u"d"}, {u"  sub  AS String * 5", u"d"}, {u"Sub as", u"d"}});
}

TEST(Statements, FindsHeadsBehindNumbersLabelsAndColons) {
  Check({{u"10 Sub A()", u"d A/0"},
         {u"10: Sub A()", u"d A/0"},
         {u"again: Sub A()", u"d A/0"},
         {u"x = 1: : Private Sub A()", u"d A/0"},
         {u"Call B(x:=1): Sub A()", u"d A/0"},
         {u"d = #10:20:30 AM#: Sub A()", u"d A/0"}});
}

TEST(Statements, FindsTheEndAmongTheStatementsOfALine) {
  Check({{u"End Sub", u"d e"},
         {u"  end \t function ' done", u"d e"},
         {u"End Property", u"d e"},
         {u"x = 1: End Sub", u"d e"},
         {u"20 End Sub", u"d e"},
         {u"20: End Sub", u"d e"},
         {u"done: End Sub: Rem x", u"d e"},
         {u"Sub A(): x = 1: End Sub", u"d A/0 E"},
         {u"Property Get A(): End Property", u"d A/3 E"},
         {u"End Sub: Sub A()", u"d e A/0"}});
}

TEST(Statements, TakesNoOtherStatementForAnEnd) {
  Check({{u"End", u"d"},
         {u"End If", u"d"},
         {u"End Type", u"d"},
         {u"End With: x = 1", u"d"},
         {u"EndSub", u"d"},
         {u"x.End Sub", u"d"},
         {u"x = \": End Sub\"", u"d"},
         {u"x = 1 ' : End Sub", u"d"},
         {u"x = 1: Rem : End Sub", u"d"},
         {u"x = \"open: End Sub", u"d"},
         {u"x = [a: End Sub]", u"d"},
         {u"End Subs", u"d"}});
}

TEST(Statements, GoesOnBehindABracketThatNothingCloses) { Check({{u"x = a[1: End Sub", u"d e"}}); }

TEST(Statements, KnowsAContinuedLine) {
  EXPECT_TRUE(IsContinued(u"Sub A( _"));
  EXPECT_TRUE(IsContinued(u"x\t_"));
  EXPECT_TRUE(IsContinued(u"' comments go on as well _"));
  EXPECT_TRUE(IsContinued(u" _"));
  EXPECT_TRUE(IsContinued(u"x _  "));
  EXPECT_FALSE(IsContinued(u"a_"));
  EXPECT_FALSE(IsContinued(u"_"));
  EXPECT_FALSE(IsContinued(u""));
  EXPECT_FALSE(IsContinued(u"x _ ' c"));
}

}  // namespace
}  // namespace tessel::model
