// The Explorer through the channel.

#include <gtest/gtest.h>

#include <sstream>

#include "hosts/drive/Session.h"
#include "support/ChannelErrors.h"
#include "support/TemporaryFolder.h"

namespace tessel::drive {
namespace {

class ExplorerChannel : public testing::Test {
 protected:
  /// The replies to requests behind those that open the Explorer over a project of two components.
  std::vector<Json> Play(const std::string& requests) {
    constexpr const char* Opening = R"({"do":"connect"}
{"do":"new-project","name":"Shop","type":2}
{"do":"add-component","type":1,"name":"modMain","text":"Sub A()\r\nEnd Sub\r\n\r\nSub B()\r\nEnd Sub\r\n"}
{"do":"add-component","type":5,"name":"frmMain","text":"Sub C()\r\nEnd Sub\r\n\r\n"}
{"do":"click","path":["Tessel","Project Explorer"]}
)";
    std::istringstream in(Opening + requests);
    std::ostringstream out;
    Session session({folder_.Path() / "program", folder_.Path() / "settings.sqlite", false}, in,
                    out);
    session.Run();
    auto replies = test::RepliesOf(out.str());
    errors_.Note(replies);
    for (const Json& reply : replies) EXPECT_TRUE(reply["ok"]) << reply.dump();
    replies.erase(replies.begin(), replies.begin() + 5);
    return replies;
  }
  static Json ControlNamed(const Json& reply, const std::string& name) {
    for (const Json& control : reply["controls"]) {
      if (control["name"] == name) return control;
    }
    return nullptr;
  }
  static std::vector<std::string> Captions(const Json& reply) {
    const Json tree = ControlNamed(reply, "fgTree");
    std::vector<std::string> captions;
    for (const Json& row : tree["rows"]) captions.push_back(row["cells"][0]);
    return captions;
  }
  test::TemporaryFolder folder_;
  test::ChannelErrors errors_;
};

TEST_F(ExplorerChannel, TheDocumentIsAFormOfItsName) {
  const auto replies = Play(R"({"do":"form","form":"udProjectExplorer"}
{"do":"disconnect"}
{"do":"setting","section":"Settings","key":"ProjectExplorerWindow"}
)");
  EXPECT_TRUE(replies[0]["front"].is_null());
  EXPECT_EQ(Captions(replies[0]), (std::vector<std::string>{"Shop", "Modules", "modMain", "A", "B",
                                                            "Forms", "frmMain", "C"}));
  const Json tree = ControlNamed(replies[0], "fgTree");
  EXPECT_EQ(tree["columns"], 12);
  EXPECT_EQ(tree["hidden-columns"].size(), 11U);
  EXPECT_EQ(tree["rows"][4]["cells"].dump(),
            R"(["B","B [Proc]","Shop","1.Shop","0","modMain","","","3","","",""])");
  EXPECT_EQ(tree["rows"][4]["picture"], 123);
  EXPECT_EQ(ControlNamed(replies[0], "btnMethod")["tool-tip"], "Show standard procedures");
  EXPECT_EQ(ControlNamed(replies[0], "btnMethod")["value"], 1);
  EXPECT_EQ(replies[2]["value"], "1");
}

TEST_F(ExplorerChannel, ARowIsExpandedDoubleClickedAndGivesItsMenu) {
  const auto replies = Play(R"({"do":"expand","form":"udProjectExplorer","control":"fgTree","row":2}
{"do":"double-click","form":"udProjectExplorer","control":"fgTree","row":4}
{"do":"pane"}
{"do":"right-click","form":"udProjectExplorer","control":"fgTree","row":6}
{"do":"menu","item":"mnuObjectVB6"}
{"do":"right-click","form":"udProjectExplorer","control":"fgTree","row":0}
{"do":"menu","item":"mnuUserDocumentVB6"}
{"do":"projects"}
{"do":"press","form":"udProjectExplorer","control":"btnRefresh"}
{"do":"form","form":"udProjectExplorer"}
)");
  EXPECT_EQ(replies[2]["component"], "modMain");
  EXPECT_EQ(replies[2]["top-line"], 3);
  const Json& menu = replies[3]["front"]["menu"];
  ASSERT_EQ(menu.size(), 9U);
  EXPECT_EQ(menu[2]["caption"], "Add");
  EXPECT_EQ(menu[2]["items"].size(), 12U);
  EXPECT_EQ(menu[0]["enabled"], true);
  EXPECT_EQ(replies[5]["front"]["menu"][0]["enabled"], false);
  EXPECT_EQ(replies[7]["projects"][0]["components"].size(), 3U);
  EXPECT_EQ(Captions(replies[9]).back(), "UserDocument1");
}

TEST_F(ExplorerChannel, HidesByItsMenuAndTheBuilderOpensFromIt) {
  const auto replies =
      Play(R"({"do":"right-click","form":"udProjectExplorer","control":"fgTree","row":2}
{"do":"menu","item":"mnuEnumBuilderVB6"}
{"do":"close"}
{"do":"right-click","form":"udProjectExplorer","control":"fgTree","row":2}
{"do":"menu","item":"mnuHideVB6"}
{"do":"disconnect"}
{"do":"setting","section":"Settings","key":"ProjectExplorerWindow"}
)");
  EXPECT_EQ(replies[1]["front"]["form"], "frmEnumBuilder");
  EXPECT_EQ(replies[6]["value"], "0");
}

TEST_F(ExplorerChannel, AComponentThatComesOrGoesBehindAKeyIsNotLost) {
  const auto replies = Play(R"({"do":"caret","component":"modMain","line":1,"column":1}
{"do":"advance","ms":1000}
{"do":"set-text","component":"modMain","text":"Sub A()\r\nEnd Sub\r\n"}
{"do":"add-component","type":1,"name":"modNew"}
{"do":"advance","ms":1000}
{"do":"form","form":"udProjectExplorer"}
{"do":"caret","component":"modMain","line":1,"column":1}
{"do":"advance","ms":1000}
{"do":"set-text","component":"modMain","text":"Sub A()\r\nEnd Sub\r\n\r\n"}
{"do":"remove-component","component":"modNew"}
{"do":"double-click","form":"udProjectExplorer","control":"fgTree","row":2}
{"do":"advance","ms":1000}
{"do":"form","form":"udProjectExplorer"}
)");
  EXPECT_EQ(Captions(replies[5]), (std::vector<std::string>{"Shop", "Modules", "modMain", "A",
                                                            "modNew", "Forms", "frmMain", "C"}));
  EXPECT_EQ(Captions(replies[12]),
            (std::vector<std::string>{"Shop", "Modules", "modMain", "A", "Forms", "frmMain", "C"}));
}

TEST_F(ExplorerChannel, OpensByItselfAsTheSettingsSay) {
  const auto replies = Play(R"({"do":"disconnect"}
{"do":"connect"}
{"do":"windows"}
{"do":"add-component","type":1,"name":"modNew"}
{"do":"form","form":"udProjectExplorer"}
{"do":"disconnect"}
{"do":"setting","section":"Settings","key":"DisplayOnConnect","value":"1"}
{"do":"setting","section":"Settings","key":"ProjectExplorerWindow","value":"0"}
{"do":"connect"}
{"do":"form","form":"udProjectExplorer"}
)");
  EXPECT_EQ(Captions(replies[4]).size(), 9U) << "open when the add-in went: back with a component";
  EXPECT_EQ(Captions(replies[9]).size(), 9U) << "open from the start";
}

TEST_F(ExplorerChannel, FromTheMenusCommandOnNoAddedComponentBringsItBack) {
  const auto replies = Play(R"({"do":"disconnect"}
{"do":"connect"}
{"do":"click","path":["Tessel","Tessel","Project Explorer"]}
{"do":"new-project","name":"Second"}
{"do":"activate-project","project":"Shop"}
{"do":"right-click","form":"udProjectExplorer","control":"fgTree","row":2}
{"do":"menu","item":"mnuHideVB6"}
{"do":"add-component","type":1,"name":"modNew"}
{"do":"windows"}
{"do":"setting","section":"Settings","key":"ProjectExplorerWindow"}
)");
  EXPECT_EQ(replies[9]["value"], "1") << "components would bring it back";
  int explorers = 0;
  for (const Json& window : replies[8]["windows"]) {
    if (window["caption"] != "Tessel Project Explorer") continue;
    ++explorers;
    EXPECT_EQ(window["visible"], false);
  }
  EXPECT_EQ(explorers, 1);
}

TEST_F(ExplorerChannel, BehindARunOverAProjectTheLinesOfAllItsComponentsAreTrue) {
  const auto replies = Play(
      R"({"do":"add-component","type":1,"name":"modOther","text":"Sub D()\r\nEnd Sub\r\nSub E()\r\nEnd Sub\r\nSub F()\r\nEnd Sub\r\n"}
{"do":"caret","component":"modMain","line":1}
{"do":"advance","ms":2000}
{"do":"click","path":["Tessel","Tessel","Code Formatter"]}
{"do":"pick","control":"ComModule","text":"Current Project   [Shop]"}
{"do":"press","control":"btmRun"}
{"do":"advance","ms":2000}
{"do":"members","component":"modOther"}
{"do":"form","form":"udProjectExplorer"}
)");
  std::vector<std::string> lines, truth;
  const Json tree = ControlNamed(replies[8], "fgTree");
  for (const Json& row : tree["rows"]) {
    if (row["level"] == 3 && row["cells"][5] == "modOther") lines.push_back(row["cells"][8]);
  }
  for (const Json& member : replies[7]["members"]) {
    truth.push_back(std::to_string(member["start-line"].get<int>()));
  }
  EXPECT_EQ(lines, truth);
  EXPECT_NE(truth, (std::vector<std::string>{"1", "3", "5"})) << "the run moved nothing";
}

TEST_F(ExplorerChannel, BehindAChangeOfAControlsNameByHandTheEventsHaveTheNewOne) {
  const auto replies = Play(
      R"({"do":"add-component","type":5,"name":"frmNames","text":"Private Sub cmdOld_Click()\r\nEnd Sub\r\n"}
{"do":"add-control","component":"frmNames","class":"CommandButton","name":"cmdOld"}
{"do":"press","control":"btmCansel"}
{"do":"caret","component":"frmNames","line":1,"column":13,"end-line":1,"end-column":19}
{"do":"advance","ms":2000}
{"do":"run","handler":"MenuUpdateControlName_Click"}
{"do":"type","control":"cmbNewName","text":"cmdNew"}
{"do":"press","control":"btmYes"}
{"do":"advance","ms":2000}
{"do":"form","form":"udProjectExplorer"}
)");
  EXPECT_EQ(Captions(replies[9]).back(), "cmdNew_Click");
}

}  // namespace
}  // namespace tessel::drive
