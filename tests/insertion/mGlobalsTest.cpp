#include "insertion/mGlobals.h"

#include <gtest/gtest.h>

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
  EXPECT_EQ(GetProjectComponentType(vbe, 0), u"1|5");
  EXPECT_TRUE(CheckComponentName(vbe, u"f"));
  EXPECT_FALSE(CheckComponentName(vbe, u"g"));
  world_.Environment.SelectComponent(u"M");
  EXPECT_EQ(SelectedVBComponentName(vbe), u"M");
  world_.Environment.SelectComponent(u"");
  EXPECT_EQ(SelectedVBComponentName(vbe), u"");
}

TEST_F(Insertion, HelpGoesToTheProgramsFile) {
  RunHelpFennick();
  EXPECT_EQ(world_.Services.DesktopService.Journal.back(), "help /program\\Marlow.CHM Support.htm");
}

}  // namespace
}  // namespace tessel::mGlobals
