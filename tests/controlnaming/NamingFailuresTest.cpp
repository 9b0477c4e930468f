// The naming dialogs in an environment whose calls fail, each in turn.

#include <gtest/gtest.h>

#include <set>

#include "addin/Connect.h"
#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "support/Modules.h"
#include "support/TemporaryFolder.h"

namespace tessel {
namespace {

using forms::user::Press;

class NamingFailures : public testing::Test {
 protected:
  NamingFailures() {
    world_.Services.AppService.Folder = folder_.Path().u16string();
    world_.Form(u"Form1", Before);
    connect_->AddinInstance_OnConnection(world_.Environment.VBE());
    Desktop().OnModal = [this](forms::Form& form) { Attend(form); };
  }
  ~NamingFailures() override {
    connect_->AddinInstance_OnDisconnection();
    gErrorHandler.reset();
  }

  static constexpr StringView Before = u"Sub cmdOld_Click()\r\n  cmdOld.Left = 1\r\nEnd Sub\r\n";
  static constexpr StringView After = u"Sub cmdNew_Click()\r\n  cmdNew.Left = 1\r\nEnd Sub\r\n";

  memory::ScriptedDesktop& Desktop() { return world_.Services.DesktopService; }

  /// Says yes to every dialog that has what it needs, and `answer_` to every report of a failure: a
  /// second report of one failure is aborted.
  void Attend(forms::Form& form) {
    if (form.Name() == u"frmErrorMessage") {
      ++reports_;
      Press(*form.Find(reports_ > 1 ? StringView(u"btnAbort") : answer_));
    } else {
      const auto* const newName = dynamic_cast<forms::ComboBox*>(form.Find(u"cmbNewName"));
      const bool nameless = newName != nullptr && newName->Text().empty();
      Press(*form.Find(form.Name() == u"frmAddControl" ? u"btmOK"
                       : nameless                      ? u"btmNo"
                                                       : u"btmYes"));
    }
  }

  /// Does something whose nth call fails; whether there was such a call.
  template <class Action>
  bool FailsAt(int nth, StringView answer, Action&& action) {
    answer_ = answer;
    reports_ = 0;
    int calls = 0;
    std::string failed;
    world_.Environment.SetOperationHook([&](std::string_view call) {
      if (++calls != nth) return;
      failed = call;
      throw vb::Failure(7, u"no room");
    });
    action();
    world_.Environment.SetOperationHook({});
    if (!failed.empty() && reports_ == 0) silent_.insert(failed);
    (void)world_.Errors.Take();
    return calls >= nth;
  }

  void ExpectAllIsFree(const std::string& where) {
    EXPECT_FALSE(connect_->WindowsFormFennick()) << where;
    EXPECT_TRUE(Desktop().Shown.empty()) << where;
    EXPECT_LE(reports_, 1) << where;
  }

