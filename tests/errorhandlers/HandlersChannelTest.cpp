// Failures of the environment in the middle of a run, as the channel shows them.

#include <gtest/gtest.h>

#include <sstream>

#include "hosts/drive/Session.h"
#include "support/ChannelErrors.h"
#include "support/TemporaryFolder.h"

namespace tessel::drive {
namespace {

constexpr const char* Code =
    R"(Option Explicit\r\nSub A()\r\n    x = 1\r\nEnd Sub\r\nSub B()\r\n    y = 1\r\nEnd Sub)";
const std::string Untouched =
    "Option Explicit\r\nSub A()\r\n    x = 1\r\nEnd Sub\r\nSub B()\r\n    y = 1\r\nEnd Sub";

class HandlersChannel : public testing::Test {
 protected:
  /// Plays requests behind those that open the dialog for a scope.
  std::vector<Json> Play(const std::string& dialog, int scope, const std::string& requests,
                         const std::string& code = Code) {
    const std::string combo = dialog == "Insert" ? "ComInsertIN" : "ComRemoveFrom";
    std::string script = R"({"do":"connect"}
{"do":"new-project","name":"Project1"}
{"do":"add-component","type":1,"name":"M","text":")" +
                         code + R"("}
{"do":"caret","component":"M","line":3}
{"do":"click","path":["Tessel","Tessel",")" +
                         dialog + R"( Error Handler Code"]}
{"do":"pick","control":")" +
                         combo + R"(","index":)" + std::to_string(scope) + "}\n";
    if (dialog == "Insert" && scope < ProjectScope) {
      script += R"({"do":"pick","control":"ComCurrentScheme","text":"Raise to Caller"})"
                "\n";
    }
    std::istringstream in(script + requests);
    std::ostringstream out;
    {
      const test::TemporaryFolder folder;
      Session session({folder.Path() / "program", folder.Path() / "settings.sqlite", false}, in,
                      out);
      session.Run();
    }
    auto replies = test::RepliesOf(out.str());
    // Where a failure was called for, its dialog was too.
    test::ChannelErrors errors;
    errors.Note(replies);
    if (requests.find("fail-next") != std::string::npos) errors.Take();
    const auto asked = std::count(requests.begin(), requests.end(), '\n');
    EXPECT_GE(static_cast<std::ptrdiff_t>(replies.size()), asked);
    replies.erase(replies.begin(), replies.end() - asked);
    return replies;
  }

  static std::string FailNext(const std::string& operation) {
    return R"({"do":"fail-next","operation":")" + operation +
           R"(","number":7,"description":"no room"})"
           "\n";
  }
  static std::string Press(const std::string& button) {
    return R"({"do":"press","control":")" + button + "\"}\n";
  }

  static constexpr int MethodScope = 0, ComponentScope = 1, ProjectScope = 2;
  const std::string Stack = R"({"do":"call-stack"})"
                            "\n",
                    Form = R"({"do":"form"})"
                           "\n",
                    Text = R"({"do":"text","component":"M"})"
                           "\n";
};

struct FailureCase {
  const char* Dialog;
  int Scope;
  const char* Operation;
  const char* Routine;
};

constexpr const char *Begin = "frmInsertErrorHandlerCode.btmBegin_Click",
                     *Insertion = "mInsertErrorHandlerCode.RunInsertErrorHandlerCode",
                     *InsertModule = "mInsertErrorHandlerCode.RunComponentModule",
                     *InsertMember = "mInsertErrorHandlerCode.RunMemberProcedure",
                     *Removal = "mRemoveErrorHandlerCode.RunRemoveErrorHandlerCode",
                     *RemoveMember = "mRemoveErrorHandlerCode.RunRemoveMemberProcedure",
                     *Members = "mFunctions.AllNameProcedures";

