#include "builders/CollectionText.h"

#include <gtest/gtest.h>

namespace tessel::builders {
namespace {

CollectionChoices Orders() {
  CollectionChoices choices;
  choices.ClassName = u"OrderS";
  choices.BaseClass = u"Order";
  choices.Comment.Full = false;
  return choices;
}

TEST(CollectionText, NamesOfVariableAndParameterComeFromTheClasses) {
  const String text = GeneratorTextClass(Orders());
  EXPECT_TRUE(
      text.starts_with(u"Option Explicit\r\n\r\n' The private collection object\r\n"
                       u"Private m_ColOrderS As Collection\r\n"));
  EXPECT_NE(text.find(u"Sub Add(OrderItem As Order, Optional VarKey As Variant)\r\n"
                      u"    'TODO: Initialize the new Order item's properties here\r\n"
                      u"    m_ColOrderS.Add OrderItem, VarKey\r\n"),
            String::npos);
}

TEST(CollectionText, TheLastLineHasNoLineEnd) {
  EXPECT_TRUE(GeneratorTextClass(Orders()).ends_with(
      u"' This function OrderS\"For Each\" enumeration support.\r\n"
      u"' Must have a -4 DispID.\r\n"
      u"Function NewEnum() As IUnknown\r\n"
      u"    Set NewEnum = m_ColOrderS.[_NewEnum]\r\n"
      u"End Function"));
}

TEST(CollectionText, ExistsGoesWithASafeItem) {
  auto choices = Orders();
  EXPECT_EQ(GeneratorTextClass(choices).find(u"Exists"), String::npos);
  choices.Exists = true;
  const String text = GeneratorTextClass(choices);
  EXPECT_NE(text.find(u"    Set Item = Nothing\r\n    On Error Resume Next\r\n"), String::npos);
  EXPECT_NE(text.find(u"whether \r\n'  the item exists in the collection or not.\r\n"
                      u"Function Exists(VarIndex As Variant) As Boolean\r\n"
                      u"    Dim objTest As Order\r\n"),
            String::npos);
}

TEST(CollectionText, TheDescriptionsLabelIsShorterWhereItStandsAlone) {
  auto choices = Orders();
  choices.Comment.Description = u"All orders";
  EXPECT_TRUE(
      GeneratorTextClass(choices).starts_with(u"'==========================\r\n"
                                              u"' Description: All orders\r\n"
                                              u"'--------------------------\r\n"
                                              u"Option Explicit"));
  choices.Comment.Full = true;
  EXPECT_TRUE(
      GeneratorTextClass(choices).starts_with(u"'==========================\r\n"
                                              u"' Class Module : OrderS\r\n"
                                              u"' DateTime     : \r\n"
                                              u"' Author       : \r\n"
                                              u"' Description  : All orders\r\n"));
}

TEST(CollectionText, BothNamesAreLookedAtTheCollectionsFirst) {
  auto choices = Orders();
  EXPECT_FALSE(CheckField(choices));
  choices.BaseClass = u"1st";
  EXPECT_EQ(CheckField(choices)->Info1, u"Base Class");
  choices.ClassName.clear();
  EXPECT_EQ(CheckField(choices)->Code, 4);
  EXPECT_EQ(CheckField(choices)->Info1, u"Collection Class Name");
}

TEST(CollectionText, BracesInANameAreNoPlaceholders) {
  auto choices = Orders();
  choices.VariablePrefix = u"{C}";
  EXPECT_NE(GeneratorTextClass(choices).find(u"Private {C}OrderS As Collection"), String::npos);
}

TEST(CollectionText, TheVariablesNameIsLookedAtThoughTheDialogLacksItsPrefix) {
  CollectionChoices choices;
  for (const StringView prefix : {u"1 x", u"a b", u"9"}) {
    choices.VariablePrefix = prefix;
    const auto complaint = CheckField(choices);
    ASSERT_TRUE(complaint) << vb::ToUtf8(prefix);
    EXPECT_EQ(TextOf(*complaint),
              u"\"" + String(prefix) + u"Name\" can't be a name, field: \"Prefix text Class\"");
  }
  choices.VariablePrefix.clear();
  EXPECT_FALSE(CheckField(choices));
}

}  // namespace
}  // namespace tessel::builders
