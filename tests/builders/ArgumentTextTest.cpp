#include "builders/ArgumentText.h"

#include <gtest/gtest.h>

namespace tessel::builders {
namespace {

ArgumentChoices Count() {
  ArgumentChoices choices;
  choices.Name = u"Count";
  return choices;
}

TEST(ArgumentText, OptionalWithTypeAndDefault) {
  auto choices = Count();
  choices.Optional = choices.ByRef = true;
  choices.Type = u"Long";
  choices.DefaultValue = u"5";
  EXPECT_EQ(GeneratorStrok(choices), u"Optional ByRef Count  As Long = 5");
}

TEST(ArgumentText, ABlankStandsBehindANameWithoutType) {
  auto choices = Count();
  choices.ByVal = true;
  EXPECT_EQ(GeneratorStrok(choices), u"ByVal Count ");
  choices.Type = u"(none)";
  EXPECT_EQ(GeneratorStrok(choices), u"ByVal Count ") << "no type, however it is written";
}

TEST(ArgumentText, NeitherModifierLeavesBothOut) { EXPECT_EQ(GeneratorStrok(Count()), u"Count "); }

TEST(ArgumentText, AnArrayHasNeitherModifierNorType) {
  auto choices = Count();
  choices.Array = choices.Optional = choices.ByRef = true;
  choices.Type = u"Long";
  choices.DefaultValue = u"5";
  EXPECT_EQ(GeneratorStrok(choices), u"Count()");
}

TEST(ArgumentText, AParameterArrayHasNeitherModifierNorType) {
  auto choices = Count();
  choices.ParamArray = choices.Optional = choices.ByVal = true;
  choices.Type = u"Variant";
  EXPECT_EQ(GeneratorStrok(choices), u"ParamArray Count()");
}

TEST(ArgumentText, AnArrayWinsOverAParameterArray) {
  auto choices = Count();
  choices.ParamArray = choices.Array = true;
  EXPECT_EQ(GeneratorStrok(choices), u"Count()");
}

TEST(ArgumentText, ADefaultWithoutOptionalIsLeftOut) {
  auto choices = Count();
  choices.DefaultValue = u"5";
  choices.Type = u"Long";
  EXPECT_EQ(GeneratorStrok(choices), u"Count  As Long");
}

TEST(ArgumentText, AnEmptyTypeLeavesALoneAs) {
  auto choices = Count();
  choices.Type.clear();
  EXPECT_EQ(GeneratorStrok(choices), u"Count  As ");
}

TEST(ArgumentText, EachFieldFollowsTheArrayChoices) {
  auto choices = Count();
  ArgumentFields fields = EnabledField(choices);
  EXPECT_TRUE(fields.Optional && fields.Passing && fields.ParamArray && fields.Type);
  EXPECT_FALSE(fields.DefaultValue);
  choices.Optional = true;
  EXPECT_TRUE(EnabledField(choices).DefaultValue);
  choices.ParamArray = true;
  fields = EnabledField(choices);
  EXPECT_FALSE(fields.Optional || fields.Passing || fields.DefaultValue || fields.Type);
  EXPECT_TRUE(fields.ParamArray);
  choices.Array = true;
  EXPECT_FALSE(EnabledField(choices).ParamArray);
}

TEST(ArgumentText, NamesAreRefusedInAFixedOrder) {
  const auto code = [](StringView name) {
    ArgumentChoices choices;
    choices.Name = name;
    const auto complaint = CheckField(choices);
    return complaint ? complaint->Code : 0;
  };
  EXPECT_EQ(code(u"1a b"), 2) << "the digit comes ahead of the blank";
  EXPECT_EQ(code(u""), 4);
  EXPECT_EQ(code(u"a b"), 3);
  EXPECT_EQ(code(u"Имя"), 0);
  EXPECT_EQ(code(u"Count"), 0);
}

}  // namespace
}  // namespace tessel::builders
