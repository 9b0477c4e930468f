#include "scanning/Scope.h"

#include <gtest/gtest.h>

#include "foundation/CErrorHandler.h"
#include "support/Modules.h"

namespace tessel {
namespace {

TEST(Scope, IsAWordOfSeventeenCharactersAndANameInBrackets) {
  for (const StringView word : {scope::Method, scope::Component, scope::Project}) {
    EXPECT_EQ(word.size(), 17U);
    const String text = scope::Text(word, u"A [b]");
    EXPECT_TRUE(scope::Is(vb::UCase(text), word));
    EXPECT_EQ(scope::Target(text), u"A [b]");
  }
  EXPECT_EQ(scope::Text(scope::Project, u"P"), u"Current Project   [P]");
}

TEST(Scope, HasNoTargetWithoutBrackets) {
  EXPECT_EQ(scope::Target(u""), u"");
  EXPECT_EQ(scope::Target(u"Current Method"), u"");
  EXPECT_EQ(scope::Target(u"["), u"");
  EXPECT_FALSE(scope::Is(u"Current", scope::Method));
}

class ScopeList : public testing::Test {
 protected:
  [[nodiscard]] String List() {
    return scope::GetProjectForFormated(world_.Environment.VBE(), Active);
  }
  test::World world_;
  scope::ActiveMember Active;
};

TEST_F(ScopeList, HoldsTheProjectAloneWithoutAPane) {
  EXPECT_EQ(List(), u"Current Project   [Project1]");
}

TEST_F(ScopeList, StartsWithTheComponentWhenTheCaretIsInTheDeclarations) {
  world_.Module(u"M", u"Option Explicit\r\nSub A()\r\nEnd Sub\r\nProperty Get B()\r\nEnd Property");
  world_.Caret(u"M", 1);
  EXPECT_EQ(List(), u"Current Component [M]|Current Project   [Project1]");
  EXPECT_EQ(Active.ActiveMemberName, u"");
  world_.Caret(u"M", 2, 3);
  EXPECT_EQ(List(), u"Current Method    [A]|Current Component [M]|Current Project   [Project1]");
  EXPECT_EQ(Active.SelStartLine, 2);
  EXPECT_EQ(Active.SelStartColumn, 3);
  world_.Caret(u"M", 5);
  static_cast<void>(List());
  EXPECT_EQ(Active.ActiveMemberName, u"B");
  EXPECT_EQ(Active.ActiveMemberKind, host::vbext_pk_Get);
}

TEST_F(ScopeList, IsEmptyWithoutAProject) {
  world_.Environment.RemoveProject(u"Project1");
  EXPECT_EQ(List(), u"");
}

TEST_F(ScopeList, StandsOnTheCallStackUnderTheFormattersName) {
  gErrorHandler = std::make_shared<CErrorHandler>();
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  gErrorHandler->SetCallStackEnabled(true);
  world_.Environment.SetOperationHook([](std::string_view operation) {
    if (operation == "VBE.ActiveVBProject") throw vb::Failure(1, u"no");
  });
  EXPECT_EQ(List(), u"");
  world_.Environment.SetOperationHook(nullptr);
  gErrorHandler.reset();
  ASSERT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
  EXPECT_NE(world_.Services.DesktopService.Messages[0].Text.find(
                u"in Tessel.mFormatText.GetProjectForFormated at"),
            String::npos);
}

}  // namespace
}  // namespace tessel
