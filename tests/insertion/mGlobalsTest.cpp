#include "insertion/mGlobals.h"

#include <gtest/gtest.h>

#include <utility>

#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "support/Modules.h"

namespace tessel::mGlobals {
namespace {

using host::vbext_ct_ClassModule;
using host::vbext_ct_StdModule;

class Insertion : public testing::Test {
 protected:
  void Insert(StringView component, StringView text, int mode, int offset = 0) {
    InsertTextActiveVbComponent(world_.Environment.VBE(), component, text, mode, u"",
                                vbext_ct_ClassModule, offset);
  }
  /// The next call of that operation fails, and the report is answered with a button.
  void FailOnce(const std::string& operation, StringView button) {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
    world_.Services.DesktopService.OnModal = [button](forms::Form& form) {
      forms::user::Press(*form.Find(button));
    };
    world_.Environment.SetOperationHook([operation, done = false](std::string_view name) mutable {
      if (name != operation || std::exchange(done, true)) return;
      throw vb::Failure(7, u"no room");
    });
  }
  ~Insertion() override { gErrorHandler.reset(); }
  test::World world_;
};

TEST_F(Insertion, PutsTextAtTheEndOfTheModuleOrOfItsDeclarations) {
  world_.Module(u"M", u"Dim a\r\n\r\nSub A()\r\nEnd Sub");
  Insert(u"m", u"' end", EndOfModule);
  Insert(u"M", u"' decl", EndOfDeclarations, 1);
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\n' decl\r\n\r\nSub A()\r\nEnd Sub\r\n' end");
  EXPECT_EQ(world_.Selection(), (host::Selection{3, 1, 3, 1}));
}

TEST_F(Insertion, MakesAComponentNamedWithoutBlanks) {
  Insert(u"New Module", u"x", EndOfModule);
  EXPECT_EQ(world_.Environment.Component(u"NewModule")->Type(), vbext_ct_ClassModule);
  Insert(u"New Module", u"y", EndOfModule);
  EXPECT_EQ(world_.Text(u"Class1"), u"y") << "the name is taken, so the given one stays";
}

TEST_F(Insertion, EmptyTextLeavesAnEntryOnTheCallStack) {
  gErrorHandler = std::make_shared<CErrorHandler>();
  Insert(u"M", u"", EndOfModule);
  EXPECT_EQ(gErrorHandler->CallStack(),
            (std::vector<String>{u"Tessel.mGlobals.InsertTextActiveVbComponent"}));
  gErrorHandler.reset();
}

TEST_F(Insertion, ListsComponents) {
  const auto vbe = world_.Environment.VBE();
  EXPECT_EQ(GetProjectComponent(vbe, 0), u"");
  world_.Module(u"M", u"");
  world_.Form(u"F", u"");
  EXPECT_EQ(GetProjectComponent(vbe, 0), u"M|F");
  EXPECT_EQ(GetProjectComponent(vbe, 1), u"All Modules|M|F");
  EXPECT_EQ(GetProjectComponent(vbe, 2), u"M|F|New Module");
  world_.Module(u"N", u"");
  EXPECT_EQ(GetProjectComponentType(vbe, vbext_ct_StdModule), u"M|N");
  EXPECT_EQ(GetProjectComponentType(vbe, vbext_ct_ClassModule), u"");
  EXPECT_TRUE(CheckComponentName(vbe, u"f"));
  EXPECT_FALSE(CheckComponentName(vbe, u"g"));
  world_.Environment.SelectComponent(u"M");
  EXPECT_EQ(SelectedVBComponentName(vbe), u"M");
  world_.Environment.SelectComponent(u"");
  EXPECT_EQ(SelectedVBComponentName(vbe), u"");
}

TEST_F(Insertion, OneBlankLineFollowsTextThatEndsInALineEnd) {
  for (const StringView text : {u"Enum E\r\nEnd Enum\r\n", u"Enum E\r\nEnd Enum\r\n\r\n\r\n"}) {
    world_.Module(u"M", u"Dim a\r\n\r\nSub A()\r\nEnd Sub");
    Insert(u"M", text, EndOfDeclarations);
    EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nEnum E\r\nEnd Enum\r\n\r\nSub A()\r\nEnd Sub");
    world_.Environment.RemoveComponent(u"", u"M");
    world_.Module(u"M", u"Dim a\r\nSub A()\r\nEnd Sub");
    Insert(u"M", text, EndOfDeclarations);
    EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nEnum E\r\nEnd Enum\r\n\r\nSub A()\r\nEnd Sub");
    world_.Environment.RemoveComponent(u"", u"M");
  }
}

TEST_F(Insertion, ABlankLineThatDidNotComeIsNotTakenAway) {
  world_.Module(u"M", u"Dim a");
  FailOnce("CodeModule.InsertLines", u"btnIgnore");
  EXPECT_TRUE(InsertTextActiveVbComponent(world_.Environment.VBE(), u"M", u"Dim b", EndOfModule,
                                          u"", vbext_ct_StdModule, 0));
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b");
}

TEST_F(Insertion, ARetriedDeletionLeavesNoBlankLineOnTop) {
  world_.Module(u"M", u"Dim a");
  FailOnce("CodeModule.DeleteLines", u"btnRetry");
  Insert(u"M", u"Dim b", EndOfModule);
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b");
}

TEST_F(Insertion, AComponentWhoseNameIsRefusedAndGivenUpIsTakenOutAgain) {
  world_.Module(u"M", u"");
  FailOnce("VBComponent.Name", u"btnAbort");
  EXPECT_FALSE(InsertTextActiveVbComponent(world_.Environment.VBE(), u"C", u"x", EndOfModule, u"",
                                           vbext_ct_ClassModule, 0));
  EXPECT_EQ(GetProjectComponent(world_.Environment.VBE(), 0), u"M");
}

TEST_F(Insertion, LookUpsPassOverFailures) {
  world_.Module(u"M", u"");
  FailOnce("VBE.SelectedVBComponent", u"btnAbort");
  EXPECT_EQ(SelectedVBComponentName(world_.Environment.VBE()), u"");
  FailOnce("VBE.ActiveVBProject", u"btnAbort");
  EXPECT_FALSE(CheckComponentName(world_.Environment.VBE(), u"M"));
}

TEST_F(Insertion, HelpGoesToTheProgramsFile) {
  RunHelpFennick();
  EXPECT_EQ(world_.Services.DesktopService.Journal.back(), "help /program\\Marlow.CHM Support.htm");
}

}  // namespace
}  // namespace tessel::mGlobals