  test::TemporaryFolder folder_;
  test::World world_;
  std::shared_ptr<Connect> connect_ = std::make_shared<Connect>();
  StringView answer_;
  int reports_ = 0;
  std::set<std::string> silent_;  ///< calls whose failure nobody was told of
};

using Calls = std::set<std::string>;
/// What reads members passes over what fails.
const Calls ReadingMembers{"CodeModule.Parent",        "CodeModule.ProcCountLines",
                           "CodeModule.ProcStartLine", "Designer.VBControls",
                           "Properties.Item",          "Property.Value",
                           "VBComponent.Designer",     "VBControl.Properties",
                           "VBControls.Count",         "VBControls.Item"};
constexpr StringView Answers[] = {u"btnAbort", u"btnRetry", u"btnIgnore"};

TEST_F(NamingFailures, ANewControlIsNamedOrKeepsItsNameAndTheGuardIsFree) {
  for (const StringView answer : Answers) {
    int nth = 1;
    for (bool more = true; more; ++nth) {
      more = FailsAt(nth, answer, [&] {
        world_.Environment.AddControl(u"Form1", u"CommandButton", u"Command1",
                                      {{u"Caption", u"Command1"}});
      });
      const std::string where = "call " + std::to_string(nth) + ' ' + vb::ToUtf8(answer);
      ExpectAllIsFree(where);
      const auto controls = world_.Environment.Component(u"Form1")->Designer()->VBControls();
      ASSERT_EQ(controls->Count(), 1) << where;
      const String name = controls->Item(1)->ControlObjectName();
      EXPECT_TRUE(name == u"cmdCommand1" || name == u"Command1" || name == u"cmd" ||
                  name == u"ComCommand1")
          << where << ' ' << vb::ToUtf8(name);
      if (answer == u"btnRetry" && reports_ > 0) {
        EXPECT_EQ(name, u"cmdCommand1") << where;
      }
      answer_ = u"btnAbort";
      world_.Environment.RemoveControl(u"Form1", name);
    }
    EXPECT_GT(nth, 60) << "the greying of the commands alone takes that many calls";
  }
  EXPECT_EQ(silent_, Calls{}) << "each failure has its dialog";
}

TEST_F(NamingFailures, ARenamedControlsCodeIsTheOldOrTheNewOneAndTheGuardIsFree) {
  Desktop().OnModal = nullptr;
  world_.Environment.AddControl(u"Form1", u"CommandButton", u"cmdOld", {});
  Desktop().OnModal = [this](forms::Form& form) { Attend(form); };
  for (const StringView answer : Answers) {
    for (int nth = 1;; ++nth) {
      world_.Environment.SetText(u"Form1", Before);
      const bool more = FailsAt(
          nth, answer, [&] { world_.Environment.RenameControl(u"Form1", u"cmdOld", u"cmdNew"); });
      const std::string where = "call " + std::to_string(nth) + ' ' + vb::ToUtf8(answer);
      ExpectAllIsFree(where);
      const String text = world_.Text(u"Form1");
      EXPECT_TRUE(text == After || text == Before) << where << '\n' << vb::ToUtf8(text);
      if (answer == u"btnRetry" && reports_ > 0) {
        EXPECT_EQ(text, After) << where;
      }
      answer_ = u"btnAbort";
      reports_ = 0;
      world_.Environment.RenameControl(u"Form1", u"cmdNew", u"cmdOld");
      if (!more) break;
    }
  }
  EXPECT_EQ(silent_, ReadingMembers) << "all others have their dialog";
}

TEST_F(NamingFailures, ByHandTheCodeIsTheOldOrTheNewOne) {
  Desktop().OnModal = nullptr;
  world_.Environment.AddControl(u"Form1", u"CommandButton", u"cmdNew", {});
  Desktop().OnModal = [this](forms::Form& form) { Attend(form); };
  for (const StringView answer : Answers) {
    for (int nth = 1;; ++nth) {
      world_.Environment.SetText(u"Form1", Before);
      world_.Environment.SetCaret(u"Form1", {1, 5, 1, 11});
      const bool more = FailsAt(
          nth, answer, [&] { (void)connect_->RunUnhooked(u"MenuUpdateControlName_Click"); });
      const std::string where = "call " + std::to_string(nth) + ' ' + vb::ToUtf8(answer);
      // Without its old name the dialog refuses, and is closed by its frame.
      world_.Services.DesktopService.Messages.clear();
      ExpectAllIsFree(where);
      const String text = world_.Text(u"Form1");
      EXPECT_TRUE(text == After || text == Before) << where << '\n' << vb::ToUtf8(text);
      if (answer == u"btnRetry" && reports_ > 0) {
        EXPECT_EQ(text, After) << where;
      }
      if (!more) break;
    }
  }
  EXPECT_EQ(silent_, ReadingMembers) << "all others have their dialog";
}

TEST_F(NamingFailures, TheHostMayDropTheRootUnderANamingDialog) {
  const std::weak_ptr<Connect> root = connect_;
  Desktop().OnModal = [&](forms::Form& form) {
    connect_->AddinInstance_OnDisconnection();
    connect_.reset();
    EXPECT_FALSE(root.expired()) << "its routine still runs";
    Press(*form.Find(u"btmCansel"));
  };
  world_.Environment.AddControl(u"Form1", u"CommandButton", u"Command1", {});
  EXPECT_TRUE(root.expired());
  connect_ = std::make_shared<Connect>();
  connect_->AddinInstance_OnConnection(world_.Environment.VBE());
}

}  // namespace
}  // namespace tessel
