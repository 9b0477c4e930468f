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
  EXPECT_EQ(GetProjectComponentType(vbe, 0), u"");
  EXPECT_EQ(GetProjectComponentType(vbe, 1), u"M|N");
  EXPECT_EQ(GetProjectComponentType(vbe, 5), u"F");
  EXPECT_TRUE(CheckComponentName(vbe, u"f"));
  EXPECT_FALSE(CheckComponentName(vbe, u"g"));
  world_.Environment.SelectComponent(u"M");
  EXPECT_EQ(SelectedVBComponentName(vbe), u"M");
  world_.Environment.SelectComponent(u"");
  EXPECT_EQ(SelectedVBComponentName(vbe), u"");
}

TEST_F(Insertion, ALineOfBlanksCountsAsABlankLine) {
  world_.Module(u"M", u"Dim a\r\n \t \r\nSub A()\r\nEnd Sub");
  Insert(u"M", u"Dim b\r\n", EndOfDeclarations);
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b\r\n \t \r\nSub A()\r\nEnd Sub");
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

TEST_F(Insertion, LooksUpNamesInSilence) {
  gErrorHandler = std::make_shared<CErrorHandler>();
  gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
  const auto vbe = world_.Environment.VBE();
  world_.Module(u"M", u"");
  world_.Environment.SelectComponent(u"M");
  world_.Environment.SetOperationHook([](std::string_view operation) {
    if (operation == "VBE.SelectedVBComponent" || operation == "VBE.ActiveVBProject") {
      throw vb::Failure(7, u"no");
    }
  });
  EXPECT_EQ(SelectedVBComponentName(vbe), u"");
  EXPECT_FALSE(CheckComponentName(vbe, u"M"));
  EXPECT_TRUE(gErrorHandler->CallStack().empty());
  gErrorHandler.reset();
}

/// The fixture with a failure service, whose dialog is always answered with one button.
class FailingInsertion : public Insertion {
 protected:
  FailingInsertion() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionErrorDialog);
    world_.Module(u"M", u"Dim a\r\nDim b");
  }
  ~FailingInsertion() override { gErrorHandler.reset(); }

  /// Inserts "' new" with the n-th call of an operation failing, `times` in a row.
  void InsertFailing(std::string_view operation, int number, StringView button, int times = 1) {
    int calls = 0;
    world_.Environment.SetOperationHook([&](std::string_view called) {
      if (called != operation) return;
      ++calls;
      if (calls >= number && calls < number + times) throw vb::Failure(7, u"no");
    });
    world_.Services.DesktopService.OnModal = [button](forms::Form& form) {
      forms::user::Press(*form.Find(button));
    };
    Insert(u"M", u"' new", EndOfModule);
    world_.Environment.SetOperationHook({});
    EXPECT_EQ(world_.Errors.Take().size(), 1U);
  }
};

TEST_F(FailingInsertion, RetryLeavesNoStrayLine) {
  for (const int number : {1, 2}) {
    InsertFailing("CodeModule.InsertLines", number, u"btnRetry");
    InsertFailing("CodeModule.DeleteLines", 1, u"btnRetry");
    EXPECT_EQ(world_.Text(u"M").substr(0, 14), u"Dim a\r\nDim b\r\n") << number;
  }
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b\r\n' new\r\n' new\r\n' new\r\n' new");
}

TEST_F(FailingInsertion, ABlankLineThatDidNotComeTakesNoLineAway) {
  InsertFailing("CodeModule.InsertLines", 1, u"btnIgnore");
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b\r\n' new");
}

TEST_F(FailingInsertion, NeitherIgnoreNorAbortLeavesTheBlankLine) {
  InsertFailing("CodeModule.DeleteLines", 1, u"btnIgnore");
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b\r\n' new");
  InsertFailing("CodeModule.DeleteLines", 1, u"btnAbort");
  EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b\r\n' new");
}

TEST_F(FailingInsertion, ABlankLineThatStaysIsToldOfUntilItGoes) {
  for (const StringView first : {u"btnIgnore", u"btnAbort"}) {
    int calls = 0;
    world_.Environment.SetOperationHook([&](std::string_view called) {
      if (called == "CodeModule.DeleteLines" && ++calls <= 4) throw vb::Failure(7, u"no");
    });
    bool isFirst = true;
    world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
      forms::user::Press(*form.Find(std::exchange(isFirst, false) ? first : u"btnRetry"));
    };
    Insert(u"M", u"' new", EndOfModule);
    world_.Environment.SetOperationHook({});
    EXPECT_EQ(world_.Errors.Take().size(), 3U);
    EXPECT_EQ(calls, 5);
    EXPECT_EQ(world_.Text(u"M"), u"Dim a\r\nDim b\r\n' new");
  }
}

TEST_F(FailingInsertion, AComponentWhoseNameIsRefusedAndGivenUpIsTakenOutAgain) {
  const auto vbe = world_.Environment.VBE();
  world_.Services.DesktopService.OnModal = [](forms::Form& form) {
    forms::user::Press(*form.Find(u"btnAbort"));
  };
  EXPECT_FALSE(
      InsertTextActiveVbComponent(vbe, u"A.B", u"x", EndOfModule, u"", vbext_ct_ClassModule, 0));
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_EQ(GetProjectComponent(vbe, 0), u"M");
}

TEST_F(FailingInsertion, OneNameThatCantBeReadLeavesOutItselfOnly) {
  world_.Module(u"N", u"");
  int calls = 0;
  world_.Environment.SetOperationHook([&](std::string_view operation) {
    if (operation == "VBComponent.Name" && ++calls == 1) throw vb::Failure(7, u"no");
  });
  world_.Services.DesktopService.OnModal = [](forms::Form& form) {
    forms::user::Press(*form.Find(u"btnIgnore"));
  };
  EXPECT_EQ(GetProjectComponent(world_.Environment.VBE(), 2), u"N|New Module");
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
}

TEST_F(Insertion, HelpGoesToTheProgramsFile) {
  RunHelpFennick();
  EXPECT_EQ(world_.Services.DesktopService.Journal.back(), "help /program\\Marlow.CHM Support.htm");
}

}  // namespace
}  // namespace tessel::mGlobals
