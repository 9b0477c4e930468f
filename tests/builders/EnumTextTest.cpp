#include "builders/EnumText.h"

#include <gtest/gtest.h>

namespace tessel::builders {
namespace {

int CodeOf(const EnumMemberChoices& choices) {
  const auto complaint = CheckField(choices);
  return complaint ? complaint->Code : 0;
}

TEST(EnumText, AMemberWithAndWithoutValue) {
  EXPECT_EQ(GeneratorStrok({u"nn_", u"First", u"1"}), u"nn_First = 1");
  EXPECT_EQ(GeneratorStrok({u"nn_", u"First", u""}), u"nn_First");
}

TEST(EnumText, WithAPrefixOnlyThePrefixIsLookedAt) {
  EXPECT_EQ(CodeOf({u"nn_", u"", u""}), 0);
  EXPECT_EQ(CodeOf({u"nn_", u"9x", u"a b"}), 0);
  EXPECT_EQ(CodeOf({u"9", u"x", u""}), 2);
  EXPECT_EQ(CodeOf({u"n n", u"x", u""}), 3);
  EXPECT_EQ(CodeOf({u"", u"9x", u""}), 2);
  EXPECT_EQ(CodeOf({u"", u"", u""}), 4);
  EXPECT_EQ(CodeOf({u"", u"a.b", u""}), 0);
  EXPECT_EQ(CodeOf({u"", u"a:b", u""}), 3);
}

EnumChoices Colours() {
  EnumChoices choices;
  choices.Name = u"Colours";
  choices.Parameters = {u"nn_Red = 1", u"nn_Green = 1 + 1"};
  choices.Selected = 1;
  choices.Comment.Full = false;
  return choices;
}

TEST(EnumText, MembersStandThreeBlanksIn) {
  EXPECT_EQ(GeneratorText(Colours()),
            u"Public Enum Colours\r\n"
            u"   nn_Red = 1\r\n"
            u"   nn_Green = 1 + 1\r\n"
            u"End Enum\r\n");
  auto choices = Colours();
  choices.Accessibility.clear();
  EXPECT_TRUE(GeneratorText(choices).starts_with(u"Enum Colours\r\n"));
}

TEST(EnumText, TheWholeComment) {
  auto choices = Colours();
  choices.Comment = {true, u"Paint", u"now", u"Ann"};
  EXPECT_TRUE(
      GeneratorText(choices).starts_with(u"'==========================\r\n"
                                         u"' Enum       : Colours\r\n"
                                         u"' DateTime   : now\r\n"
                                         u"' Author     : Ann\r\n"
                                         u"' Description: Paint\r\n"
                                         u"'--------------------------\r\n"
                                         u"Public Enum"));
  EXPECT_EQ(CaretOffset(choices), 6);
  choices.Comment.Full = false;
  EXPECT_EQ(CaretOffset(choices), 0);
}

TEST(EnumText, AMemberHasToBeSelected) {
  auto choices = Colours();
  EXPECT_FALSE(CheckField(choices));
  choices.Selected = -1;
  const auto complaint = CheckField(choices);
  ASSERT_TRUE(complaint);
  EXPECT_EQ(complaint->Code, 9);
  EXPECT_EQ(complaint->Field, u"ListParameters");
}

TEST(EnumText, EveryMembersNameIsLookedAt) {
  const auto complain = [](StringView item) {
    auto choices = Colours();
    choices.Parameters.emplace_back(item);
    return CheckField(choices);
  };
  EXPECT_FALSE(complain(u"nn_ = a b ! c")) << "only the text up to the first blank is a name";
  EXPECT_EQ(complain(u"9x")->Code, 2);
  EXPECT_EQ(complain(u"9x")->Info1, u"");
  EXPECT_EQ(complain(u" x")->Code, 4);
  EXPECT_EQ(complain(u"a!b = 1")->Code, 3);
  EXPECT_EQ(complain(u"a!b = 1")->Info1, u"a!b");
  EXPECT_EQ(complain(u"a!b = 1")->Item, 2);
}

TEST(EnumText, TwoMembersOfOneNameAreRefused) {
  auto choices = Colours();
  choices.Parameters.emplace_back(u"NN_red = 7");
  const auto complaint = CheckField(choices);
  ASSERT_TRUE(complaint);
  EXPECT_EQ(complaint->Field, u"ListParameters");
  EXPECT_EQ(complaint->Item, 2);
  EXPECT_EQ(TextOf(*complaint), u"Two members have the name \"NN_red\"");
}

TEST(EnumText, ADescriptionWithLineEndsStandsInOneLine) {
  auto choices = Colours();
  choices.Comment = {true, u"Paint\r\nEnd\nx", {}, u"Ann\rLee"};
  const String text = GeneratorText(choices);
  EXPECT_NE(text.find(u"' Author     : Ann Lee\r\n' Description: Paint End x\r\n'---"),
            String::npos)
      << vb::ToUtf8(text);
}

}  // namespace
}  // namespace tessel::builders