constexpr FailureCase Failures[] = {
    {"Insert", 0, "CodeModule.Lines", InsertMember},
    {"Insert", 0, "CodeModule.DeleteLines", InsertMember},
    {"Insert", 0, "CodeModule.InsertLines", InsertMember},
    {"Insert", 0, "CodeModule.ProcBodyLine", InsertMember},
    {"Insert", 0, "CodeModule.CodePane", Insertion},
    {"Insert", 0, "CodePane.GetSelection", Insertion},
    {"Insert", 0, "CodePane.SetSelection", Insertion},
    {"Insert", 0, "CodePane.TopLine", Insertion},
    {"Insert", 0, "VBE.ActiveCodePane", Begin},
    {"Insert", 0, "VBE.ActiveVBProject", Begin},
    {"Insert", 0, "VBProject.VBComponents", Begin},
    {"Insert", 0, "CodeModule.Name", Begin},
    {"Insert", 1, "CodeModule.Lines", InsertMember},
    {"Insert", 1, "CodeModule.DeleteLines", InsertMember},
    {"Insert", 1, "CodeModule.InsertLines", InsertMember},
    {"Insert", 1, "CodeModule.CountOfDeclarationLines", Members},
    {"Insert", 1, "CodeModule.CountOfLines", Members},
    {"Insert", 1, "CodeModule.ProcOfLine", Members},
    {"Insert", 1, "CodeModule.CodePane", Insertion},
    {"Insert", 1, "VBComponents.Count", Insertion},
    {"Insert", 1, "VBComponents.Item", Insertion},
    {"Insert", 1, "VBComponent.Name", Insertion},
    {"Insert", 2, "VBComponents.Item", Insertion},
    {"Insert", 2, "VBComponent.Type", Insertion},
    {"Insert", 2, "CodeModule.InsertLines", InsertMember},
    {"Remove", 0, "CodeModule.Lines", RemoveMember},
    {"Remove", 0, "CodeModule.ProcBodyLine", RemoveMember},
    {"Remove", 0, "CodeModule.DeleteLines", RemoveMember},
    {"Remove", 0, "CodeModule.CodePane", Removal},
    {"Remove", 1, "CodeModule.InsertLines", RemoveMember},
    {"Remove", 1, "VBComponents.Item", Removal},
    {"Remove", 2, "CodeModule.DeleteLines", RemoveMember},
    {"Remove", 2, "CodeModule.ProcOfLine", Members},
};

std::string ReportOf(const Json& form) {
  for (const Json& control : form["controls"]) {
    if (control["name"] == "txtErrorMessage") return control["text"];
  }
  return {};
}

TEST_F(HandlersChannel, EachFailureShowsTheDialogWithItsRoutineOnTopAndAnyAnswerEndsInOrder) {
  for (const FailureCase& one : Failures) {
    const std::string name = one.Dialog + (" " + std::to_string(one.Scope)) + ", " + one.Operation;
    const auto clean = Play(one.Dialog, one.Scope, Press("btmBegin") + Text);
    ASSERT_TRUE(clean[0]["front"].is_null()) << name;
    for (const char* button : {"btnAbort", "btnRetry", "btnIgnore"}) {
      const auto replies = Play(one.Dialog, one.Scope,
                                FailNext(one.Operation) + Press("btmBegin") + Form + Stack +
                                    Press(button) + Text + Stack);
      ASSERT_FALSE(replies[1]["front"].is_null()) << name << ": nobody was told";
      EXPECT_EQ(replies[1]["front"]["form"], "frmErrorMessage") << name;
      EXPECT_NE(ReportOf(replies[2])
                    .find("Error: 7, (no room)\r\n\tin Tessel." + std::string(one.Routine) +
                          " at line 0"),
                std::string::npos)
          << name << '\n'
          << ReportOf(replies[2]);
      ASSERT_FALSE(replies[3]["call-stack"].empty()) << name;
      EXPECT_EQ(replies[3]["call-stack"][0], "Tessel." + std::string(one.Routine)) << name;
      const bool retried = std::string(button) == "btnRetry";
      // Ahead of the run Abort leaves the dialog open, and what was ignored can be missed next.
      if (retried || one.Routine != Begin) {
        EXPECT_TRUE(replies[4]["front"].is_null()) << name << ' ' << button << replies[4].dump();
        EXPECT_TRUE(replies[6]["call-stack"].empty()) << name << ' ' << button;
      }
      if (retried) {
        EXPECT_EQ(replies[5]["text"], clean[1]["text"]) << name << ": as if nothing had been";
      }
    }
  }
}

// As resource files and related documents have none.
TEST_F(HandlersChannel, AComponentWhoseModuleFailsCountsAsOneWithoutMembersInSilence) {
  for (const char* dialog : {"Insert", "Remove"}) {
    for (const int scope : {ComponentScope, ProjectScope}) {
      const auto replies =
          Play(dialog, scope, FailNext("VBComponent.CodeModule") + Press("btmBegin") + Text);
      EXPECT_TRUE(replies[1]["front"].is_null()) << dialog << ' ' << scope;
      EXPECT_EQ(replies[2]["text"], Untouched) << dialog << ' ' << scope;
    }
  }
}

// Abort ends the routine; its caller goes on behind it.
TEST_F(HandlersChannel, AbortLeavesTheMemberAsItWasAndTheRunGoesOnWithTheNext) {
  for (const char* operation : {"CodeModule.InsertLines", "CodeModule.DeleteLines"}) {
    const auto replies =
        Play("Insert", ComponentScope,
             FailNext(operation) + Press("btmBegin") + Press("btnAbort") + Text + Stack);
    EXPECT_TRUE(replies[2]["front"].is_null());
    const std::string text = replies[3]["text"];
    EXPECT_NE(text.find("Sub A()\r\n    x = 1\r\nEnd Sub\r\nSub B()\r\n'<errHeader>"),
              std::string::npos)
        << text;
    EXPECT_TRUE(replies[4]["call-stack"].empty());
  }
}

