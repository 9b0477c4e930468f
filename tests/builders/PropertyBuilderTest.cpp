#include "support/DialogChannel.h"

namespace tessel {
namespace {

class PropertyBuilder : public test::DialogChannel {
 protected:
  void Begin(const std::string& text = "Option Explicit\r\n\r\nSub A()\r\nEnd Sub") {
    Connect();
    Project();
    Component(2, "Order", text);
    Select("Order");
    Open("Property Builder");
  }
};

TEST_F(PropertyBuilder, OpensWithTheDefaultsAndTheTypesPrefix) {
  Begin();
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "ComValueType").at("text"), "Boolean");
  EXPECT_EQ(Control(form, "txtMemberVariable").at("text"), "b");
  EXPECT_EQ(Control(form, "chkGet").at("value"), 1);
  EXPECT_EQ(Control(form, "chkLetSet").at("value"), 1);
  EXPECT_EQ(Control(form, "ComModule").at("text"), "Order");
}

TEST_F(PropertyBuilder, ANameChangeDiscardsAnEditedPrefix) {
  Begin();
  Type("txtMemberVariable", "m_");
  Form();
  Type("txtName", "Count");
  Form();
  Pick("ComValueType", "Long");
  Form();
  Play();
  std::vector<std::string> prefixes;
  for (const Json& form : Forms())
    prefixes.push_back(Control(form, "txtMemberVariable").at("text"));
  EXPECT_EQ(prefixes, (std::vector<std::string>{"m_", "b", "l"}));
}

TEST_F(PropertyBuilder, ThePropertyStandsBehindTheDeclarationsAndTheCaretInItsHead) {
  Begin();
  Type("txtName", "Count");
  Pick("ComValueType", "Long");
  Check("chkLetSet", 0);
  Press("btmOK");
  Ask({{"do", "pane"}});
  Text("Order");
  const std::string text = Play().at("text");
  EXPECT_TRUE(text.starts_with("Option Explicit\r\nPrivate lCount As Long\r\n\r\n'====")) << text;
  EXPECT_TRUE(
      text.ends_with("Public Property Let Count(ByVal l As Long)\r\n    lCount = l\r\n"
                     "End Property\r\n\r\nSub A()\r\nEnd Sub"))
      << text;
  EXPECT_EQ(Replies[Replies.size() - 2].at("selection").at("line"), 10);
}

TEST_F(PropertyBuilder, BothNamesAreChecked) {
  Begin();
  Type("txtMemberVariable", "");
  Press("btmOK");
  Answer("OK");
  Type("txtName", "a-b");
  Press("btmOK");
  Answer("OK");
  Form();
  EXPECT_EQ(Control(Play(), "txtName").at("focus"), true);
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{"It is required to fill in the filed: \"Member Variable\"",
                                      "Impossible symbols in the field: \"Name\"  \"\""}));
}

TEST_F(PropertyBuilder, ATypeWithoutAPrefixIsRefusedAtOk) {
  Connect();
  Project();
  Component(1, "Module1", "Option Explicit");
  Select("Module1");
  Ask({{"do", "query"},
       {"connection", "PersonalMarlow"},
       {"sql", "INSERT INTO MemberType (Name, Prefix) VALUES (\"clsOrder\", \"\")"}});
  Open("Property Builder");
  Type("txtName", "Customer");
  Pick("ComValueType", "clsOrder");
  Type("txtMemberVariable", "m_");
  Press("btmOK");
  Answer("OK");
  Form();
  Text("Module1");
  EXPECT_EQ(Play().at("text"), "Option Explicit");
  EXPECT_EQ(FormOf(Forms().at(0)), "frmPropertyBuilder");
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{
                "The type has no prefix, which names the parameter, field: \"Value Type\""}));
}

TEST_F(PropertyBuilder, AnEmptyTypeTableLoadsInSilenceAndFailsAtOk) {
  Connect();
  Project();
  Component(1, "Module1", "Option Explicit");
  Select("Module1");
  Ask({{"do", "query"}, {"connection", "PersonalMarlow"}, {"sql", "DELETE * FROM MemberType"}});
  Open("Property Builder");
  Type("txtMemberVariable", "m");
  Form();
  Press("btmOK");
  Press("btnAbort");
  Form();
  Text("Module1");
  EXPECT_EQ(Play(1).at("text"), "Option Explicit");
  EXPECT_EQ(Control(Forms().at(0), "ComValueType").at("list"), Json::array());
  EXPECT_EQ(FormOf(Forms().at(0)), "frmPropertyBuilder") << "it loads in silence";
  EXPECT_EQ(FormOf(Forms().at(1)), "frmPropertyBuilder") << "it stays open";
}

}  // namespace
}  // namespace tessel
