#include <gtest/gtest.h>

#include "errorhandlers/CSQLErrorHandler.h"
#include "errorhandlers/frmErrorHandlerScheme.h"
#include "errorhandlers/frmInsertErrorHandlerCode.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"

namespace tessel {
namespace {

namespace insert = mInsertErrorHandlerCode;
namespace drop = mRemoveErrorHandlerCode;

class Handlers : public testing::Test {
 protected:
  Handlers() {
    database_.Connection->Execute(u"DELETE * FROM ErrorHandlerScheme");
    Scheme({u"Numbered", u"On Error GoTo Failed", u"Exit {MemberType}\r\nFailed:", true, 100, 10,
            false, u""});
    Scheme({u"Plain", u"On Error GoTo Failed", u"Exit {MemberType}\r\nFailed:", false, 0, 0, true,
            u"Failed"});
    insert::Init_mRecord_ErrorHandlerScheme(context_);
  }

  void Scheme(const ErrorHandlerScheme& scheme) {
    table_.InsertRecord(scheme.NameError);
    table_.UpdateRecord(scheme);
  }
  void Insert(StringView scope, String scheme) {
    insert::RunInsertErrorHandlerCode(
        context_, world_.Environment.VBE()->ActiveVBProject()->VBComponents(), scope, scheme);
  }
  void Remove(StringView scope) {
    drop::RunRemoveErrorHandlerCode(
        context_, world_.Environment.VBE()->ActiveVBProject()->VBComponents(), scope);
  }

