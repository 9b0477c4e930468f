// What the dialogs keep, how they go, and the account of their runs.

#include <gtest/gtest.h>

#include "errorhandlers/frmErrorHandlerScheme.h"
#include "errorhandlers/frmInsertErrorHandlerCode.h"
#include "errorhandlers/frmRemoveErrorHandlerCode.h"
#include "support/DialogWorld.h"

namespace tessel {
namespace {

namespace user = forms::user;

class HandlerDialogs : public test::DialogWorld {
 protected:
  HandlerDialogs() : DialogWorld(ActionMessageBox) {
    world_.Module(u"M", u"Option Explicit\r\nSub A()\r\nx = 1\r\nEnd Sub\r\nSub B()\r\nEnd Sub");
    world_.Module(u"N", u"Sub C()\r\nEnd Sub");
    world_.Caret(u"M", 3);
  }
  ~HandlerDialogs() override { ExpectBoxes(Expected); }

  [[nodiscard]] static String Stored(StringView key) {
    return gAppSettings->GetText(u"Settings\\VBCode\\frmInsertErrorHandlerCode", key, u"(none)");
  }
  void FailOnce(const std::string& operation) {
    DialogWorld::FailOnce(operation);
    Expected = 1;
  }

  std::size_t Expected = 0;
};

// The choices

TEST_F(HandlerDialogs, KeepTheChoicesByComponentTypeAndNotTheSingleScheme) {
  auto dialog = Open<frmInsertErrorHandlerCode>();
  EXPECT_EQ(dialog->ComModule.Text(), u"") << "nothing is chosen at first";
  const String single = dialog->ComCurrentScheme.Text();
  EXPECT_EQ(dialog->ComCurrentScheme.ListIndex(), 0);
  user::Pick(dialog->ComInsertIN, u"Current Project   [Project1]");
  user::Pick(dialog->ComForm, u"Log to File");
  user::Pick(dialog->ComModule, u"Message Box");
  user::Pick(dialog->ComClass, u"Raise to Caller");
  user::Pick(dialog->ComDocument, u"Log to File");
  user::Pick(dialog->ComActiveX, u"Message Box");
  user::Pick(dialog->ComInsertIN, u"Current Component [M]");
  user::Pick(dialog->ComCurrentScheme, u"Raise to Caller");
  user::Press(dialog->btmBegin);
  EXPECT_EQ(Stored(u"ComForm"), u"Log to File");
  EXPECT_EQ(Stored(u"ComModule"), u"Message Box");
  EXPECT_EQ(Stored(u"ComClass"), u"Raise to Caller");
  EXPECT_EQ(Stored(u"ComDocument"), u"Log to File");
  EXPECT_EQ(Stored(u"ComActiveX"), u"Message Box");
  EXPECT_EQ(Stored(u"ComCurrentScheme"), u"(none)");
  dialog = Open<frmInsertErrorHandlerCode>();
  EXPECT_EQ(dialog->ComForm.Text(), u"Log to File");
  EXPECT_EQ(dialog->ComModule.Text(), u"Message Box");
  EXPECT_EQ(dialog->ComClass.Text(), u"Raise to Caller");
  EXPECT_EQ(dialog->ComCurrentScheme.Text(), single);
  dialog->Unload();
}

TEST_F(HandlerDialogs, KeepNothingOfACancelledInsertion) {
  const auto dialog = Open<frmInsertErrorHandlerCode>();
  user::Pick(dialog->ComInsertIN, u"Current Project   [Project1]");
  user::Pick(dialog->ComForm, u"Log to File");
  user::Press(dialog->btmCancel);
  EXPECT_EQ(Stored(u"ComForm"), u"(none)");
  dialog->Unload();
}

TEST_F(HandlerDialogs, AStoredChoiceThatIsGoneSelectsNothing) {
  gAppSettings->SaveSetting(u"Settings\\VBCode\\frmInsertErrorHandlerCode", u"ComForm", u"Gone");
  const auto dialog = Open<frmInsertErrorHandlerCode>();
  EXPECT_EQ(dialog->ComForm.ListIndex(), -1);
  dialog->Unload();
}

TEST_F(HandlerDialogs, BeginNothingWithoutAScope) {
  world_.Environment.RemoveProject(u"Project1");
  const auto insertion = Open<frmInsertErrorHandlerCode>();
  EXPECT_FALSE(insertion->btmBegin.Enabled());
  insertion->Unload();
  const auto removal = Open<frmRemoveErrorHandlerCode>();
  EXPECT_FALSE(removal->btmBegin.Enabled());
  removal->Unload();
}

// How they go

TEST_F(HandlerDialogs, TheEditorLetsOthersOpenWhenItsLastWriteIsAborted) {
  const auto dialog = Open<frmErrorHandlerScheme>();
  world_.Services.RegistryService.FailWrites = vb::Failure(5, u"no");
  dialog->Unload();
  Expected = 1;
  EXPECT_FALSE(root_->Open);
  EXPECT_FALSE(dialog->IsLoaded());
}

TEST_F(HandlerDialogs, AnEditorOfAnotherDialogLeavesTheGuardAlone) {
  const auto dialog = Open<frmInsertErrorHandlerCode>();
  bool opened = false;
  world_.Services.DesktopService.OnModal = [&](forms::Form& editor) {
    opened = editor.Name() == u"frmErrorHandlerScheme";
  };
  user::Press(dialog->btmEditSchtmes);
  EXPECT_TRUE(opened);
  EXPECT_TRUE(root_->Open);
  dialog->Unload();
  EXPECT_FALSE(root_->Open);
}

TEST_F(HandlerDialogs, AbortBehindTheHiddenFormUnloadsIt) {
  for (const char* operation : {"VBE.ActiveVBProject", "VBProject.VBComponents"}) {
    const auto dialog = Open<frmRemoveErrorHandlerCode>();
    root_->Open = true;
    int calls =
        std::string(operation) == "VBE.ActiveVBProject" ? 2 : 1;  // the first is visible yet
    world_.Environment.SetOperationHook([&](std::string_view call) {
      if (call == operation && --calls == 0) throw vb::Failure(7, u"no room");
    });
    user::Press(dialog->btmBegin);
    world_.Environment.SetOperationHook({});
    ++Expected;
    EXPECT_FALSE(dialog->IsLoaded()) << operation;
    EXPECT_FALSE(root_->Open) << operation;
    EXPECT_TRUE(world_.Services.DesktopService.Shown.empty()) << operation;
  }
}

TEST_F(HandlerDialogs, AClipboardThatFailsIsToldByItsHandler) {
  const auto dialog = Open<frmErrorHandlerScheme>();
  user::Focus(dialog->RicHeader);
  user::SelectText(dialog->RicHeader, 0, 2);
  const String before = dialog->RicHeader.Text();
  world_.Services.DesktopService.FailClipboard = vb::Failure(521, u"no clipboard");
  user::Press(dialog->btmCopy);
  user::Press(dialog->btmCut);
  world_.Services.DesktopService.FailClipboard.reset();
  Expected = 2;
  const auto& messages = world_.Services.DesktopService.Messages;
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_NE(messages[0].Text.find(u"in Tessel.frmErrorHandlerScheme.btmCopy_Click at"),
            String::npos);
  EXPECT_NE(messages[1].Text.find(u"in Tessel.frmErrorHandlerScheme.btmCut_Click at"),
            String::npos);
  EXPECT_EQ(dialog->RicHeader.Text(), before) << "what can't be kept is not cut";
  dialog->Unload();
}

// The account

TEST_F(HandlerDialogs, TellTheRootWhichMembersARunTouched) {
  const auto dialog = Open<frmInsertErrorHandlerCode>();
  user::Pick(dialog->ComInsertIN, u"Current Project   [Project1]");
  user::Pick(dialog->ComModule, u"Log to File");
  user::Press(dialog->btmBegin);
  ASSERT_EQ(root_->Ended.size(), 1U);
  const RunResult& result = root_->Ended.front();
  EXPECT_EQ(result.Title, u"Insert Error Handler Code");
  EXPECT_EQ(result.Components, 2);
  ASSERT_EQ(result.Touched.size(), 3U);
  EXPECT_EQ(result.Touched[1].Component, u"M");
  EXPECT_EQ(result.Touched[1].Member, u"B");
  EXPECT_EQ(result.Touched[2].Module->Name(), u"N");
  EXPECT_FALSE(result.Cancelled || result.Aborted);
  EXPECT_TRUE(result.Failures.empty());
}

TEST_F(HandlerDialogs, TellTheRootOfAMemberThatFailed) {
  const auto dialog = Open<frmInsertErrorHandlerCode>();
  user::Pick(dialog->ComInsertIN, u"Current Component [M]");
  FailOnce("CodeModule.InsertLines");
  user::Press(dialog->btmBegin);
  const RunResult& result = root_->Ended.at(0);
  ASSERT_EQ(result.Failures.size(), 1U);
  EXPECT_EQ(result.Failures[0].Component, u"M");
  EXPECT_EQ(result.Failures[0].Member, u"A");
  EXPECT_EQ(result.Failures[0].Number, 7);
  EXPECT_EQ(result.Failures[0].Description, u"no room");
  EXPECT_EQ(result.Failures[0].Routine, u"Tessel.mInsertErrorHandlerCode.RunMemberProcedure");
  ASSERT_EQ(result.Touched.size(), 1U);
  EXPECT_EQ(result.Touched[0].Member, u"B");
  EXPECT_FALSE(result.Aborted) << "the run itself went on";
}

TEST_F(HandlerDialogs, TellTheRootOfARunThatWasAbortedOrCancelled) {
  auto dialog = Open<frmRemoveErrorHandlerCode>();
  user::Pick(dialog->ComRemoveFrom, u"Current Project   [Project1]");
  FailOnce("VBComponents.Item");
  user::Press(dialog->btmBegin);
  EXPECT_TRUE(root_->Ended.at(0).Aborted);
  EXPECT_TRUE(root_->Ended.at(0).Touched.empty());
  world_.Environment.SetOperationHook({});
  dialog = Open<frmRemoveErrorHandlerCode>();
  user::Pick(dialog->ComRemoveFrom, u"Current Project   [Project1]");
  world_.Services.ClockService.OnDoEvents = [&] {
    for (forms::Form* form : world_.Services.DesktopService.Shown) {
      if (form->Name() == u"ProgressBarWindow") user::Press(*form->Find(u"btmCancel"));
    }
  };
  user::Press(dialog->btmBegin);
  EXPECT_TRUE(root_->Ended.at(1).Cancelled);
  EXPECT_FALSE(root_->Ended.at(1).Aborted);
  EXPECT_EQ(root_->Ended.at(1).Components, 1) << "a module once begun is finished";
}

}  // namespace
}  // namespace tessel
