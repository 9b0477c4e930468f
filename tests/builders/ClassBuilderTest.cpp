#include "support/DialogChannel.h"

namespace tessel {
namespace {

class ClassBuilder : public test::DialogChannel {
 protected:
  void Begin() {
    Connect();
    Project();
    Component(1, "Module1", "Option Explicit");
    Component(2, "Order", "Option Explicit");
    Component(2, "Customer", "Option Explicit");
    Open("Collection Builder");
  }
  static std::vector<std::string> Names(const Json& projects) {
    std::vector<std::string> names;
    for (const Json& one : projects.at("projects").at(0).at("components")) {
      names.push_back(one.at("name"));
    }
    return names;
  }
};

TEST_F(ClassBuilder, OffersTheClassesAndProposesTheNames) {
  Begin();
  Form();
  Type("ComBaseClass", "Item");
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "ComBaseClass").at("list"), Json({"Order", "Customer"}));
  EXPECT_EQ(Control(form, "txtCollectionClassName").at("text"), "ItemS");
  EXPECT_EQ(Control(form, "txtDescription").at("text"), "Collection Class for Item");
  EXPECT_EQ(Control(Forms().at(0), "txtCollectionClassName").at("text"), "OrderS");
  EXPECT_EQ(Control(Forms().at(0), "chkImplementsPublic").at("value"), 0);
}

TEST_F(ClassBuilder, MakesTheClassAndTheBaseClassThatIsMissing) {
  Begin();
  Type("ComBaseClass", "Branch");
  Check("chkHeader", 0);
  Type("txtDescription", "");
  Press("btmOK");
  Text("Branch");
  Text("BranchS");
  Ask({{"do", "projects"}});
  const Json projects = Play();
  const auto texts = Texts();
  const std::string& text = texts.at(1);
  EXPECT_TRUE(text.starts_with("Option Explicit\r\n\r\n' The private collection object\r\n"))
      << text;
  EXPECT_TRUE(text.ends_with("End Function")) << "no line end behind the last line";
  EXPECT_EQ(Names(projects),
            (std::vector<std::string>{"Module1", "Order", "Customer", "BranchS", "Branch"}));
  EXPECT_EQ(texts.at(0), "Option Explicit\r\n");
}

TEST_F(ClassBuilder, AClassThatExistsIsRefusedAndNothingIsMade) {
  Begin();
  Type("ComBaseClass", "Branch");
  Type("txtCollectionClassName", "order");
  Press("btmOK");
  Answer("OK");
  Ask({{"do", "projects"}});
  EXPECT_EQ(Names(Play()), (std::vector<std::string>{"Module1", "Order", "Customer"}));
  EXPECT_EQ(Messages().back(), "The \"order\" component already exits in this project.");
}

TEST_F(ClassBuilder, TheVariablesPrefixIsReadAtEachGeneration) {
  Begin();
  Form();
  Setting("txtPrefixClass", "mcol");
  Check("chkImplementsPublic", 1);
  Form();
  const Json form = Play();
  const auto text = [](const Json& reply) {
    return Control(reply, "RicViewClassBuilder").at("text").get<std::string>();
  };
  EXPECT_NE(text(Forms().at(0)).find("m_ColOrderS"), std::string::npos);
  EXPECT_NE(text(form).find("mcolOrderS"), std::string::npos);
}

TEST_F(ClassBuilder, WithoutClassesTheFieldKeepsItsText) {
  Connect();
  Project();
  Component(1, "Module1", "Option Explicit");
  Open("Collection Builder");
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "ComBaseClass").at("text"), "ComBaseClass");
  EXPECT_EQ(Control(form, "txtCollectionClassName").at("text"), "Name");
}

TEST_F(ClassBuilder, AGivenUpInsertionMakesNothingFurther) {
  Begin();
  Type("ComBaseClass", "Branch");
  Fail("CodeModule.InsertLines");
  Press("btmOK");
  Press("btnAbort");
  Form();
  Ask({{"do", "projects"}});
  const Json projects = Play(1);
  EXPECT_EQ(FormOf(projects), "frmClassBuilder");
  const auto names = Names(projects);
  EXPECT_EQ(std::count(names.begin(), names.end(), "Branch"), 0);
}

TEST_F(ClassBuilder, ARefusedNameLeavesNoHalfMadeClass) {
  Begin();
  Type("ComBaseClass", "Branch.x");
  Press("btmOK");
  Press("btnAbort");
  Ask({{"do", "projects"}});
  EXPECT_EQ(Names(Play(1)), (std::vector<std::string>{"Module1", "Order", "Customer"}));
}

TEST_F(ClassBuilder, AClassNamedLikeTheProjectIsRefusedByTheHost) {
  Begin();
  Type("txtCollectionClassName", "PROJECT1");
  Press("btmOK");
  Press("btnAbort");
  Ask({{"do", "projects"}});
  EXPECT_EQ(Names(Play(1)), (std::vector<std::string>{"Module1", "Order", "Customer"}));
}

}  // namespace
}  // namespace tessel
