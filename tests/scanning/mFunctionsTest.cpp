#include "scanning/mFunctions.h"

#include <gtest/gtest.h>

#include "forms/Form.h"
#include "foundation/CAppSettings.h"
#include "support/Modules.h"

namespace tessel::mFunctions {
namespace {

class Scanning : public testing::Test {
 protected:
  test::World world_;
};

using Table = std::vector<Member>;

TEST_F(Scanning, AModuleOfDeclarationsYieldsNothing) {
  EXPECT_FALSE(
      AllNameProcedures(world_.Module(u"M", u"Option Explicit\r\nDim x"), u"").has_value());
  EXPECT_FALSE(AllNameProcedures(world_.Module(u"N", u""), u"").has_value());
  EXPECT_FALSE(AllNameProcedures(nullptr, u"").has_value());
}

TEST_F(Scanning, AModuleWithOneMemberYieldsOneRow) {
  EXPECT_EQ(AllNameProcedures(world_.Module(u"M", u"Dim x\r\n' c\r\nSub A()\r\nEnd Sub"), u""),
            (Table{{u"A", 0, 2, 3, 3}}));
}

TEST_F(Scanning, AMemberThatBeginsOnTheVeryLastLineIsNotListed) {
  EXPECT_EQ(AllNameProcedures(world_.Module(u"M", u"Sub A()\r\nEnd Sub\r\nSub B(): End Sub"), u""),
            (Table{{u"A", 0, 1, 1, 2}}));
}

TEST_F(Scanning, GetAboveLetYieldsTwoRowsAndLetAboveGetYieldsLetTwice) {
  EXPECT_EQ(AllNameProcedures(world_.Module(u"M",
                                            u"Property Get X()\r\nEnd Property\r\n"
                                            u"Property Let X(v)\r\nEnd Property"),
                              u""),
            (Table{{u"X", 3, 1, 1, 2}, {u"X", 1, 3, 3, 2}}));
  EXPECT_EQ(AllNameProcedures(world_.Module(u"N",
                                            u"Property Let X(v)\r\nEnd Property\r\n"
                                            u"Property Get X()\r\nEnd Property"),
                              u""),
            (Table{{u"X", 1, 1, 1, 2}, {u"X", 1, 1, 1, 2}}));
}

TEST_F(Scanning, AControlsEventIsMarkedOnAFormOnly) {
  const StringView code = u"Sub Command1_Click()\r\nEnd Sub\r\nSub Form_Load()\r\nEnd Sub\r\n";
  const auto form = world_.Form(u"Form1", code);
  world_.Environment.AddControl(u"Form1", u"CommandButton", u"Command1", {});
  const auto table = AllNameProcedures(form, u"");
  ASSERT_TRUE(table);
  EXPECT_EQ(table->at(0).Kind, MemberKindControlEvent);
  EXPECT_EQ(table->at(1).Kind, 0);
  const auto inModule = AllNameProcedures(world_.Module(u"M", code), u"");
  EXPECT_EQ(inModule->at(0).Kind, 0);
  EXPECT_EQ(MemberKindAtLine(form, u"Command1_Click", 1, true), MemberKindControlEvent);
  EXPECT_EQ(MemberKindAtLine(form, u"Command1_Click", 1, false), 0);
}

TEST_F(Scanning, MembersOfOneNameInTwoConditionalBranchesEndTheWalk) {
  const auto table = AllNameProcedures(
      world_.Module(
          u"M",
          u"#If X Then\r\nSub A()\r\nEnd Sub\r\n#Else\r\nSub A()\r\nEnd Sub\r\n#End If\r\n"
          u"Sub B()\r\nEnd Sub\r\n"),
      u"");
  ASSERT_TRUE(table);
  EXPECT_EQ(table->front().Name, u"A");
  EXPECT_EQ(table->back().Name, u"B");
}

TEST_F(Scanning, TheTwoWalksTestTheKindsInTheirOwnOrders) {
  const auto module = world_.Module(
      u"M", u"Property Let X(v)\r\nEnd Property\r\nProperty Get X()\r\nEnd Property\r\n");
  int kind = 9, body = 9, count = 9, start = 9;
  MemberSpanAtLine(module, u"X", 3, kind, body, count, start);
  EXPECT_EQ(kind, 1) << "one line past the member is still its own";
  EXPECT_EQ(MemberKindAtLine(module, u"X", 3, false), 3);
  kind = body = count = start = 9;
  MemberSpanAtLine(module, u"X", 40, kind, body, count, start);
  EXPECT_EQ(kind + body + count + start, 36) << "untouched";
}

TEST(DeleteUnderline, JoinsContinuedLines) {
  EXPECT_EQ(DeleteUnderline(u"a _\r\n    b"), u"a b");
  EXPECT_EQ(DeleteUnderline(u"a_\r\nb"), u"a_\r\nb");
  EXPECT_EQ(DeleteUnderline(u"a _\r\n b _\r\n  c\r\nd"), u"a b c\r\nd");
  EXPECT_EQ(DeleteUnderline(u"a _\r\n"), u"a ");
  EXPECT_EQ(DeleteUnderline(u""), u"");
}

TEST(DopLine, CountsTheLinesAtTheHeadThatEndInAnUnderscore) {
  EXPECT_EQ(DopLine(u"a _"), 1);
  EXPECT_EQ(DopLine(u"a"), 0);
  EXPECT_EQ(DopLine(u"a _\r\nb_\r\nc\r\nd _"), 2);
  EXPECT_EQ(DopLine(u""), 0);
}

TEST_F(Scanning, ReadsTheKeyCommentAboveALine) {
  const auto module =
      world_.Module(u"M", u"Dim x\r\n  'ERRMARKER: abc  \r\nSub A()\r\nEnd Sub\r\n'errMarker:abc");
  String key = u"old";
  EXPECT_TRUE(GetKEYDeclare(module, 3, key));
  EXPECT_EQ(key, u"abc");
  EXPECT_FALSE(GetKEYDeclare(module, 6, key)) << "no blank behind the colon";
  EXPECT_EQ(key, u"");
}

TEST_F(Scanning, DoesNotReadTheModuleForLineOne) {
  const auto module = world_.Module(u"M", u"'errMarker: x");
  bool read = false;
  world_.Environment.SetOperationHook(
      [&](std::string_view operation) { read |= operation == "CodeModule.Lines"; });
  String key;
  EXPECT_FALSE(GetKEYDeclare(module, 1, key));
  EXPECT_FALSE(read);
}

TEST_F(Scanning, ReadsTheKeyOfAComponentFromItsDeclarations) {
  EXPECT_EQ(GetKEYDeclareComponent(world_.Module(u"M", u"'errMarker: S\r\nDim x")), u"S");
  EXPECT_EQ(GetKEYDeclareComponent(world_.Module(u"N", u"'errMarker: S\r\nSub A()\r\nEnd Sub")),
            u"");
}

TEST_F(Scanning, FillsPlaceholdersInTheirOrder) {
  EXPECT_EQ(DekodeKeyWord(u"{ProjectName}|{ComponentName}|{MemberName}|{MemberType}|{ControlName}|"
                          u"{ComputerName}|{UserName}|{Date}|{Time}|{date}",
                          u"{Date}", u"C", u"M", u"T", u""),
            u"2026-11-21|C|M|T||WORKSHOP|builder|2026-11-21|14:05:09|{date}");
}

struct MessageCase {
  int Code;
  StringView Text;
};

TEST_F(Scanning, ShowsEveryMessageWithItsPlaceholders) {
  const MessageCase cases[] = {
      {1, u"The meaning can not be a number"},
      {2, u"Number can not be the first symbol in the name, field: \"A\""},
      {3, u"Impossible symbols in the field: \"A\"  \"B\""},
      {4, u"It is required to fill in the filed: \"A\""},
      {5,
       u"It is not possible to increase the quantity of Arguments,\r\ni.e.in \"A\" in the field: "
       u"in \"B\" meaning = \"C\""},
      {6, u"Argument must have the meaning \"A\""},
      {7, u"The meaning \"ParamArray\" must be the last in the list of parameters"},
      {8, u"The \"A\" component already exits in this project."},
      {9, u"It is necessary to have at least one meaning for  Enum parameter"},
      {10, u"The meaning must be >= 0"},
      {11, u"The name of the record must not be empty"},
      {12, u"Duplicating the names in the table. Name \"A\""},
      {13, u"Form: \"A\" is created not in the VBA format"},
      {14, u"It is necessary to choose the node to add objects"},
      {15, u"File with the name: \"A\" is already opened, choose another file"},
      {16, u"It is not possible to close Data Base: \"A\""},
      {17, u"Form: \"A\" is created not in the VB format"},
      {18, u"Form: \"A\" is created not in the MDI format"},
      {19, u"The name of the control: \"A\" is already in use on the form"},
      {20, u""},
      {0, u""}};
  auto& messages = world_.Services.DesktopService.Messages;
  for (const MessageCase& one : cases) {
    EXPECT_FALSE(myBreak(one.Code, u"A", u"B", u"C"));
    EXPECT_EQ(messages.back().Text, one.Text);
    EXPECT_EQ(messages.back().Title, u"Tessel");
    EXPECT_EQ(messages.back().Style, 48);
  }
  myBreak(3, u"label", u"!@#", u"");
  EXPECT_EQ(messages.back().Text, u"Impossible symbols in the field: \"label\"  \"!@#\"");
}

TEST(GetBadSymbols, FindsAnyOfTheForbiddenCharacters) {
  EXPECT_EQ(BadNameSymbols.size(), 27U);
  EXPECT_FALSE(GetBadSymbols(u"", BadNameSymbols));
  EXPECT_FALSE(GetBadSymbols(u"abc_1", BadNameSymbols));
  for (const char16_t unit : BadNameSymbols) {
    EXPECT_TRUE(GetBadSymbols(u"a" + String(1, unit), BadNameSymbols));
  }
}

TEST_F(Scanning, AcceptsNumbersAndNothingAsDigits) {
  EXPECT_TRUE(ControlDigit(u""));
  EXPECT_TRUE(ControlDigit(u"12"));
  EXPECT_FALSE(ControlDigit(u"x"));
  EXPECT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
}

TEST_F(Scanning, FillsAComboBoxAndSelectsByText) {
  forms::Form form("f", u"");
  forms::ComboBox combo(&form, "c");
  AddListInCombobox(combo, std::vector<String>{u"a", u"B"}, u"b");
  EXPECT_EQ(combo.ListIndex(), 1);
  AddListInCombobox(combo, std::vector<String>{u"a", u"B"}, u"x");
  EXPECT_EQ(combo.ListIndex(), -1) << "a default that isn't there shows no selection";
  AddListInCombobox(combo, std::vector<String>{u"a", u"B"});
  EXPECT_EQ(combo.ListIndex(), 0);
  AddListInCombobox(combo, String(u"only"));
  EXPECT_EQ(combo.Text(), u"only");
}

TEST_F(Scanning, FindsComponentsOfTheActiveProject) {
  world_.Module(u"M", u"");
  EXPECT_TRUE(FindComponentName(world_.Environment.VBE(), u"m"));
  EXPECT_FALSE(FindComponentName(world_.Environment.VBE(), u"x"));
  EXPECT_FALSE(FindComponentName(nullptr, u"x"));
}

TEST_F(Scanning, ReadsAuthorAndDateUnlessTheyAreSwitchedOff) {
  gAppSettings = std::make_shared<CAppSettings>();
  gAppSettings->Init(u"Norvane", u"Tessel");
  constexpr StringView section = u"Settings\\VBCode\\frmSettings";
  gAppSettings->SaveSetting(section, u"Author", String(u"Ann"));
  EXPECT_EQ(IncludeAuthor(), u"Ann");
  EXPECT_EQ(IncludeDate(), u"2026-11-21 14:05:09");
  EXPECT_TRUE(IncludeAutoPosition());
  for (const StringView key : {u"IncludeAutor", u"IncludeDateTime", u"AutoPosition"}) {
    gAppSettings->SaveSetting(section, key, 0);
  }
  EXPECT_EQ(IncludeAuthor(), u"");
  EXPECT_EQ(IncludeDate(), u"");
  EXPECT_FALSE(IncludeAutoPosition());
  gAppSettings.reset();
}

TEST(TransMatrix, TurnsRowsIntoColumns) {
  using Matrix = std::optional<std::vector<std::vector<int>>>;
  EXPECT_EQ(TransMatrix(Matrix({{1, 2, 3}, {4, 5, 6}})), Matrix({{1, 4}, {2, 5}, {3, 6}}));
  EXPECT_EQ(TransMatrix(Matrix()), Matrix());
}

TEST_F(Scanning, ColoursSpansAndStopsAtAnEndThatIsMissing) {
  forms::Form form("f", u"");
  forms::RichTextBox box(&form, "b");
  box.SetText(u"a <b> c <d");
  PicoutStartEnd(box, u"<", u">", 0x808080);
  using Run = forms::ColoredText::Run;
  EXPECT_EQ(box.Content().Runs, (std::vector<Run>{{2, 0}, {3, 0x808080}, {5, 0}}));
}

}  // namespace
}  // namespace tessel::mFunctions
