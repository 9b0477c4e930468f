#include "builders/PropertyText.h"

#include <gtest/gtest.h>

namespace tessel::builders {
namespace {

PropertyChoices Count() {
  PropertyChoices choices;
  choices.Name = u"Count";
  choices.ValueType = u"Long";
  choices.Prefix = choices.MemberVariable = u"mlng";
  choices.LetSet = false;
  choices.Comment.Full = false;
  return choices;
}

TEST(PropertyText, GetAndLetOfAMemberVariable) {
  const PropertyText text = GeneratorTextProperty(Count());
  EXPECT_EQ(text.Declaration, u"Private mlngCount As Long\r\n\r\n");
  EXPECT_EQ(text.Body,
            u"Public Property Get Count() As Long\r\n"
            u"    Count = mlngCount\r\n"
            u"End Property\r\n"
            u"\r\n"
            u"Public Property Let Count(ByVal mlng As Long)\r\n"
            u"    mlngCount = mlng\r\n"
            u"End Property\r\n"
            u"\r\n");
}

TEST(PropertyText, ObjectsAreSetBothWays) {
  auto choices = Count();
  choices.LetSet = true;
  const String body = GeneratorTextProperty(choices).Body;
  EXPECT_NE(body.find(u"    Set Count = mlngCount\r\n"), String::npos);
  EXPECT_NE(body.find(u"Public Property Set Count(ByVal mlng As Long)\r\n"
                      u"    Set mlngCount = mlng\r\n"),
            String::npos);
}

TEST(PropertyText, TheTakingPartStandsAlsoWithoutAGet) {
  auto choices = Count();
  choices.Get = false;
  choices.LetSet = true;
  EXPECT_TRUE(GeneratorTextProperty(choices).Body.starts_with(u"Public Property Set Count("));
}

TEST(PropertyText, TheCommentStandsAboveEachPartWithItsOwnLabel) {
  auto choices = Count();
  choices.Comment.Full = true;
  String body = GeneratorTextProperty(choices).Body;
  EXPECT_TRUE(
      body.starts_with(u"'==========================\r\n"
                       u"' Property Get : Count\r\n"
                       u"' DateTime     : \r\n"
                       u"' Author       : \r\n"
                       u"' Description  : \r\n"
                       u"'--------------------------\r\n"));
  EXPECT_NE(body.find(u"' Property Let : Count\r\n"), String::npos);
  EXPECT_EQ(CaretOffset(choices), 8) << "the first Property line";

  choices.LetSet = true;
  body = GeneratorTextProperty(choices).Body;
  const std::size_t first = body.find(u"' Property Set : Count\r\n");
  ASSERT_NE(first, String::npos) << "above the Get as well";
  EXPECT_NE(body.find(u"' Property Set : Count\r\n", first + 1), String::npos);
  EXPECT_EQ(body.find(u"' Property Get :"), String::npos);
}

TEST(PropertyText, TheLabelIsReplacedInTheDescriptionToo) {
  auto choices = Count();
  choices.Comment = {false, u"see Procedure    : here", {}, {}};
  const String body = GeneratorTextProperty(choices).Body;
  EXPECT_NE(body.find(u"' Description  : see Property Get : here\r\n"), String::npos);
  EXPECT_NE(body.find(u"' Description  : see Property Let : here\r\n"), String::npos);
}

TEST(PropertyText, WithoutATypeNoneIsWritten) {
  auto choices = Count();
  choices.ValueType.clear();
  EXPECT_EQ(GeneratorTextProperty(choices).Declaration, u"Private mlngCount\r\n\r\n");
}

TEST(PropertyText, BothNamesAreLookedAt) {
  auto choices = Count();
  EXPECT_FALSE(CheckField(choices));
  choices.MemberVariable.clear();
  auto complaint = CheckField(choices);
  ASSERT_TRUE(complaint);
  EXPECT_EQ(complaint->Code, 4);
  EXPECT_EQ(complaint->Info1, u"Member Variable");
  choices.Name = u"2nd";
  complaint = CheckField(choices);
  ASSERT_TRUE(complaint);
  EXPECT_EQ(complaint->Code, 2);
  EXPECT_EQ(complaint->Info1, u"Name");
}

TEST(PropertyText, ThePrefixHasToNameAParameter) {
  auto choices = Count();
  const auto told = [&](StringView prefix) {
    choices.Prefix = prefix;
    const auto complaint = CheckField(choices);
    if (complaint) {
      EXPECT_EQ(complaint->Field, u"ComValueType");
    }
    return complaint ? TextOf(*complaint) : String();
  };
  EXPECT_EQ(told(u""), u"The type has no prefix, which names the parameter, field: \"Value Type\"");
  EXPECT_EQ(told(u"1x"), u"\"1x\" can't be a name, field: \"Value Type\"");
  EXPECT_EQ(told(u"a b"), u"\"a b\" can't be a name, field: \"Value Type\"");
  EXPECT_EQ(told(u"cls"), u"");
  choices.MemberVariable.clear();
  choices.Prefix.clear();
  EXPECT_EQ(CheckField(choices)->Code, 4) << "the fields come first";
}

}  // namespace
}  // namespace tessel::builders
