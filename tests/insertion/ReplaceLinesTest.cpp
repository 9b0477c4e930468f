#include "insertion/ReplaceLines.h"

#include <gtest/gtest.h>

#include <set>

#include "forms/Form.h"
#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "support/Modules.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

using platform::MessageAnswer;

class ReplacedLines : public testing::Test {
 protected:
  ReplacedLines() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  }
  ~ReplacedLines() override { gErrorHandler.reset(); }

  /// Replaces all lines while the given insertions (counted from 1) fail; the answers in order.
  /// Whether the new text took the place of the old one.
  bool Replace(std::set<int> failing, std::vector<MessageAnswer> answers) {
    auto& desktop = world_.Services.DesktopService;
    desktop.Answers.assign(answers.begin(), answers.end());
    world_.Environment.SetOperationHook([&, insertions = 0](std::string_view call) mutable {
      if (call != "CodeModule.InsertLines") return;
      if (failing.count(++insertions) > 0) throw vb::Failure(7, u"no room");
    });
    bool replaced = false;
    Routine(u"Test", [&](const Statements& run) {
      replaced = ReplaceLines(run, module_, {1, 2, Old}, 1, u"new");
    });
    world_.Environment.SetOperationHook({});
    asked_ = desktop.Messages.size();
    desktop.Messages.clear();
    return replaced;
  }
  [[nodiscard]] String Text() const { return world_.Text(u"Module1"); }

  static constexpr StringView Old = u"Sub A()\r\nEnd Sub";
  test::World world_;
  std::shared_ptr<host::CodeModule> module_ = world_.Module(u"Module1", Old);
  std::size_t asked_ = 0;
};

TEST_F(ReplacedLines, StandThereAgainWhileTheFailureIsTold) {
  gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
  String seen;
  world_.Services.DesktopService.OnModal = [&](forms::Form& report) {
    seen = Text();
    forms::user::Press(*report.Find(u"btnIgnore"));
  };
  EXPECT_FALSE(Replace({1}, {}));
  EXPECT_EQ(seen, Old);
  EXPECT_EQ(Text(), Old);
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
}

TEST_F(ReplacedLines, AreTakenAwayAgainByARetry) {
  EXPECT_TRUE(Replace({1, 3}, {MessageAnswer::Retry, MessageAnswer::Retry}));
  EXPECT_EQ(asked_, 2U);
  EXPECT_EQ(Text(), u"new");
}

TEST_F(ReplacedLines, ComeBackAtTheSecondTry) {
  for (const auto answer : {MessageAnswer::Abort, MessageAnswer::Ignore}) {
    EXPECT_FALSE(Replace({1, 2}, {answer}));
    EXPECT_EQ(asked_, 1U);
    EXPECT_EQ(Text(), Old);
  }
}

TEST_F(ReplacedLines, ThatDoNotComeBackAreToldOfUntilTheyDo) {
  for (const auto answer : {MessageAnswer::Abort, MessageAnswer::Ignore}) {
    EXPECT_FALSE(Replace({1, 2, 3, 4}, {answer, MessageAnswer::Retry}));
    EXPECT_EQ(asked_, 2U) << "the failure, and that of the putting back";
    EXPECT_EQ(Text(), Old);
  }
  EXPECT_TRUE(Replace({1, 2, 3}, {MessageAnswer::Retry}));
  EXPECT_EQ(Text(), u"new");
}

}  // namespace
}  // namespace tessel
