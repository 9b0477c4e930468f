#include "contextmenu/mMenuList.h"

#include <gtest/gtest.h>

#include <set>

#include "contextmenu/frmContextMenu.h"
#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "support/Modules.h"

namespace tessel {
namespace {

namespace user = forms::user;

constexpr StringView Code =
    u"Property Get Size()\r\nEnd Property\r\nProperty Let Size(a)\r\nEnd Property\r\n"
    u"Sub Main()\r\n  x = \r\nEnd Sub\r\n";

class MenuList : public testing::Test {
 protected:
  ~MenuList() override { gErrorHandler.reset(); }

  /// Opens the list, picks a word and takes it; the word that came back.
  String Pick(StringView word) {
    world_.Services.DesktopService.OnModal = [&, word](forms::Form& form) {
      if (form.Name() != u"frmContextMenu") return;
      ++opened_;
      user::Pick(*form.Find(u"lstMenu"), word);
      user::Key(*form.Find(u"lstMenu"), 27);
    };
    return mMenuList::ShowMembers(world_.Environment.VBE(), 1, 2);
  }

  test::World world_;
  int opened_ = 0;
};

TEST_F(MenuList, HoldsTheMembersOfTheModuleEachOnce) {
  const auto module = world_.Module(u"M", Code);
  EXPECT_EQ(mMenuList::MemberNames(module), (std::vector<String>{u"Size", u"Main"}));
  EXPECT_TRUE(mMenuList::MemberNames(world_.Module(u"N", u"Dim x")).empty());
  EXPECT_TRUE(mMenuList::MemberNames(nullptr).empty());
}

TEST_F(MenuList, TheWordGoesInAtTheCaretWhichStandsBehindItThen) {
  world_.Module(u"M", Code);
  world_.Caret(u"M", 6, 7);
  EXPECT_EQ(Pick(u"Size"), u"Size");
  EXPECT_NE(world_.Text(u"M").find(u"\r\n  x = Size\r\n"), String::npos);
  EXPECT_EQ(world_.Selection(), (host::Selection{6, 11, 6, 11}));
}

TEST_F(MenuList, WhatIsSelectedStays) {
  world_.Module(u"M", Code);
  world_.Environment.SetCaret(u"M", {5, 1, 6, 4});
  EXPECT_EQ(Pick(u"Main"), u"Main");
  EXPECT_NE(world_.Text(u"M").find(u"Sub Main()\r\n  xMain = \r\n"), String::npos);
}

TEST_F(MenuList, NothingChosenChangesNothing) {
  world_.Module(u"M", Code);
  world_.Caret(u"M", 6, 7);
  world_.Services.DesktopService.OnModal = [](forms::Form& form) {
    user::Key(*form.Find(u"lstMenu"), u'q');
  };
  EXPECT_EQ(mMenuList::ShowMembers(world_.Environment.VBE(), 0, 0), u"");
  EXPECT_EQ(world_.Text(u"M"), Code);
}

TEST_F(MenuList, WithoutAPaneOrAMemberNothingOpens) {
  EXPECT_EQ(Pick(u"Main"), u"");
  world_.Module(u"M", u"Option Explicit");
  world_.Caret(u"M", 1);
  EXPECT_EQ(Pick(u"Main"), u"");
  EXPECT_EQ(opened_, 0);
}

TEST_F(MenuList, WhateverCallFailsTheWordIsInOnceOrNotAtAll) {
  gErrorHandler = std::make_shared<CErrorHandler>();
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  gErrorHandler->SetCallStackEnabled(true);
  const auto module = world_.Module(u"M", Code);
  // Reading members passes over what fails.
  std::set<std::string, std::less<>> silent;
  world_.Environment.SetOperationHook([&](std::string_view call) { silent.emplace(call); });
  static_cast<void>(mMenuList::MemberNames(module));
  world_.Environment.SetOperationHook({});
  using platform::MessageAnswer;
  auto& desktop = world_.Services.DesktopService;
  for (const auto answer : {MessageAnswer::Abort, MessageAnswer::Retry, MessageAnswer::Ignore}) {
    int loud = 0;
    for (int nth = 1;; ++nth) {
      world_.Environment.SetText(u"M", Code);
      world_.Caret(u"M", 6, 7);
      desktop.Messages.clear();
      desktop.Answers.assign(10, answer);
      int calls = 0;
      std::string failed;
      world_.Environment.SetOperationHook([&](std::string_view call) {
        if (++calls != nth) return;
        failed = call;
        throw vb::Failure(7, u"no room");
      });
      desktop.OnModal = [&](forms::Form& form) {
        auto& list = dynamic_cast<forms::ListBox&>(*form.Find(u"lstMenu"));
        if (!list.List().empty()) user::DoubleClick(list, static_cast<int>(list.List().size()) - 1);
      };
      (void)mMenuList::ShowMembers(world_.Environment.VBE(), 0, 0);
      world_.Environment.SetOperationHook({});
      const String text = world_.Text(u"M");
      const std::string where = "call " + std::to_string(nth) + ' ' + failed + ", answer " +
                                std::to_string(static_cast<int>(answer));
      EXPECT_TRUE(desktop.Shown.empty()) << where;
      EXPECT_TRUE(gErrorHandler->CallStack().empty()) << where;
      EXPECT_LE(desktop.Messages.size(), 1U) << where;
      const bool reported = !desktop.Messages.empty();
      EXPECT_EQ(reported, !failed.empty() && (reported || !silent.contains(failed))) << where;
      loud += reported ? 1 : 0;
      const String whole = vb::Replace(Code, u"x = \r\n", u"x = Main\r\n");
      if (failed.empty() || (reported && answer == MessageAnswer::Retry)) {
        EXPECT_EQ(text, whole) << where;
        EXPECT_EQ(world_.Selection(), (host::Selection{6, 11, 6, 11})) << where;
      } else {
        EXPECT_TRUE(text == Code || text.size() == Code.size() + 4) << where << vb::ToUtf8(text);
      }
      if (failed.empty()) break;
    }
    EXPECT_GT(loud, 8) << "pane, module, window, place, lines, the line itself, the caret";
  }
}

}  // namespace
}  // namespace tessel
