#include "hosts/workbench/designer/PropertyValues.h"

#include <gtest/gtest.h>

#include "hosts/workbench/designer/PropertyRows.h"
#include "hosts/workbench/designer/Values.h"
#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

constexpr StringView Names[] = {u"None", u"Fixed Single"};

String Raw(ValueKind kind, StringView shown, StringView before = {}) {
  return RawFromShown(kind, Names, shown, before);
}

TEST(PropertyValues, ShowFlagsAndChoicesByTheirNames) {
  EXPECT_EQ(ShownValue(ValueKind::Flag, {}, u"-1  'True"), u"True");
  EXPECT_EQ(ShownValue(ValueKind::Flag, {}, u"0   'False"), u"False");
  EXPECT_EQ(ShownValue(ValueKind::Choice, Names, u"1  'Fest Einfach"), u"1 - Fixed Single");
  EXPECT_EQ(ShownValue(ValueKind::Choice, Names, u"7"), u"7");
  EXPECT_EQ(ShownValue(ValueKind::Text, {}, u"\"say \"\"no\"\"\""), u"say \"no\"");
}

TEST(PropertyValues, AreWrittenAsTheFilesHaveThem) {
  EXPECT_EQ(Raw(ValueKind::Flag, u"true"), u"-1  'True");
  EXPECT_EQ(Raw(ValueKind::Flag, u"0"), u"0   'False");
  EXPECT_EQ(Raw(ValueKind::Choice, u"1"), u"1   'Fixed Single");
  EXPECT_EQ(Raw(ValueKind::Choice, u"fixed single"), u"1   'Fixed Single");
  EXPECT_EQ(Raw(ValueKind::Choice, u"0 - None"), u"0   'None");
  EXPECT_EQ(Raw(ValueKind::Text, u"5"), u"\"5\"");
  EXPECT_EQ(Raw(ValueKind::Text, u" a \"b\" "), u"\" a \"\"b\"\" \"");
  EXPECT_EQ(Raw(ValueKind::Text, u""), u"\"\"");
  EXPECT_EQ(Raw(ValueKind::Number, u" -120 "), u"-120");
  EXPECT_EQ(Raw(ValueKind::Color, u"&H000000FF&"), u"&H000000FF&");
  EXPECT_EQ(Raw(ValueKind::Color, u"#ff8000"), u"&H000080FF&");
}

TEST(PropertyValues, KeepTheLooksOfAnUnknownProperty) {
  EXPECT_EQ(Raw(ValueKind::Plain, u"^P", u"^O"), u"^P");
  EXPECT_EQ(Raw(ValueKind::Plain, u"7", u"3"), u"7");
  EXPECT_EQ(Raw(ValueKind::Plain, u"seven", u""), u"\"seven\"");
}

TEST(PropertyValues, RefuseWhatIsNoValueOfTheirKind) {
  const std::pair<ValueKind, StringView> bad[] = {
      {ValueKind::Number, u"wide"},       {ValueKind::Number, u""},   {ValueKind::Number, u"1e999"},
      {ValueKind::Number, u"9e15"},       {ValueKind::Whole, u"-1"},  {ValueKind::Whole, u"1.5"},
      {ValueKind::Flag, u"maybe"},        {ValueKind::Choice, u"2"},  {ValueKind::Choice, u"Thick"},
      {ValueKind::Color, u"red"},         {ValueKind::Color, u"#12"}, {ValueKind::Color, u"&"},
      {ValueKind::Text, u"two\r\nlines"}, {ValueKind::Binary, u"x"},  {ValueKind::Object, u"x"},
      {ValueKind::Plain, u"a\nb"}};
  for (const auto& [kind, shown] : bad) {
    try {
      const String raw = Raw(kind, shown);
      ADD_FAILURE() << vb::ToUtf8(shown) << " gave " << vb::ToUtf8(raw);
    } catch (const vb::Failure& failure) {
      EXPECT_EQ(failure.Number(), 380);
      EXPECT_EQ(failure.Description(), u"Invalid property value");
    }
  }
}

TEST(PropertyValues, KnowAReferenceToTheCompanionFile) {
  EXPECT_TRUE(IsBinaryReference(u"\"Form1.frx\":0000"));
  EXPECT_TRUE(IsBinaryReference(u"$\"Form1.frx\":00AB"));
  EXPECT_FALSE(IsBinaryReference(u"\"Form1.frx: 0000\""));
  EXPECT_FALSE(IsBinaryReference(u""));
  EXPECT_FALSE(IsBinaryReference(u"$"));
}

TEST(PropertyValues, ReadColorsOfFormsAndOfTheSystem) {
  EXPECT_EQ(ColorFromNumber(0x0000FF), QColor(255, 0, 0));
  EXPECT_EQ(ColorFromNumber(0xFF0000), QColor(0, 0, 255));
  EXPECT_EQ(ColorFromNumber(-2147483643), QColor(255, 255, 255));
  EXPECT_EQ(ColorFromNumber(2147483653.0), QColor(255, 255, 255));
  EXPECT_FALSE(ColorFromNumber(2147483903.0).isValid());
  EXPECT_FALSE(ColorFromNumber(1e30).isValid());
  EXPECT_EQ(NumberOfColor(QColor(1, 2, 3)), 0x030201U);
}

