// The list at the caret as a script opens it.

#include "support/DialogChannel.h"

namespace tessel {
namespace {

class ContextMenuChannel : public test::DialogChannel {
 protected:
  void Begin() {
    Connect();
    Project();
    Component(1, "Module1", "Sub One()\r\n  \r\nEnd Sub\r\nSub Two()\r\nEnd Sub\r\n");
    Ask({{"do", "caret"}, {"component", "Module1"}, {"line", 2}, {"column", 3}});
  }
  void Key(int ascii) { Ask({{"do", "key"}, {"control", "lstMenu"}, {"ascii", ascii}}); }
};

TEST_F(ContextMenuChannel, TheMembersAreListedAndTheWordGoesInAtTheCaret) {
  Begin();
  Ask({{"do", "context-menu"}});
  Form();
  Pick("lstMenu", "Two");
  Key(10);
  Text("Module1");
  EXPECT_EQ(Play().at("text"), "Sub One()\r\n  Two\r\nEnd Sub\r\nSub Two()\r\nEnd Sub\r\n");
  EXPECT_EQ(Replies[4].at("front").at("form"), "frmContextMenu");
  EXPECT_EQ(Control(Forms().at(0), "lstMenu").at("list"), Json({"One", "Two"}));
  EXPECT_EQ(Replies[Replies.size() - 2].at("item"), "Two");
}

TEST_F(ContextMenuChannel, AListOfOnesOwnGivesTheWordAndWritesNothing) {
  Begin();
  Ask({{"do", "context-menu"},
       {"component", "Module1"},
       {"x", 3},
       {"y", 4},
       {"items", {"Alpha", "Beta"}}});
  Ask({{"do", "double-click"}, {"control", "lstMenu"}, {"row", 1}});
  Text("Module1");
  EXPECT_EQ(Play().at("text"), "Sub One()\r\n  \r\nEnd Sub\r\nSub Two()\r\nEnd Sub\r\n");
  EXPECT_EQ(Replies[Replies.size() - 2].at("item"), "Beta");
}

TEST_F(ContextMenuChannel, ALetterIsSentOnAndTheWordIsEmpty) {
  Begin();
  Ask({{"do", "context-menu"}});
  Key('q');
  Ask({{"do", "journal"}});
  const Json journal = Play().at("journal");
  EXPECT_EQ(journal, Json::array({{{"kind", "keys"}, {"keys", "q"}}}));
  EXPECT_EQ(Replies[Replies.size() - 2].at("item"), "");
}

TEST_F(ContextMenuChannel, AListThatIsClosedByItsFrameGivesNothing) {
  Begin();
  Ask({{"do", "context-menu"}});
  Pick("lstMenu", "One");
  Ask({{"do", "close"}});
  Text("Module1");
  EXPECT_EQ(Play().at("text"), "Sub One()\r\n  \r\nEnd Sub\r\nSub Two()\r\nEnd Sub\r\n");
  EXPECT_EQ(Replies[Replies.size() - 2].at("item"), "");
}

}  // namespace
}  // namespace tessel
