#include "builders/LineLimits.h"

#include <gtest/gtest.h>

#include "builders/ArgumentText.h"
#include "builders/CollectionText.h"
#include "builders/EnumText.h"
#include "builders/ProcedureText.h"
#include "builders/PropertyText.h"

namespace tessel::builders {
namespace {

/// The field at fault and what is told.
std::string FaultOf(const std::optional<Complaint>& complaint) {
  if (!complaint) return "";
  return vb::ToUtf8(String(complaint->Field) + u": " + TextOf(*complaint));
}

HeaderChoices NoComment() { return {false}; }

TEST(LineLimits, ALineOfTheMostCharactersPassesAndOneMoreIsRefused) {
  const String line(MostUnits, u'x');
  const FieldTexts fields{{u"txtName", u"Name", line}};
  EXPECT_EQ(FaultOf(CheckLimits(u"A\r\n" + line + u"\r\nB", fields)), "");
  EXPECT_EQ(FaultOf(CheckLimits(u"A\r\n" + line + u"x\r\nB", fields)),
            "txtName: A line would have 1024 characters, more than 1023, field: \"Name\"");
  EXPECT_EQ(FaultOf(CheckLimits(line + u"x", {})),
            ": A line would have 1024 characters, more than 1023")
      << "in the last line, without a field";
}

TEST(LineLimits, AStatementOfTheMostContinuationsPassesAndOneMoreIsRefused) {
  String code;
  for (std::size_t count = 0; count < MostContinuations; ++count) code += u"1 + _\r\n";
  EXPECT_EQ(FaultOf(CheckLimits(code + u"1", {})), "");
  EXPECT_EQ(FaultOf(CheckLimits(code + u"\r\n" + code + u"1", {})), "")
      << "those of two statements";
  EXPECT_EQ(FaultOf(CheckLimits(code + u"1 + _\r\n1", {})),
            ": A statement would be continued more than 24 times");
  EXPECT_EQ(FaultOf(CheckLimits(vb::Replace(code, u" _", u"_") + u"1 +_\r\n1", {})), "")
      << "no blank ahead of the sign";
}

TEST(LineLimits, TheFieldWithTheMostInTheLineIsNamed) {
  const String longest(2000, u'a'), line(1100, u'b'), less(50, u'c');
  const FieldTexts fields{
      {u"one", u"One", less}, {u"two", u"Two", line}, {u"three", u"3", longest}};
  EXPECT_EQ(CheckLimits(less + line, fields)->Field, u"two") << "not one of another line";
}

TEST(LineLimits, EachBuilderNamesTheFieldAtFault) {
  const String text(1100, u'x');
  ProcedureChoices procedure;
  procedure.Comment = NoComment();
  procedure.Name = text;
  EXPECT_EQ(CheckField(procedure)->Field, u"txtName");
  procedure.Name = u"A";
  procedure.Arguments = {u"B As Long", text};
  EXPECT_EQ(CheckField(procedure)->Field, u"ListProcedureArguments");
  EXPECT_EQ(CheckField(procedure)->Item, 1);
  procedure.Arguments.clear();
  procedure.Comment.Description = text;
  EXPECT_EQ(CheckField(procedure)->Field, u"txtDescription");

  PropertyChoices property;
  property.Prefix = u"b";
  EXPECT_EQ(FaultOf(CheckField(property)), "");
  property.MemberVariable = text;
  EXPECT_EQ(CheckField(property)->Field, u"txtMemberVariable");

  CollectionChoices collection;
  EXPECT_EQ(FaultOf(CheckField(collection)), "");
  // Twice in one line, so half of what fits is too much.
  collection.BaseClass = String(520, u'x');
  EXPECT_EQ(CheckField(collection)->Field, u"ComBaseClass");

  EnumChoices one;
  one.Parameters = {u"A", u"B = " + text, u"C"};
  one.Selected = 0;
  EXPECT_EQ(FaultOf(CheckField(one)),
            "ListParameters: A line would have 1107 characters, more than 1023, field: "
            "\"Members\"");
  EXPECT_EQ(CheckField(one)->Item, 1);
}

TEST(LineLimits, ManyShortArgumentsMakeALongLineToo) {
  ProcedureChoices procedure;
  procedure.Comment = NoComment();
  procedure.Name = u"A";  // as long as each of them
  procedure.Arguments.assign(336, u"b");
  procedure.Arguments.push_back(u"c");
  // "Public Sub A (", 337 arguments with 336 separators, ")".
  EXPECT_EQ(FaultOf(CheckField(procedure)).substr(0, 59),
            "ListProcedureArguments: A line would have 1024 characters, ");
  procedure.Arguments.pop_back();
  EXPECT_EQ(FaultOf(CheckField(procedure)), "");
}

TEST(LineLimits, AnAuthorOfTheSettingsIsNamedThoughTheDialogHasNoFieldForIt) {
  ProcedureChoices procedure;
  procedure.Comment.Author = String(1100, u'x');
  EXPECT_EQ(FaultOf(CheckField(procedure)),
            ": A line would have 1115 characters, more than 1023, field: \"Author\"");
  procedure.Comment.Full = false;
  EXPECT_EQ(FaultOf(CheckField(procedure)), "") << "its line isn't written";
}

TEST(LineLimits, ANameOf255CharactersPassesAndOneMoreIsRefused) {
  const String longest(MostNameUnits, u'x'), tooLong = longest + u"x";
  ProcedureChoices procedure;
  procedure.Name = longest;
  EXPECT_EQ(FaultOf(CheckField(procedure)), "");
  procedure.Name = tooLong;
  EXPECT_EQ(FaultOf(CheckField(procedure)),
            "txtName: A name would have 256 characters, more than 255, field: \"Name\"");
  ArgumentChoices argument;
  argument.Name = tooLong;
  EXPECT_EQ(CheckField(argument)->Field, u"txtName");

  PropertyChoices property;
  property.Prefix = property.MemberVariable = u"b";
  property.Name = longest.substr(1);
  EXPECT_EQ(FaultOf(CheckField(property)), "");
  property.Name = longest;
  EXPECT_EQ(CheckField(property)->Field, u"txtName") << "that of the variable has one more";
  property.Name = u"A";
  property.MemberVariable = longest;
  EXPECT_EQ(CheckField(property)->Field, u"txtMemberVariable");

  CollectionChoices collection;
  collection.BaseClass = longest.substr(4);
  EXPECT_EQ(FaultOf(CheckField(collection)), "");
  collection.BaseClass = longest;
  EXPECT_EQ(CheckField(collection)->Field, u"ComBaseClass") << "an argument has \"Item\" behind it";
  collection.BaseClass = u"A";
  collection.ClassName = longest;
  EXPECT_EQ(CheckField(collection)->Field, u"txtCollectionClassName");

  EnumChoices one;
  one.Parameters = {u"A", tooLong + u" = 1"};
  one.Selected = 0;
  EXPECT_EQ(CheckField(one)->Field, u"ListParameters");
  EXPECT_EQ(CheckField(one)->Item, 1);
  one.Parameters.pop_back();
  one.Name = tooLong;
  EXPECT_EQ(CheckField(one)->Field, u"txtName");
}

TEST(LineLimits, NoTextTakesTheNextLineIn) {
  EnumChoices one;
  one.Selected = 0;
  for (const StringView item : {u"A = 1 _", u"A = 1 _  ", u"A = 1\t_", u"_"}) {
    one.Parameters = {u"First", String(item)};
    EXPECT_EQ(FaultOf(CheckField(one)),
              "ListParameters: A text that ends in \" _\" would take the next line in, field: "
              "\"Members\"")
        << vb::ToUtf8(item);
    EXPECT_EQ(CheckField(one)->Item, 1);
  }
  one.Parameters = {u"A = B + _", u"C", u"nn_", u"A_ = B_"};
  EXPECT_EQ(FaultOf(CheckField(one)), "")
      << "a name may end so, and a value that goes on in the next";
  one.Name = u"_";
  EXPECT_EQ(CheckField(one)->Field, u"txtName");

  ProcedureChoices procedure;
  procedure.ReturnValueType = u"Long _";
  EXPECT_EQ(FaultOf(CheckField(procedure)), "") << "a Sub doesn't write it";
  procedure.Type = u"Function";
  EXPECT_EQ(CheckField(procedure)->Field, u"ComReturnValueType");
  procedure.ReturnValueType = u"Long";
  procedure.Arguments = {u"ByVal A  As Long", u"Optional B  As Long = 1 _"};
  EXPECT_EQ(CheckField(procedure)->Field, u"ListProcedureArguments");
  EXPECT_EQ(CheckField(procedure)->Item, 1);

  PropertyChoices property;
  property.Prefix = u"l";
  property.ValueType = u"Long _";
  EXPECT_EQ(CheckField(property)->Field, u"ComValueType");
}

TEST(LineLimits, WhatTheNamesTestsFindComesFirst) {
  ProcedureChoices procedure;
  procedure.Name = u"1" + String(2000, u'x');
  EXPECT_EQ(CheckField(procedure)->Code, 2);
}

}  // namespace
}  // namespace tessel::builders