TEST(PropertyTable, GivesAClassItsOwnEntryAheadOfTheCommonOne) {
  EXPECT_EQ(ChoicesOf(u"VB.Form", u"BorderStyle").size(), 6U);
  EXPECT_EQ(ChoicesOf(u"VB.TextBox", u"BorderStyle").size(), 2U);
  EXPECT_EQ(KnownKind(u"VB.CheckBox", u"Value"), ValueKind::Choice);
  EXPECT_EQ(KnownKind(u"VB.OptionButton", u"value"), ValueKind::Flag);
  EXPECT_EQ(KnownKind(u"Lib.Form", u"Strange"), ValueKind::Plain);
}

TEST(PropertyTable, KnowsEveryPropertyThatItOffers) {
  for (const StringView name :
       {u"VB.PictureBox",    u"VB.Label",        u"VB.TextBox",      u"VB.Frame",
        u"VB.CommandButton", u"VB.CheckBox",     u"VB.OptionButton", u"VB.ComboBox",
        u"VB.ListBox",       u"VB.HScrollBar",   u"VB.VScrollBar",   u"VB.Timer",
        u"VB.DriveListBox",  u"VB.DirListBox",   u"VB.FileListBox",  u"VB.Shape",
        u"VB.Line",          u"VB.Image",        u"VB.Data",         u"VB.OLE",
        u"VB.Menu",          u"VB.Form",         u"VB.MDIForm",      u"VB.UserControl",
        u"VB.PropertyPage",  u"VB.UserDocument", u"Lib.Thing"}) {
    EXPECT_FALSE(CommonProperties(name).empty());
    for (const StringView property : CommonProperties(name)) {
      EXPECT_TRUE(IsKnown(name, property)) << vb::ToUtf8(name) << "." << vb::ToUtf8(property);
    }
  }
}

const PropertyRow* RowNamed(const std::vector<PropertyRow>& rows, StringView name) {
  for (const PropertyRow& row : rows) {
    if (row.Name == name) return &row;
  }
  return nullptr;
}

constexpr StringView Head =
    u"Begin VB.Form Form1 \r\n   Caption = \"One\"\r\n   Icon = \"Form1.frx\":0000\r\n"
    u"   Strange = 3  'odd\r\n"
    u"   BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} \r\n"
    u"      Name            =   \"Tahoma\"\r\n      Size            =   8.25\r\n"
    u"      Weight          =   700\r\n   EndProperty\r\n"
    u"   Begin VB.Label A \r\n      Left = 120\r\n      Top = 60\r\n   End\r\n"
    u"   Begin VB.TextBox B \r\n      Left = 120\r\n      Top = 90\r\n   End\r\nEnd\r\n";

TEST(PropertyRows, StandByTheAlphabetWithTheNameFirst) {
  const model::DesignerTree tree(Head);
  const auto rows = RowsOf(*tree.Root());
  ASSERT_GT(rows.size(), 5U);
  EXPECT_EQ(rows[0].Name, u"(Name)");
  EXPECT_EQ(rows[0].Shown, u"Form1");
  for (std::size_t at = 2; at < rows.size(); ++at) {
    EXPECT_LT(vb::StrComp(rows[at - 1].Name, rows[at].Name), 0);
  }
}

TEST(PropertyRows, ShowBinaryValuesAndFontsOnly) {
  const model::DesignerTree tree(Head);
  const auto rows = RowsOf(*tree.Root());
  ASSERT_NE(RowNamed(rows, u"Icon"), nullptr);
  EXPECT_TRUE(RowNamed(rows, u"Icon")->ReadOnly());
  EXPECT_EQ(RowNamed(rows, u"Icon")->Shown, u"(Binary) \"Form1.frx\":0000");
  ASSERT_NE(RowNamed(rows, u"Font"), nullptr);
  EXPECT_TRUE(RowNamed(rows, u"Font")->ReadOnly());
  EXPECT_EQ(RowNamed(rows, u"Font")->Shown, u"Tahoma, 8.25");
  EXPECT_EQ(RowNamed(rows, u"Weight"), nullptr);
  EXPECT_EQ(RowNamed(rows, u"Strange")->Shown, u"3");
}

TEST(PropertyRows, OfferWhatTheFileDoesNotSayYet) {
  const model::DesignerTree tree(Head);
  const auto rows = RowsOf(*tree.Controls()[0]);
  ASSERT_NE(RowNamed(rows, u"Visible"), nullptr);
  EXPECT_FALSE(RowNamed(rows, u"Visible")->InFile);
  EXPECT_EQ(RowNamed(rows, u"Visible")->Shown, u"True");
  EXPECT_TRUE(RowNamed(rows, u"Left")->InFile);
}

TEST(PropertyRows, OfSeveralControlsAreWhatTheyShare) {
  const model::DesignerTree tree(Head);
  const auto rows = RowsOf(tree.Controls());
  EXPECT_EQ(RowNamed(rows, u"(Name)"), nullptr);
  EXPECT_EQ(RowNamed(rows, u"WordWrap"), nullptr);
  EXPECT_EQ(RowNamed(rows, u"Left")->Shown, u"120");
  EXPECT_EQ(RowNamed(rows, u"Top")->Shown, u"");
}

TEST(PropertyRows, OfNothingAreNone) {
  EXPECT_TRUE(RowsOf(std::vector<model::DesignerNode*>()).empty());
}

}  // namespace
}  // namespace tessel::workbench