  insert::RunContext context_;
  test::World world_;
  test::SharedDatabase database_;
  CSQLErrorHandler table_;
};

constexpr StringView Body =
    u"Sub A(ByVal n As Integer)\r\n    n = 1\r\n    ' note\r\n    If n Then\r\n        n = 2\r\n   "
    u" End "
    u"If\r\nEnd Sub";

TEST_F(Handlers, DressAMemberLineByLine) {
  EXPECT_EQ(insert::WorkTextComponentMember(context_, Body, u"Numbered"),
            u"Sub A(ByVal n As Integer)\r\n"
            u"    '<errHeader>\r\n"
            u"On Error GoTo Failed\r\n"
            u"    '</errHeader>\r\n"
            u"100 n = 1\r\n"
            u"    ' note\r\n"
            u"110 If n Then\r\n"
            u"120     n = 2\r\n"
            u"    End If\r\n"
            u"    '<errFooter>\r\n"
            u"Exit Sub\r\n"
            u"Failed:\r\n"
            u"    '</errFooter>\r\n"
            u"End Sub");
}

TEST_F(Handlers, ShiftTheBodyOneColumnForEachNumberedRun) {
  const String once = insert::WorkTextComponentMember(context_, Body, u"Numbered");
  const String twice = insert::WorkTextComponentMember(context_, once, u"Numbered");
  EXPECT_NE(twice.find(u"\r\n100  n = 1\r\n"), String::npos);
  EXPECT_NE(
      insert::WorkTextComponentMember(context_, twice, u"Numbered").find(u"\r\n100   n = 1\r\n"),
      String::npos);
}

TEST_F(Handlers, ChangeNothingInASecondRunOfAnUnnumberedScheme) {
  const String once = insert::WorkTextComponentMember(
      context_, u"Sub A(ByVal n As Integer)\r\n    n = 1\r\n    ' note\r\n    Call B\r\nEnd Sub",
      u"Plain");
  EXPECT_EQ(insert::WorkTextComponentMember(context_, once, u"Plain"), once);
}

// A line in column 1 that holds a blank doesn't count towards the margin, so what is nested below
// it is taken for the body.
TEST_F(Handlers, MoveNestedLinesLeftWhenTheBodyStandsAtColumnOne) {
  const String once = insert::WorkTextComponentMember(context_, Body, u"Plain");
  EXPECT_NE(once.find(u"\r\nIf n Then\r\n    n = 2\r\nEnd If\r\n"), String::npos);
  const String twice = insert::WorkTextComponentMember(context_, once, u"Plain");
  EXPECT_NE(twice.find(u"\r\nIf n Then\r\nn = 2\r\nEnd If\r\n"), String::npos);
  EXPECT_EQ(insert::WorkTextComponentMember(context_, twice, u"Plain"), twice);
}

TEST_F(Handlers, AddOneEmptyLineAtHeadAndFootForAnEmptyScheme) {
  Scheme({u"Empty", u"", u"", false, 0, 0, false, u""});
  insert::Init_mRecord_ErrorHandlerScheme(context_);
  EXPECT_EQ(insert::WorkTextComponentMember(context_, u"Sub A()\r\nx = 1\r\nEnd Sub", u"Empty"),
            u"Sub A()\r\n\r\nx = 1\r\n\r\nEnd Sub");
}

TEST_F(Handlers, StripAMemberWhoseSchemeIsGone) {
  EXPECT_EQ(
      insert::WorkTextComponentMember(context_, u"Sub A()\r\n\r\n10 x = 1\r\nEnd Sub", u"Gone"),
      u"Sub A()\r\n x = 1\r\nEnd Sub");
}

TEST_F(Handlers, PadWithoutNumbersForAStepAndBaseOfZero) {
  Scheme({u"Zero", u"", u"", true, 0, 0, false, u""});
  insert::Init_mRecord_ErrorHandlerScheme(context_);
  EXPECT_EQ(
      insert::WorkTextComponentMember(context_, u"Sub A()\r\nx = 1\r\nDim y\r\nEnd Sub", u"Zero"),
      u"Sub A()\r\n\r\nx = 1\r\n  Dim y\r\n\r\nEnd Sub");
}

TEST_F(Handlers, PutTheHeaderBehindTheLastLineOfTheHead) {
  EXPECT_EQ(insert::WorkTextComponentMember(
                context_, u"Private Function A( _\r\n  b)\r\nx = 1\r\nEnd Function", u"Numbered"),
            u"Private Function A( _\r\n    b)\r\n    '<errHeader>\r\nOn Error GoTo Failed\r\n    "
            u"'</errHeader>\r\n100 x = 1\r\n    '<errFooter>\r\nExit Function\r\nFailed:\r\n    "
            u"'</errFooter>\r\nEnd Function");
}

TEST_F(Handlers, TurnOnErrorGoToZeroIntoTheLabelAndBack) {
  const String text =
      insert::WorkTextComponentMember(context_, u"Sub A()\r\nOn Error GoTo 0\r\nEnd Sub", u"Plain");
  EXPECT_NE(text.find(u"\r\nOn Error GoTo Failed\r\n'<errFooter>"), String::npos);
  EXPECT_EQ(vb::Join(*drop::RemoveErrorHandlerScheme(text, u"Failed"), u"|"),
            u"Sub A()|On Error GoTo 0|End Sub");
}

struct KindCase {
  StringView Line;
  std::int32_t Kind;
};

TEST_F(Handlers, SortLinesByTheirFirstWords) {
  const KindCase cases[] = {{u"Sub A()", 0},
                            {u"Public Static Sub A()", 0},
                            {u"End Sub", 1},
                            {u"Foo:", 2},
                            {u"Dim x", 4},
                            {u"Const c = 1", 4},
                            {u"On Error Resume Next", 4},
                            {u"Else", 4},
                            {u"Next i", 4},
                            {u"End If", 4},
                            {u"' c", 4},
                            {u"ElseIf x Then", 5},
                            {u"Loop", 5},
                            {u"Loop While x", 5},
                            {u"End", 5},
                            {u"#If x Then", 5},
                            {u"Wend", 5},
                            {u"a = 1: Dim b", 5},
                            {u"Exit Sub", 5},
                            {u"Private _", 0}};
  for (const KindCase& one : cases) {
    String line = u"  " + String(one.Line);
    EXPECT_EQ(insert::ReturnTypeProcessing(context_, line), one.Kind) << vb::ToUtf8(one.Line);
    EXPECT_EQ(line, one.Line);
  }
}

TEST_F(Handlers, NumberTheSecondCaseAndKeepTheFlagAcrossMembers) {
  String line = u"Select Case x";
  EXPECT_EQ(insert::ReturnTypeProcessing(context_, line), 5);
  String head = u"Sub B()";
  EXPECT_EQ(insert::ReturnTypeProcessing(context_, head), 0);
  String first = u"Case 1", second = u"Case 2";
  EXPECT_EQ(insert::ReturnTypeProcessing(context_, first), 4);
  EXPECT_EQ(insert::ReturnTypeProcessing(context_, second), 5);
}

TEST_F(Handlers, TellTheTypeOfAMember) {
  EXPECT_EQ(insert::GetMemberType(u"Private sub A()"), u"Sub");
  EXPECT_EQ(insert::GetMemberType(u"Function A() ' a sub "), u"Function");
  EXPECT_EQ(insert::GetMemberType(u"Property Let A(v)"), u"Property");
  EXPECT_EQ(insert::GetMemberType(u"x\r\nSub A()"), u"");
}

TEST_F(Handlers, TakeABlockOutWhateverTheCaseAndSwallowAnOpenOne) {
  EXPECT_EQ(
      vb::Join(
          *drop::RemoveErrorHandlerScheme(
              u"Sub A()\r\n'<ERRHEADER>\r\nanything: 1\r\n'</errheader>\r\n  x\r\nEnd Sub", u""),
          u"|"),
      u"Sub A()|x|End Sub");
  EXPECT_EQ(vb::Join(*drop::RemoveErrorHandlerScheme(
                         u"Sub A()\r\ny = \"'<errFooter>\"\r\nx\r\nEnd Sub", u""),
                     u"|"),
            u"Sub A()");
}

TEST_F(Handlers, TakeAnyNumberAtTheHeadOfALineForALineNumber) {
  int left = 9999;
  EXPECT_EQ(drop::ModifyWorkString(u"10 x = 1", left), u"   x = 1");
  EXPECT_EQ(left, 2);
  EXPECT_EQ(drop::ModifyWorkString(u"Foo:", left), u"Foo:");
  EXPECT_EQ(left, 2);
  EXPECT_EQ(drop::ModifyWorkString(u"Beep", left), u"Beep");
  EXPECT_EQ(left, 0);
}

// Runs

TEST_F(Handlers, PassOverASkippedMemberInProjectRunsAndHandleItByItself) {
  const StringView code =
      u"'errMarker: Skip\r\nSub A()\r\n\r\nx\r\nEnd Sub\r\nSub B()\r\ny\r\nEnd Sub\r\n";
  world_.Module(u"M", code);
  context_.ModuleScheme = u"Plain";
  Insert(u"Current Project   [Project1]", u"");
  EXPECT_EQ(world_.Text(u"M").substr(0, 39), String(code).substr(0, 39));
  EXPECT_NE(world_.Text(u"M").find(u"Sub B()\r\n'<errHeader>"), String::npos);
  Remove(u"Current Component [M]");
  EXPECT_EQ(world_.Text(u"M").substr(0, 39), String(code).substr(0, 39));
  world_.Caret(u"M", 4);
  Insert(u"Current Method    [A]", u"Plain");
  EXPECT_EQ(world_.Text(u"M").substr(0, 40), u"'errMarker: Plain\r\nSub A()\r\n'<errHeader>");
}

TEST_F(Handlers, GiveClassesTheModulesChoice) {
  world_.Environment.AddComponent(u"", host::vbext_ct_ClassModule, u"C",
                                  u"Sub A()\r\nx\r\nEnd Sub\r\n");
  context_.ModuleScheme = u"Plain";
  context_.ClassScheme = u"Numbered";
  Insert(u"Current Project   [Project1]", u"");
  EXPECT_EQ(world_.Text(u"C").substr(0, 19), u"'errMarker: Plain\r\n");
}

TEST_F(Handlers, LeaveExactlyTheMembersDoneWhenCancelled) {
  world_.Module(u"M", u"Sub A()\r\nx\r\nEnd Sub\r\nSub B()\r\ny\r\nEnd Sub\r\n");
  int events = 0;
  world_.Services.ClockService.OnDoEvents = [&] {
    if (++events != 1) return;
    for (forms::Form* form : world_.Services.DesktopService.Shown) {
      if (auto* const cancel = dynamic_cast<forms::Button*>(form->Find(u"btmCancel")))
        cancel->Click();
    }
  };
  Insert(u"Current Component [M]", u"Plain");
  const String text = world_.Text(u"M");
  EXPECT_NE(text.find(u"Sub A()\r\n'<errHeader>"), String::npos);
  EXPECT_NE(text.find(u"Sub B()\r\ny\r\nEnd Sub"), String::npos);
  EXPECT_EQ(text.find(u"errMarker"), String::npos);
}

TEST_F(Handlers, GiveTheCodeBackWhenTheyGoOutAgain) {
  const StringView code = u"Sub A()\r\nx = 1\r\nIf x Then\r\ny\r\nEnd If\r\nEnd Sub";
  const String dressed = insert::WorkTextComponentMember(context_, code, u"Plain");
  EXPECT_EQ(vb::Join(*drop::RemoveErrorHandlerScheme(dressed, u""), vb::CrLf), code);
}

// Schemes and dialogs

TEST_F(Handlers, CountASingleSchemeAsNoneInTheLists) {
  table_.DeleteRecord(u"Plain");
  EXPECT_FALSE(table_.GetTable().has_value());
  EXPECT_FALSE(table_.GetListNameError().has_value());
  EXPECT_TRUE(table_.GetRecordTable(u"Numbered").has_value());
  table_.UpdateRecordKey(u"Other", u"Numbered");
  EXPECT_TRUE(table_.GetRecordTable(u"Other").has_value());
  table_.InsertRecord(u"");
  EXPECT_FALSE(table_.GetListNameError().has_value());
  EXPECT_EQ(insert::ReturnIndexErrorHandlerScheme(context_, u"numbered"), 0);
  EXPECT_EQ(insert::ReturnIndexErrorHandlerScheme(context_, u"skip"), 9999);
}

TEST_F(Handlers, TheDialogShowsThePageOfItsScopeAndAPreview) {
  world_.Module(u"M", u"Sub A()\r\nx\r\nEnd Sub");
  world_.Caret(u"M", 2);
  const auto form = std::make_shared<frmInsertErrorHandlerCode>();
  form->VBInstance = world_.Environment.VBE();
  form->Show();
  EXPECT_EQ(form->C1TTab1Tab2.CurrTab(), 1);
  EXPECT_NE(
      form->RicPreView.Text().find(u"'<errHeader>\r\nOn Error GoTo Failed\r\n    '</errHeader>"),
      String::npos);
  forms::user::Pick(form->ComInsertIN, 2);
  EXPECT_EQ(form->C1TTab1Tab2.CurrTab(), 0);
  forms::user::Pick(form->ComInsertIN, 0);
  forms::user::Pick(form->ComCurrentScheme, u"Plain");
  forms::user::Press(form->btmBegin);
  EXPECT_EQ(world_.Text(u"M").substr(0, 28), u"'errMarker: Plain\r\nSub A()\r\n");
}

TEST_F(Handlers, TheEditorWritesAFieldWhenItLosesTheFocus) {
  const auto form = std::make_shared<frmErrorHandlerScheme>();
  form->VBInstance = world_.Environment.VBE();
  form->Show();
  ASSERT_EQ(form->VSFErrorHandler.Rows(), 3);
  forms::user::Type(form->txtBaseNumber, u"7");
  forms::user::Focus(form->txtStep);
  EXPECT_EQ(table_.GetRecordTable(u"Numbered")->BaseNumber, 7);
  forms::user::Type(form->txtStep, u"abc");
  forms::user::Focus(form->chkChangeOn);
  EXPECT_EQ(world_.Services.DesktopService.Messages.back().Text,
            u"The meaning can not be a number");
  EXPECT_EQ(form->ActiveControl(), &form->txtStep);
  forms::user::Type(form->txtStep, u"");
  forms::user::Focus(form->RicHeader);
  EXPECT_EQ(table_.GetRecordTable(u"Numbered")->Step, 0);
  forms::user::SelectText(form->RicHeader, 0, 0);
  forms::user::PressItem(form->btmStandard, u"MEMBERNAME");
  EXPECT_EQ(form->RicHeader.Text().substr(0, 12), u"{MemberName}");
  world_.Services.DesktopService.Inputs = {String(u"plain"), String(u"New")};
  forms::user::Press(form->btmAdd);
  EXPECT_TRUE(table_.GetRecordTable(u"New").has_value());
  EXPECT_EQ(world_.Services.DesktopService.Messages.back().Text,
            u"Duplicating the names in the table. Name \"plain\"");
  forms::user::EditCell(form->VSFErrorHandler, 3, 1, u"Newer");
  EXPECT_TRUE(table_.GetRecordTable(u"Newer").has_value());
  world_.Services.DesktopService.Answers = {platform::MessageAnswer::Yes,
                                            platform::MessageAnswer::Yes};
  forms::user::Press(form->btmDup);
  EXPECT_TRUE(table_.GetRecordTable(u"Copy Newer").has_value());
  forms::user::Press(form->btmDelete);
  EXPECT_FALSE(table_.GetRecordTable(u"Copy Newer").has_value());
  form->Unload();
}

}  // namespace
}  // namespace tessel
