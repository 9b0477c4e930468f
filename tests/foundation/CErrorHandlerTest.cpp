#include "foundation/CErrorHandler.h"

#include <gtest/gtest.h>

#include "forms/User.h"
#include "foundation/Routine.h"
#include "foundation/frmErrorMessage.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

namespace tessel {
namespace {

class Failures : public testing::Test {
 protected:
  Failures() {
    services_.AppService.Folder = folder_.Path().u16string();
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->Init(ActionMessageBox, u"Error Log.txt", true, false, 2, u"Tracing Log.txt");
  }
  ~Failures() override { gErrorHandler.reset(); }

  static std::uint32_t NumberOf(const std::function<void()>& action, String* text = nullptr) {
    try {
      action();
    } catch (const vb::Failure& failure) {
      EXPECT_EQ(failure.Source(), u"Tessel.CErrorHandler");
      if (text != nullptr) *text = failure.Description();
      return static_cast<std::uint32_t>(failure.Number());
    }
    return 0;
  }
  [[nodiscard]] String Report() const { return services_.DesktopService.Messages.back().Text; }

  test::TemporaryFolder folder_;
  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
};

TEST_F(Failures, InitChecksItsArgumentsInOrder) {
  CErrorHandler handler;
  String text;
  for (const int actions : {16, 0}) {
    EXPECT_EQ(NumberOf([&] { handler.Init(actions, u"", true, true, 9, u""); }, &text),
              0x800443FAU);
    EXPECT_EQ(text, u"Invalid error handler actions");
  }
  EXPECT_EQ(NumberOf([&] { handler.Init(8, u"", true, true, 9, u""); }, &text), 0x800443F9U);
  EXPECT_EQ(text, u"Invalid file name");
  EXPECT_EQ(NumberOf([&] { handler.Init(8, u"e", true, true, 4, u""); }, &text), 0x800443FBU);
  EXPECT_EQ(text, u"Invalid tracing flags");
  EXPECT_EQ(NumberOf([&] { handler.Init(8, u"e", true, true, 3, u""); }), 0x800443F9U);
  EXPECT_EQ(handler.ErrorLogFile(), u"e") << "each value is stored after its own check";
}

TEST_F(Failures, PopOnAnEmptyStackWritesNoTrace) {
  gErrorHandler->SetTracingEnabled(true);
  gErrorHandler->CallStackPop();
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "Tracing Log.txt"));
  gErrorHandler->CallStackPush(u"Tessel.A.B", u"");
  gErrorHandler->CallStackPop();
  EXPECT_EQ(folder_.Read("Tracing Log.txt"),
            "2026-11-21 - 14:05:09 --- Entered routine: Tessel.A.B\r\n"
            "2026-11-21 - 14:05:09 --- Exited routine: Tessel.A.B\r\n");
}

TEST_F(Failures, AReportWithoutAStackNamesTheRoutineUnknown) {
  gErrorHandler->HandleError(u"", vb::Failure(5, u"bad"));
  EXPECT_EQ(Report(),
            u"2026-11-21 - 14:05:09\r\n\tError: 5, (bad)\r\n\tin Unknown at line 0\r\n\r\nThe call "
            u"stack is:\r\n");
}

TEST_F(Failures, AReportListsTheNewestRoutineFirst) {
  gErrorHandler->CallStackPush(u"Tessel.Connect.MenuComBarAbout_Click", u"");
  gErrorHandler->CallStackPush(u"Tessel.Connect.ShowAbout", u"p");
  gErrorHandler->HandleError(u"", vb::Failure(-2147467259, u"bad"));
  EXPECT_EQ(
      Report(),
      u"2026-11-21 - 14:05:09\r\n\tError: -2147467259, (bad)\r\n\tin Tessel.Connect.ShowAbout at "
      u"line 0\r\n\r\nThe call stack is:\r\n                    Tessel.Connect.ShowAbout(p)\r\n"
      u"                    Tessel.Connect.MenuComBarAbout_Click()");
}

TEST_F(Failures, WithTheStackDisabledClearLeavesItAndPushStillRecords) {
  gErrorHandler->SetCallStackEnabled(false);
  gErrorHandler->CallStackPush(u"Tessel.A", u"");
  gErrorHandler->CallStackClear();
  EXPECT_EQ(gErrorHandler->CallStack().size(), 1U);
  gErrorHandler->SetCallStackEnabled(true);
  gErrorHandler->CallStackClear();
  EXPECT_TRUE(gErrorHandler->CallStack().empty());
}

TEST_F(Failures, LogsTheReportAndDeletesTheLog) {
  gErrorHandler->SetErrorHandlerActions(ActionLogFile);
  EXPECT_EQ(gErrorHandler->HandleError(u"R", vb::Failure(5, u"bad")), ActionAbort);
  EXPECT_NE(folder_.Read("Error Log.txt").find("\tin R at line 0\r\n"), std::string::npos);
  gErrorHandler->Clear(1, 1);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "Error Log.txt"));
  gErrorHandler->Clear(1, 1);
}