TEST_F(HandlersChannel, AbortAndIgnoreDifferInWhatFollowsInTheSameRoutine) {
  const auto aborted =
      Play("Insert", MethodScope,
           FailNext("CodeModule.DeleteLines") + Press("btmBegin") + Press("btnAbort") + Text);
  EXPECT_EQ(aborted[3]["text"], Untouched) << "the key comment is not written either";
  const auto ignored =
      Play("Insert", MethodScope,
           FailNext("CodeModule.DeleteLines") + Press("btmBegin") + Press("btnIgnore") + Text);
  EXPECT_EQ(ignored[3]["text"],
            "Option Explicit\r\n'errMarker: Raise to Caller\r\nSub A()\r\n    x = 1\r\nEnd "
            "Sub\r\nSub B()\r\n    y = 1\r\nEnd Sub");
}

// Earlier questions about lines pass over failures, so these are asked for while a dialog is up.
TEST_F(HandlersChannel, RetryCanFailAgainInAnotherCall) {
  const auto replies = Play("Insert", MethodScope,
                            FailNext("CodeModule.ProcBodyLine") + Press("btmBegin") +
                                FailNext("CodeModule.ProcCountLines") + Press("btnRetry") + Stack +
                                FailNext("CodeModule.ProcStartLine") + Press("btnRetry") + Stack +
                                Press("btnRetry") + Text);
  for (const std::size_t failed : {1U, 3U, 6U}) {
    ASSERT_FALSE(replies[failed]["front"].is_null()) << failed;
    EXPECT_EQ(replies[failed]["front"]["form"], "frmErrorMessage") << failed;
  }
  EXPECT_EQ(replies[4]["call-stack"][0], "Tessel." + std::string(InsertMember));
  EXPECT_EQ(replies[7]["call-stack"][0], "Tessel." + std::string(InsertMember));
  EXPECT_TRUE(replies[8]["front"].is_null());
  const auto clean = Play("Insert", MethodScope, Press("btmBegin") + Text);
  EXPECT_EQ(replies[9]["text"], clean[1]["text"]);
}

TEST_F(HandlersChannel, AModulesKeyThatCannotBeReplacedIsToldByTheModulesRoutine) {
  const std::string code = std::string(R"('errMarker: Log to File\r\n)") + Code;
  const auto replies = Play(
      "Insert", ComponentScope,
      FailNext("CodeModule.ReplaceLine") + Press("btmBegin") + Stack + Press("btnIgnore") + Text,
      code);
  EXPECT_EQ(replies[2]["call-stack"][0], "Tessel." + std::string(InsertModule));
  EXPECT_TRUE(replies[3]["front"].is_null());
  const std::string text = replies[4]["text"];
  EXPECT_EQ(text.rfind("'errMarker: Log to File\r\n", 0), 0U);
  EXPECT_NE(text.find("Sub B()\r\n'<errHeader>"), std::string::npos);
}

TEST_F(HandlersChannel, TheStackShowsTheWayFromTheDialogToTheMember) {
  const auto replies =
      Play("Insert", ComponentScope,
           FailNext("CodeModule.InsertLines") + Press("btmBegin") + Stack + Press("btnAbort"));
  const Json& stack = replies[2]["call-stack"];
  ASSERT_GE(stack.size(), 4U);
  EXPECT_EQ(stack[0], "Tessel." + std::string(InsertMember));
  EXPECT_EQ(stack[1], "Tessel." + std::string(InsertModule));
  EXPECT_EQ(stack[2], "Tessel." + std::string(Insertion));
  EXPECT_EQ(stack[3], "Tessel." + std::string(Begin));
}

// A window that stays up, or a dialog that can't be opened again, would be left of a failed run.
TEST_F(HandlersChannel, AfterAnAbortedRunTheDialogsOpenAgain) {
  const auto replies =
      Play("Insert", ComponentScope,
           FailNext("VBComponents.Count") + Press("btmBegin") + Press("btnAbort") +
               R"({"do":"click","path":["Tessel","Tessel","Insert Error Handler Code"]}
{"do":"press","control":"btmCancel"}
{"do":"click","path":["Tessel","Tessel","Remove Error Handler Code"]}
{"do":"press","control":"btmCancel"}
)");
  EXPECT_TRUE(replies[2]["front"].is_null());
  EXPECT_EQ(replies[3]["front"]["form"], "frmInsertErrorHandlerCode");
  EXPECT_EQ(replies[5]["front"]["form"], "frmRemoveErrorHandlerCode");
  EXPECT_TRUE(replies[6]["front"].is_null());
}

}  // namespace
}  // namespace tessel::drive
