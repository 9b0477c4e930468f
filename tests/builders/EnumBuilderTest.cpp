#include "support/DialogChannel.h"

namespace tessel {
namespace {

class EnumBuilder : public test::DialogChannel {
 protected:
  void Begin() {
    Connect();
    Project();
    Component(1, "Module1", "Option Explicit\r\n\r\nSub A()\r\nEnd Sub");
    Select("Module1");
    Open("Enum Builder");
  }
  void Add(const std::string& prefix, const std::string& name, const std::string& value) {
    Press("btmAdd");
    Type("txtPrefix", prefix);
    Type("txtName", name);
    Type("txtDefaultValue", value);
    Press("btmOK");
  }
};

TEST_F(EnumBuilder, MembersGoIntoTheBlockAndTheBlockBehindTheDeclarations) {
  Begin();
  Type("txtName", "Colours");
  Check("chkHeader", 0);
  Add("nn_", "First", "1");
  Add("nn_", "", "");
  Press("btmOK");
  Ask({{"do", "pane"}});
  Text("Module1");
  EXPECT_EQ(Play().at("text"),
            "Option Explicit\r\nPublic Enum Colours\r\n   nn_First = 1\r\n   nn_\r\nEnd Enum\r\n"
            "\r\nSub A()\r\nEnd Sub");
  EXPECT_EQ(Replies[Replies.size() - 2].at("selection").at("line"), 2);
}

TEST_F(EnumBuilder, WithoutAMemberItIsRefusedAlsoWhenTheLastOneWasTakenOut) {
  Begin();
  Press("btmOK");
  Answer("OK");
  Add("nn_", "A", "");
  Press("btmDel");
  Press("btmOK");
  const Json last = Play();
  EXPECT_EQ(MessageOf(last), "It is necessary to have at least one meaning for  Enum parameter");
  EXPECT_EQ(Messages().front(), MessageOf(last));
}

TEST_F(EnumBuilder, AMemberWithoutPrefixNeedsAGoodName) {
  Begin();
  Add("", "9x", "");
  const Json last = Play();
  EXPECT_EQ(MessageOf(last), "Number can not be the first symbol in the name, field: \"Name\"");
}

TEST_F(EnumBuilder, ThePrefixComesFromTheSettingsAndTheResultFollows) {
  Setting("txtPrefixEnum", "e");
  Begin();
  Press("btmAdd");
  Form();
  Type("txtDefaultValue", "-1");
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "lblResult").at("caption"), "eN = -1");
  EXPECT_EQ(Control(Forms().at(0), "lblResult").at("caption"), "eN");
}

TEST_F(EnumBuilder, NoFriendIsOffered) {
  Begin();
  Form();
  EXPECT_EQ(Control(Play(), "ComAccessibility").at("list"), Json({"", "Public", "Private"}));
}

}  // namespace
}  // namespace tessel
