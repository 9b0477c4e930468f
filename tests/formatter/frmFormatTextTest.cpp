#include "formatter/frmFormatText.h"

#include <gtest/gtest.h>

#include "support/DialogWorld.h"

namespace tessel {
namespace {

namespace user = forms::user;

constexpr StringView Section = u"Settings\\VBCode\\frmFormatText";

class FormatDialog : public test::DialogWorld {
 protected:
  FormatDialog() {
    world_.Module(u"M", u"Option Explicit\r\nSub A()\r\nx = 1\r\nEnd Sub");
    world_.Module(u"N", u"Sub B()\r\ny = 1\r\nEnd Sub");
    world_.Caret(u"M", 3);
  }
  ~FormatDialog() override {
    if (dialog_) dialog_->Unload();
    ExpectBoxes(0);
  }

  frmFormatText& Open() {
    dialog_ = DialogWorld::Open<frmFormatText>(run_);
    return *dialog_;
  }
  [[nodiscard]] static String Stored(StringView key) {
    return gAppSettings->GetText(Section, key, u"(none)");
  }

  std::shared_ptr<mFormatText::FormatRun> run_ = std::make_shared<mFormatText::FormatRun>();
  std::shared_ptr<frmFormatText> dialog_;
};

TEST_F(FormatDialog, OpensWithTheDefaults) {
  const frmFormatText& dialog = Open();
  EXPECT_EQ(dialog.C1TCodeObject.CurrTab(), 0);
  EXPECT_EQ(dialog.ComModule.Text(), u"Current Method    [A]");
  EXPECT_EQ(dialog.ComModule.List().size(), 3U);
  EXPECT_EQ(dialog.chkIndentEntire.Value(), 1);
  EXPECT_EQ(dialog.chkIndentCase.Value(), 1);
  EXPECT_EQ(dialog.chkInsertBlank.Value(), 1);
  EXPECT_EQ(dialog.chkEnableCodeLines.Value(), 1);
  EXPECT_TRUE(dialog.OptCompactWrapped.Value());
  EXPECT_FALSE(dialog.OptWrapCode.Value());
  EXPECT_TRUE(dialog.OptTabChfracters.Value());
  EXPECT_FALSE(dialog.OptSpaceCharacters.Value());
  EXPECT_EQ(dialog.txtCharacrers.Text(), u"90");
  EXPECT_EQ(dialog.txtAdditionalTabs.Text(), u"1");
  EXPECT_EQ(dialog.txtPcs.Text(), u"4");
  EXPECT_EQ(dialog.VScrollCharacters.Value(), 90);
  EXPECT_EQ(dialog.VScrollTabsAdditional.Value(), 1);
  EXPECT_EQ(dialog.VScrollPcs.Value(), 4);
}

TEST_F(FormatDialog, RunsNothingWithoutAScope) {
  world_.Environment.RemoveProject(u"Project1");
  EXPECT_FALSE(Open().btmRun.Enabled());
}

// Enabled states

TEST_F(FormatDialog, EnablesTheWidthOfALevelForBlanksOnly) {
  frmFormatText& dialog = Open();
  EXPECT_FALSE(dialog.txtPcs.Enabled());
  EXPECT_FALSE(dialog.VScrollPcs.Enabled());
  user::Press(dialog.OptSpaceCharacters);
  EXPECT_TRUE(dialog.txtPcs.Enabled());
  EXPECT_TRUE(dialog.VScrollPcs.Enabled());
  user::Press(dialog.OptTabChfracters);
  EXPECT_FALSE(dialog.txtPcs.Enabled());
}

TEST_F(FormatDialog, EnablesTheWrappingNumbersForWrappingOnly) {
  frmFormatText& dialog = Open();
  const auto numbers = [&] {
    const bool on = dialog.txtCharacrers.Enabled();
    EXPECT_EQ(dialog.VScrollCharacters.Enabled(), on);
    EXPECT_EQ(dialog.txtAdditionalTabs.Enabled(), on);
    EXPECT_EQ(dialog.VScrollTabsAdditional.Enabled(), on);
    return on;
  };
  EXPECT_FALSE(numbers());
  user::SelectPage(dialog.C1TCodeObject, 2);
  user::Press(dialog.OptWrapCode);
  EXPECT_TRUE(numbers());
  user::Check(dialog.chkEnableCodeLines, 0);
  EXPECT_FALSE(numbers());
  EXPECT_FALSE(dialog.OptCompactWrapped.Enabled());
  EXPECT_FALSE(dialog.OptWrapCode.Enabled());
  user::Check(dialog.chkEnableCodeLines, 1);
  EXPECT_TRUE(numbers());
  user::Press(dialog.OptCompactWrapped);
  EXPECT_FALSE(numbers());
}

TEST_F(FormatDialog, EnablesTheRulesWithTheBlankLines) {
  frmFormatText& dialog = Open();
  EXPECT_TRUE(dialog.VSFFormatLines.Enabled());
  user::SelectPage(dialog.C1TCodeObject, 1);
  user::Check(dialog.chkInsertBlank, 0);
  EXPECT_FALSE(dialog.VSFFormatLines.Enabled());
  user::Check(dialog.chkInsertBlank, 1);
  EXPECT_TRUE(dialog.VSFFormatLines.Enabled());
}

// Number fields

struct NumberCase {
  forms::TextBox frmFormatText::*Box;
  forms::SpinButton frmFormatText::*Spin;
  int Lowest, Highest;
};

TEST_F(FormatDialog, KeepsItsNumbersInsideTheirBounds) {
  frmFormatText& dialog = Open();
  user::Press(dialog.OptSpaceCharacters);
  user::SelectPage(dialog.C1TCodeObject, 2);
  user::Press(dialog.OptWrapCode);
  const NumberCase cases[] = {
      {&frmFormatText::txtCharacrers, &frmFormatText::VScrollCharacters, 40, 140},
      {&frmFormatText::txtAdditionalTabs, &frmFormatText::VScrollTabsAdditional, 0, 10},
      {&frmFormatText::txtPcs, &frmFormatText::VScrollPcs, 1, 20}};
  for (const NumberCase& one : cases) {
    if (one.Lowest == 1) user::SelectPage(dialog.C1TCodeObject, 0);
    forms::TextBox& box = dialog.*one.Box;
    forms::SpinButton& spin = dialog.*one.Spin;
    const auto typed = [&](StringView text) {
      user::Type(box, text);
      EXPECT_EQ(vb::Str(spin.Value()), box.Text());
      return spin.Value();
    };
    const std::string name = vb::ToUtf8(box.Name());
    EXPECT_EQ(typed(u"abc"), one.Lowest) << name;
    EXPECT_EQ(typed(u"-3"), one.Lowest) << name;
    EXPECT_EQ(typed(u"1000"), one.Highest) << name;
    EXPECT_EQ(typed(u"99999999999"), one.Highest) << name;
    EXPECT_EQ(typed(u""), one.Lowest) << name;
    EXPECT_EQ(typed(vb::Str(one.Highest)), one.Highest) << name;
    user::Spin(spin, one.Lowest + 1);
    EXPECT_EQ(box.Text(), vb::Str(one.Lowest + 1)) << name;
  }
}

// The preview

TEST_F(FormatDialog, ShowsASampleThatFollowsTheTwoIndents) {
  frmFormatText& dialog = Open();
  const auto holds = [&](StringView line) {
    return (u"\r\n" + dialog.RicCode.Text() + u"\r\n").find(u"\r\n" + String(line) + u"\r\n") !=
           String::npos;
  };
  EXPECT_TRUE(holds(u"    ' Comment"));
  EXPECT_TRUE(holds(u"            Case 0"));
  EXPECT_TRUE(holds(u"                ' Comment that can be aligned or not"));
  user::Check(dialog.chkIndentEntire, 0);
  EXPECT_TRUE(holds(u"' Comment"));
  EXPECT_TRUE(holds(u"        Case 0"));
  user::Check(dialog.chkIndentCase, 0);
  EXPECT_TRUE(holds(u"    Case 0"));
  EXPECT_TRUE(holds(u"        ' Comment that can be aligned or not"));
}

// What is kept

TEST_F(FormatDialog, StoresItsOptionsByTheRunAlone) {
  frmFormatText& first = Open();
  user::Check(first.chkIndentCase, 0);
  user::Press(first.btmCancel);
  EXPECT_EQ(Stored(u"chkIndentCase"), u"(none)");
  first.Unload();
  frmFormatText& dialog = Open();
  user::Check(dialog.chkIndentCase, 0);
  user::Press(dialog.OptSpaceCharacters);
  user::Type(dialog.txtPcs, u"2");
  user::SelectPage(dialog.C1TCodeObject, 2);
  user::Press(dialog.OptWrapCode);
  user::Type(dialog.txtCharacrers, u"77");
  user::Press(dialog.btmRun);
  EXPECT_EQ(Stored(u"chkIndentEntire"), u"1");
  EXPECT_EQ(Stored(u"chkIndentCase"), u"0");
  EXPECT_EQ(Stored(u"OptSpaceCharacters"), u"1");
  EXPECT_EQ(Stored(u"OptTabChfracters"), u"0");
  EXPECT_EQ(Stored(u"OptWrapCode"), u"1");
  EXPECT_EQ(Stored(u"OptCompactWrapped"), u"0");
  EXPECT_EQ(Stored(u"txtPcs"), u"2");
  EXPECT_EQ(Stored(u"txtCharacrers"), u"77");
  EXPECT_EQ(Stored(u"txtAdditionalTabs"), u"1");
  EXPECT_EQ(Stored(u"chkHeaderEnum"), u"(none)");
  EXPECT_EQ(world_.Text(u"M"), u"Option Explicit\r\nSub A()\r\n  x = 1\r\nEnd Sub\r\n\r\n");
  const frmFormatText& again = Open();
  EXPECT_EQ(again.chkIndentCase.Value(), 0);
  EXPECT_TRUE(again.OptWrapCode.Value());
  EXPECT_FALSE(again.OptCompactWrapped.Value());
  EXPECT_TRUE(again.txtCharacrers.Enabled());
  EXPECT_EQ(again.txtCharacrers.Text(), u"77");
  EXPECT_EQ(again.VScrollPcs.Value(), 2);
}

TEST_F(FormatDialog, ReadsAnOlderValueIntoAnOptionThatIsOverwrittenAtOnce) {
  gAppSettings->SaveSetting(Section, u"chkHeaderEnum", u"0");
  EXPECT_TRUE(Open().OptCompactWrapped.Value());
}

TEST_F(FormatDialog, KeepsEditsOfTheRulesAlsoWhenItIsCancelled) {
  frmFormatText& dialog = Open();
  user::SelectPage(dialog.C1TCodeObject, 1);
  const String words = dialog.VSFFormatLines.TextMatrix(1, 1);
  EXPECT_THROW(user::EditCell(dialog.VSFFormatLines, 1, 1, u"OTHER"), vb::Failure);
  user::EditCell(dialog.VSFFormatLines, 1, 3, u"9");
  user::Press(dialog.btmCancel);
  store::Recordset records;
  records.Open(u"SELECT FormatText.* FROM FormatText", database_.Connection);
  EXPECT_EQ(store::ToText(records.Field(u"KeyWords")), words);
  EXPECT_EQ(store::ToLong(records.Field(u"Before")), 9);
}

TEST_F(FormatDialog, AnEditThatIsPendingCountsFromTheNextRun) {
  frmFormatText& dialog = Open();
  user::SelectPage(dialog.C1TCodeObject, 1);
  int row = 1;
  while (dialog.VSFFormatLines.TextMatrix(row, 1) != u"SUB") ++row;
  user::EditCell(dialog.VSFFormatLines, row, 3, u"3");
  user::Pick(dialog.ComModule, u"Current Component [M]");
  user::Press(dialog.btmRun);
  const String once = world_.Text(u"M");
  EXPECT_EQ(once.find(u"\r\n\r\n\r\nSub A()"), String::npos) << vb::ToUtf8(once);
  frmFormatText& again = Open();
  user::Pick(again.ComModule, u"Current Component [M]");
  user::Press(again.btmRun);
  EXPECT_NE(world_.Text(u"M").find(u"\r\n\r\n\r\nSub A()"), String::npos);
}

// Runs

TEST_F(FormatDialog, HandsTheAccountOfItsRunToTheRoot) {
  frmFormatText& dialog = Open();
  user::Pick(dialog.ComModule, u"Current Project   [Project1]");
  user::Press(dialog.btmRun);
  ASSERT_EQ(root_->Ended.size(), 1U);
  const RunResult& result = root_->Ended.front();
  EXPECT_EQ(result.Title, u"Format Text");
  EXPECT_EQ(result.Components, 2);
  ASSERT_EQ(result.Touched.size(), 2U);
  EXPECT_EQ(result.Touched[0].Component, u"M");
  EXPECT_EQ(result.Touched[1].Module->Name(), u"N");
  EXPECT_TRUE(result.Failures.empty());
  EXPECT_FALSE(result.Cancelled);
  EXPECT_FALSE(result.Aborted);
}

TEST_F(FormatDialog, OneRunCarriesWhatAModuleLeftToTheNext) {
  database_.Connection->Execute(u"UPDATE FormatText SET Before = 2 WHERE KeyWords = \"SUB\"");
  world_.Environment.SetText(u"M", u"Dim z\r\nSub A()\r\nEnd Sub\r\n'errMarker: Skip");
  frmFormatText& dialog = Open();
  user::Pick(dialog.ComModule, u"Current Project   [Project1]");
  user::Press(dialog.btmRun);
  EXPECT_TRUE(vb::StartsWithText(world_.Text(u"N"), u"Sub B()"))
      << "its blank lines are held back for the key comment that ended the module before: "
      << vb::ToUtf8(world_.Text(u"N"));
}

}  // namespace
}  // namespace tessel
