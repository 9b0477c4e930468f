// The small dialogs that compose an argument or an enum's member, by themselves.

#include <gtest/gtest.h>

#include "builders/frmArgumentBuilder.h"
#include "builders/frmEnumBuilder.h"
#include "builders/frmParameterEnum.h"
#include "builders/frmProcedureBuilder.h"
#include "support/DialogWorld.h"

namespace tessel {
namespace {

namespace user = forms::user;

class Composers : public test::DialogWorld {
 protected:
  Composers() { Desktop().Placement = platform::WindowPlacement{}; }

  /// Whether the place of a dialog was kept since the last question.
  bool TakeKept(StringView form) {
    const String section = u"Windows settings\\" + String(form);
    const bool kept = gAppSettings->GetText(section, u"WindowState", u"-1") != u"-1";
    if (kept) gAppSettings->DeleteSetting(section, u"");
    return kept;
  }
};

template <class Dialog>
void Leave(Dialog& dialog, forms::Button& button) {
  user::Press(button);
  EXPECT_FALSE(dialog.Visible());
}

TEST_F(Composers, KeepTheirPlaceOnOkAndOnCancelAlone) {
  for (const bool accept : {true, false}) {
    const auto argument = Open<frmArgumentBuilder>();
    Leave(*argument, accept ? argument->btmOK : argument->btmCansel);
    EXPECT_TRUE(TakeKept(u"frmArgumentBuilder"));
    EXPECT_EQ(argument->Result.empty(), !accept);
    argument->Unload();
    EXPECT_FALSE(TakeKept(u"frmArgumentBuilder")) << "unloading keeps nothing";
    const auto member = Open<frmParameterEnum>();
    Leave(*member, accept ? member->btmOK : member->btmCancel);
    EXPECT_TRUE(TakeKept(u"frmParameterEnum"));
    EXPECT_EQ(member->Result.empty(), !accept);
    member->Unload();
    EXPECT_FALSE(TakeKept(u"frmParameterEnum"));
  }
}

TEST_F(Composers, ClosedByTheFrameTheyGiveNothingAndKeepNoPlace) {
  const auto argument = Open<frmArgumentBuilder>();
  user::Close(*argument);
  EXPECT_EQ(argument->Result, u"");
  EXPECT_FALSE(TakeKept(u"frmArgumentBuilder"));
  const auto member = Open<frmParameterEnum>();
  user::Close(*member);
  EXPECT_EQ(member->Result, u"");
  EXPECT_FALSE(TakeKept(u"frmParameterEnum"));
}

TEST_F(Composers, ARefusedFieldKeepsTheDialogUpAndItsPlaceForgotten) {
  const auto argument = Open<frmArgumentBuilder>();
  user::Type(argument->txtName, u"1a");
  user::Press(argument->btmOK);
  EXPECT_TRUE(argument->Visible());
  EXPECT_FALSE(TakeKept(u"frmArgumentBuilder"));
  ExpectBoxes(1);
  argument->Unload();
}

/// A root whose closing of the builders fails.
struct StubbornConnect : test::FakeConnect {
  void HideProcedureBuilder() override { throw vb::Failure(7, u"no"); }
  void HideEnum() override { throw vb::Failure(7, u"no"); }
};

TEST_F(Composers, AFailureBehindAButtonIsReportedWithTheButtonsRoutine) {
  root_ = std::make_shared<StubbornConnect>();
  Desktop().OnModal = [](forms::Form& form) { user::Press(*form.Find(u"btnAbort")); };
  const auto procedure = Open<frmProcedureBuilder>();
  user::Press(procedure->Part.btmCancel);
  const auto enums = Open<frmEnumBuilder>();
  user::Press(enums->Part.btmCancel);
  const auto reports = world_.Errors.Take();
  ASSERT_EQ(reports.size(), 2U);
  EXPECT_NE(reports[0].find(u"frmProcedureBuilder.btmCancel_Click"), String::npos);
  EXPECT_NE(reports[1].find(u"frmEnumBuilder.btmCancel_Click"), String::npos);
  procedure->Unload();
  enums->Unload();
}

}  // namespace
}  // namespace tessel