TEST_F(Failures, WritesTheEventLogOnTheNtFamilyOnly) {
  gErrorHandler->SetErrorHandlerActions(ActionEventLog);
  gErrorHandler->HandleError(u"R", vb::Failure(5, u"bad"));
  EXPECT_TRUE(services_.AppService.EventLog.empty());
  services_.AppService.Platform = 2;
  CErrorHandler other;
  other.SetErrorHandlerActions(ActionEventLog);
  other.HandleError(u"R", vb::Failure(5, u"bad"));
  EXPECT_EQ(services_.AppService.EventLog.size(), 1U);
}

TEST_F(Failures, AFailureInsideTheHandlerIsTheComponentsOwn) {
  gErrorHandler->SetErrorHandlerActions(ActionLogFile);
  gErrorHandler->SetErrorLogFile(u"/no/such/folder/log.txt");
  String text;
  EXPECT_EQ(NumberOf([&] { gErrorHandler->HandleError(u"", vb::Failure(5, u"")); }, &text),
            0x800443FCU);
  EXPECT_EQ(text, u"CErrorHandler component failure");
}

// The dialog

TEST_F(Failures, TheFrameOfTheDialogIsAbort) {
  gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
  EXPECT_EQ(gErrorHandler->HandleError(u"", vb::Failure(5, u"bad")), ActionAbort);
}

TEST_F(Failures, TheDialogsButtonsAnswer) {
  gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
  const std::pair<StringView, ErrorAnswer> cases[] = {
      {u"btnAbort", ActionAbort}, {u"btnRetry", ActionRetry}, {u"btnIgnore", ActionIgnore}};
  for (const auto& [button, answer] : cases) {
    services_.DesktopService.OnModal = [name = button](forms::Form& form) {
      auto& own = dynamic_cast<frmErrorMessage&>(form);
      EXPECT_EQ(own.elaTitleCaption.Caption(), u"An error occurred in Tessel");
      EXPECT_FALSE(own.btnSend.Enabled());
      EXPECT_NE(own.txtErrorMessage.Text().find(u"\r\nVersion: 1.0.0"), String::npos);
      forms::user::Press(*form.Find(name));
    };
    EXPECT_EQ(gErrorHandler->HandleError(u"", vb::Failure(5, u"bad")), answer);
  }
}

TEST_F(Failures, SendOpensAMailAndLeavesTheDialogOpen) {
  gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
  gErrorHandler->SetSupportMail(u"a@b");
  services_.DesktopService.OnModal = [&](forms::Form& form) {
    forms::user::Press(*form.Find(u"btnSend"));
    EXPECT_TRUE(form.Visible());
  };
  gErrorHandler->HandleError(u"R", vb::Failure(5, u"a?b"));
  EXPECT_EQ(
      services_.DesktopService.Journal.back(),
      "open open mailto:a@b?subject=An%20error%20occurred%20in%20Tessel&body="
      "--------------------%0A2026-11-21 - 14%3A05%3A09%0A%09Error%3A 5, (a%3Fb)%0A%09in R at line "
      "0%0A%0AThe call stack is%3A%0A%0AVersion%3A 1.0.0%0A--------------------%0A%0A");
}

// Routines

TEST_F(Failures, RetryRunsTheStatementAgainAndIgnoreGoesOn) {
  services_.DesktopService.Answers = {platform::MessageAnswer::Retry,
                                      platform::MessageAnswer::Ignore};
  int tries = 0, behind = 0;
  Routine(u"T.R", [&](const Statements& run) {
    const int value = run([&]() -> int {
      ++tries;
      throw vb::Failure(5, u"bad");
    });
    EXPECT_EQ(value, 0);
    ++behind;
  });
  EXPECT_EQ(tries, 2);
  EXPECT_EQ(behind, 1);
  EXPECT_TRUE(gErrorHandler->CallStack().empty());
}

TEST_F(Failures, AbortLeavesTheRoutineAndItsCallerGoesOnWithAClearedStack) {
  bool inner = false, outer = false;
  Routine(u"T.Outer", [&] {
    Routine(u"T.Inner", [&](const Statements& run) {
      run([] { throw vb::Failure(5, u"bad"); });
      inner = true;
    });
    outer = true;
    EXPECT_TRUE(gErrorHandler->CallStack().empty());
  });
  EXPECT_FALSE(inner);
  EXPECT_TRUE(outer);
}

TEST_F(Failures, WithoutAServiceAFailureGoesToTheCaller) {
  gErrorHandler.reset();
  EXPECT_THROW(Routine(u"T.R", [] { throw vb::Failure(5, u"bad"); }), vb::Failure);
}

TEST_F(Failures, ForeignExceptionsAreReportedToo) {
  Routine(u"T.R", [] { throw std::runtime_error("odd"); });
  EXPECT_NE(Report().find(u"Error: 51, (odd)"), String::npos);
}

}  // namespace
}  // namespace tessel
