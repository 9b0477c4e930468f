#include "builders/ProcedureText.h"

#include <gtest/gtest.h>

namespace tessel::builders {
namespace {

ProcedureChoices GetTotal() {
  ProcedureChoices choices;
  choices.Name = u"GetTotal";
  choices.Type = u"Function";
  choices.Arguments = {u"ByVal Count  As Long", u"Optional Rate  As Double = 1"};
  choices.ReturnValueType = u"Double";
  choices.Comment.Full = false;
  return choices;
}

TEST(ProcedureText, AFunctionWithArguments) {
  EXPECT_EQ(GeneratorTextMethod(GetTotal()),
            u"Public Function GetTotal (ByVal Count  As Long, Optional Rate  As Double = 1) As "
            u"Double\r\n"
            u"   'TODO: Add 'GetTotal' body here.\r\n"
            u"End Function\r\n");
}

TEST(ProcedureText, TheWholeComment) {
  auto choices = GetTotal();
  choices.Comment = {true, u"Adds up", u"21.11.2026 10:00:00", u"Ann"};
  const String text = GeneratorTextMethod(choices);
  EXPECT_EQ(text.substr(0, text.find(u"Public")),
            u"'==========================\r\n"
            u"' Function   : GetTotal\r\n"
            u"' DateTime   : 21.11.2026 10:00:00\r\n"
            u"' Author     : Ann\r\n"
            u"' Description: Adds up\r\n"
            u"'--------------------------\r\n");
  EXPECT_EQ(CaretOffset(choices), 6) << "the declaration";
}

TEST(ProcedureText, LinesOfTheCommentStandEmptyToo) {
  auto choices = GetTotal();
  choices.Comment = {};
  EXPECT_NE(GeneratorTextMethod(choices).find(u"' DateTime   : \r\n' Author     : \r\n"),
            String::npos);
}

TEST(ProcedureText, ADescriptionAloneGivesThreeLinesAndTheCaretStaysOnTheFirst) {
  auto choices = GetTotal();
  choices.Comment.Description = u"Adds up";
  const String text = GeneratorTextMethod(choices);
  EXPECT_EQ(text.substr(0, text.find(u"Public")),
            u"'==========================\r\n"
            u"' Description: Adds up\r\n"
            u"'--------------------------\r\n");
  EXPECT_EQ(CaretOffset(choices), 0);
}

TEST(ProcedureText, ASubKeepsItsReturnTypeToItself) {
  auto choices = GetTotal();
  choices.Type = u"SUB";
  choices.Comment.Full = true;
  const String text = GeneratorTextMethod(choices);
  EXPECT_NE(text.find(u"' Procedure  : GetTotal\r\n"), String::npos);
  EXPECT_EQ(text.find(u") As"), String::npos);
  EXPECT_TRUE(text.ends_with(u"End Sub\r\n"));
}

TEST(ProcedureText, WithoutModifiersAndArguments) {
  ProcedureChoices choices;
  choices.Accessibility.clear();
  choices.Comment.Full = false;
  EXPECT_TRUE(GeneratorTextMethod(choices).starts_with(u"Sub Name ()\r\n"));
  choices.Static = u"Static";
  EXPECT_TRUE(GeneratorTextMethod(choices).starts_with(u"Static Sub Name ()\r\n"));
}

TEST(ProcedureText, NoReturnTypeIsNoneHoweverItIsWritten) {
  auto choices = GetTotal();
  for (const StringView type : {u"(None)", u"(NONE)", u""}) {
    choices.ReturnValueType = type;
    EXPECT_NE(GeneratorTextMethod(choices).find(u"= 1)\r\n"), String::npos);
  }
}

void ExpectComplaint(const ProcedureChoices& choices, int code, int item, StringView info1) {
  const auto complaint = CheckField(choices);
  ASSERT_TRUE(complaint);
  EXPECT_EQ(complaint->Code, code);
  EXPECT_EQ(complaint->Item, item);
  EXPECT_EQ(complaint->Info1, info1);
  EXPECT_EQ(complaint->Info2, u"");
}

TEST(ProcedureText, BehindAnOptionalArgumentOnlyOptionalOnesStand) {
  auto choices = GetTotal();
  choices.Arguments = {u"Optional A  As Long", u"B  As Long"};
  ExpectComplaint(choices, 6, 1, u"Optional");
  choices.Arguments = {u"Optional A  As Long", u"ParamArray B()"};
  ExpectComplaint(choices, 6, 1, u"Optional");
}

TEST(ProcedureText, AParameterArrayIsTheLast) {
  auto choices = GetTotal();
  choices.Arguments = {u"ParamArray A()", u"B "};
  ExpectComplaint(choices, 7, 0, u"");
  choices.Arguments = {u"B ", u"ParamArray A()"};
  EXPECT_FALSE(CheckField(choices));
}

TEST(ProcedureText, TheNameIsLookedAtFirst) {
  auto choices = GetTotal();
  choices.Arguments = {u"Optional A  As Long", u"B  As Long"};
  choices.Name = u"9";
  ExpectComplaint(choices, 2, -1, u"Name");
  choices.Name = u"a-b";
  ExpectComplaint(choices, 3, -1, u"Name");
}

TEST(ProcedureText, AFunctionNeedsAReturnTypeInItsField) {
  auto choices = GetTotal();
  choices.ReturnValueType.clear();
  ExpectComplaint(choices, 4, -1, u"Return Value Type");
  choices.Type = u"Sub";
  EXPECT_FALSE(CheckField(choices));
}

}  // namespace
}  // namespace tessel::builders
