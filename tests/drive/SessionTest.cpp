#include "hosts/drive/Session.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "hosts/drive/Operations.h"

#include "support/ChannelErrors.h"
#include "support/TemporaryFolder.h"

namespace tessel::drive {
namespace {

/// Plays requests to a session and keeps the replies.
class Drive : public testing::Test {
 protected:
  std::vector<Json> Play(const std::string& requests) {
    std::istringstream in(requests);
    std::ostringstream out;
    {
      Session session({folder_.Path() / "program", folder_.Path() / "settings.sqlite", false}, in,
                      out);
      session.Run();
    }
    auto replies = test::RepliesOf(out.str());
    errors_.Note(replies);
    return replies;
  }
  /// A file of the test's folder, as a request has it.
  [[nodiscard]] std::string File(const std::string& name) const {
    return Json((folder_.Path() / name).string()).dump();
  }
  test::TemporaryFolder folder_;
  test::ChannelErrors errors_;
};

const std::string Start =
    R"({"do":"connect"})"
    "\n"
    R"({"do":"new-project","name":"Project1"})"
    "\n"
    R"({"do":"add-component","type":1,"name":"M","text":"Sub A()\r\nx = 1\r\nEnd Sub"})"
    "\n";

TEST_F(Drive, AnswersAsSoonAsAModalDialogWaits) {
  const auto replies = Play(Start + R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]}
{"do":"press","control":"btmRun"}
{"do":"text","component":"M"}
)");
  ASSERT_EQ(replies.size(), 6U);
  EXPECT_EQ(replies[3]["front"]["form"], "frmFormatText");
  EXPECT_EQ(replies[3]["front"]["modal"], true);
  EXPECT_TRUE(replies[4]["ok"]);
  EXPECT_TRUE(replies[4]["front"].is_null());
  EXPECT_EQ(replies[5]["text"], "Sub A()\r\n    x = 1\r\nEnd Sub\r\n\r\n");
}

const std::string Numbered =
    R"({"do":"connect"})"
    "\n"
    R"({"do":"new-project","name":"P"})"
    "\n"
    R"({"do":"add-component","type":1,"name":"M","text":"Sub A()\r\n\r\n10\r\nx = 1\r\nEnd Sub"})"
    "\n"
    R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]})"
    "\n";

TEST_F(Drive, TheReplyToARunNamesThePlacesThatItChangedInMeaning) {
  for (const char* run : {R"({"do":"press","control":"btmRun"})",
                          R"({"do":"key","control":"chkIndentEntire","ascii":13})"}) {
    const auto replies = Play(Numbered + run + "\n" + R"({"do":"projects"})");
    ASSERT_EQ(replies.size(), 6U);
    ASSERT_EQ(replies[4]["differences"].size(), 1U) << replies[4];
    const Json& told = replies[4]["differences"][0];
    EXPECT_EQ(told["project"], "P");
    EXPECT_EQ(told["component"], "M");
    EXPECT_EQ(told["line"], 3);
    EXPECT_EQ(told["cause"], "the line number 10 is lost");
    EXPECT_FALSE(replies[5].contains("differences"));
  }
}

TEST_F(Drive, TheReplyToARunGivesItsAccount) {
  const auto replies =
      Play(Numbered + R"({"do":"press","control":"btmRun"})" + "\n" + R"({"do":"projects"})");
  const Json& run = replies.at(4)["run"];
  EXPECT_EQ(run["title"], "Format Text") << replies[4];
  EXPECT_EQ(run["components"], 1);
  ASSERT_EQ(run["touched"].size(), 1U);
  EXPECT_EQ(run["touched"][0]["component"], "M");
  EXPECT_TRUE(run["failures"].empty());
  EXPECT_EQ(run["cancelled"], false);
  EXPECT_EQ(run["aborted"], false);
  EXPECT_FALSE(replies.at(5).contains("run"));
}

TEST_F(Drive, AButtonThatStartsNoRunAnswersWithoutDifferences) {
  const auto replies = Play(Numbered + R"({"do":"press","control":"btmCancel"})");
  EXPECT_FALSE(replies[4].contains("differences"));
}

// The box stands in the middle of the run; its answer ends the run.
TEST_F(Drive, DifferencesComeWithTheReplyBehindWhichTheRunIsOver) {
  const auto replies =
      Play(Numbered + R"({"do":"fail-next","operation":"VBE.ActiveVBProject","number":7})"
                      "\n"
                      R"({"do":"press","control":"btmRun"})"
                      "\n"
                      R"({"do":"press","control":"btnRetry"})");
  EXPECT_EQ(errors_.Take(), 1U);
  ASSERT_EQ(replies.size(), 7U);
  EXPECT_EQ(replies[5]["front"]["form"], "frmErrorMessage") << replies[5];
  EXPECT_FALSE(replies[5].contains("differences"));
  EXPECT_EQ(replies[6]["differences"].size(), 1U) << replies[6];
  EXPECT_TRUE(replies[6]["run"]["failures"].empty()) << "it failed ahead of the run";
}

TEST_F(Drive, AProjectWhoseSchemeIsEmptyIsToldAtTheHeadOfTheList) {
  const auto replies =
      Play(Numbered.substr(0, Numbered.find("{\"do\":\"click\"")) +
           R"({"do":"click","path":["Tessel","Tessel","Insert Error Handler Code"]})"
           "\n"
           R"({"do":"press","control":"btmBegin"})");
  ASSERT_EQ(replies.size(), 5U);
  ASSERT_FALSE(replies[4]["differences"].empty()) << replies[4];
  EXPECT_TRUE(replies[4]["differences"][0]["component"].is_null());
  EXPECT_EQ(replies[4]["differences"][0]["project"], "P");
}

TEST_F(Drive, AFailureShowsTheErrorDialogAndAbortLeavesTheStackEmpty) {
  const auto replies = Play(Start + R"({"do":"caret","component":"M","line":2}
{"do":"fail-next","operation":"CodeModule.InsertLines","number":7,"description":"full"}
{"do":"click","path":["Tessel","Tessel","IF","If ... Then"]}
{"do":"form"}
{"do":"call-stack"}
{"do":"press","control":"btnAbort"}
{"do":"call-stack"}
{"do":"journal"}
)");
  EXPECT_EQ(errors_.Take(), 1U);
  ASSERT_EQ(replies.size(), 11U);
  EXPECT_EQ(replies[5]["front"]["form"], "frmErrorMessage");
  bool told = false;
  for (const Json& control : replies[6]["controls"]) {
    told |= control["name"] == "txtErrorMessage" &&
            control["text"].get<std::string>().find("Error: 7, (full)") != std::string::npos;
  }
  EXPECT_TRUE(told);
  EXPECT_EQ(replies[7]["call-stack"][0], "Tessel.Connect.InsertTextInComponent");
  EXPECT_TRUE(replies[8]["front"].is_null());
  EXPECT_TRUE(replies[9]["call-stack"].empty());
  EXPECT_EQ(replies[10]["journal"][0]["kind"], "beep");
}

struct Bad {
  const char* Request;
  const char* Error;
};

TEST_F(Drive, RefusesWhatItDoesNotUnderstandAndGoesOn) {
  const Bad cases[] = {
      {R"({"do":"fly"})", "unknown verb \"fly\""},
      {R"({"verb":"text"})", "missing field \"do\""},
      {R"({"do":"text"})", "missing field \"component\""},
      {R"({"do":"text","component":5})", "field \"component\" must be a text"},
      {R"({"do":"text","component":"None"})", "There is no component \"None\""},
      {R"([1])", "a request must be an object"},
      {R"({"do":"form"})", "no form is open"},
      {R"({"do":"answer","button":"OK"})", "no box waits for an answer"},
      {R"({"do":"caret","component":"M","line":0})", "lines count from 1"},
      {R"({"do":"click","path":["Menu Bar","Project","Add User Document"]})",
       "\"Add User Document\" is disabled"},
      {R"({"do":"click","path":["Tessel","Nothing"]})",
       "there is no control \"Nothing\" below \"Tessel\""},
      {R"({"do":"fail-next","operation":"No.Such"})", "no host operation is called \"No.Such\""},
      {R"({"do":"open","file":"/nowhere.vbp"})", "/nowhere.vbp: the file does not exist"},
      {R"({"do":"connect"})", "the add-in is connected already"},
  };
  std::string requests = Start;
  for (const Bad& one : cases) requests += std::string(one.Request) + "\n";
  const auto replies = Play(requests + "{broken\n" + R"({"do":"pane"})" + "\n");
  ASSERT_EQ(replies.size(), 3 + std::size(cases) + 2);
  for (std::size_t at = 0; at < std::size(cases); ++at) {
    EXPECT_EQ(replies[3 + at]["ok"], false) << cases[at].Request;
    EXPECT_EQ(replies[3 + at]["error"], cases[at].Error);
  }
  EXPECT_EQ(replies[replies.size() - 2]["ok"], false);
  EXPECT_EQ(replies.back()["ok"], true);
}

TEST_F(Drive, RefusesWhatAUserCouldNotDo) {
  const auto replies = Play(Start + R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]}
{"do":"type","control":"txtPcs","text":"9"}
{"do":"press","control":"OptSpaceCharacters"}
{"do":"type","control":"txtPcs","text":"99"}
{"do":"form"}
{"do":"edit","control":"VSFFormatLines","row":1,"col":1,"text":"X"}
{"do":"edit","control":"VSFFormatLines","row":1,"col":3,"text":"two"}
{"do":"edit","control":"VSFFormatLines","row":1,"col":3,"text":"2"}
{"do":"press","control":"btmCancel"}
{"do":"query","connection":"PersonalMarlow","sql":"SELECT Before FROM FormatText WHERE KeyWords = \"FUNCTION\""}
{"do":"setting","section":"Settings\\VBCode\\frmFormatText","key":"txtPcs"}
)");
  ASSERT_EQ(replies.size(), 14U);
  EXPECT_EQ(replies[4]["error"], "Control \"txtPcs\" is disabled");
  EXPECT_TRUE(replies[6]["ok"]);
  for (const Json& control : replies[7]["controls"]) {
    if (control["name"] == "txtPcs") {
      EXPECT_EQ(control["text"], "20") << "pulled into the bounds";
    }
  }
  EXPECT_EQ(replies[8]["ok"], false);
  EXPECT_TRUE(replies[10]["ok"]);
  EXPECT_EQ(replies[12]["rows"][0][0], 2) << "grid edits are kept on Cancel";
  EXPECT_TRUE(replies[13]["value"].is_null()) << "the options are not";
}

TEST_F(Drive, TheEndOfInputClosesEverything) {
  const auto replies = Play(Start + R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]}
)");
  ASSERT_EQ(replies.size(), 4U);
  const auto again = Play(R"({"do":"setting","section":"Settings","key":"ToolBarVisible"})"
                          "\n");
  EXPECT_EQ(again[0]["value"], "1") << "the add-in was disconnected in order";
}

TEST_F(Drive, DisconnectClosesTheDialogThatIsOpen) {
  const auto replies = Play(Start + R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]}
{"do":"disconnect"}
{"do":"connect"}
{"do":"quit"}
)");
  ASSERT_EQ(replies.size(), 7U);
  EXPECT_TRUE(replies[4]["front"].is_null());
  EXPECT_TRUE(replies[5]["ok"]);
}

TEST_F(Drive, TheReplyToDisconnectTellsOfNoBoxThatAnsweredItself) {
  const auto replies = Play(Start + R"({"do":"fail-next","operation":"Window.Visible"}
{"do":"disconnect"}
{"do":"connect"}
)");
  ASSERT_EQ(replies.size(), 6U);
  EXPECT_TRUE(replies[4]["ok"]);
  EXPECT_TRUE(replies[4]["front"].is_null());
  EXPECT_TRUE(replies[5]["ok"]);
}

TEST_F(Drive, AFailureStrikesTheNextReadingOfAPropertyByTheAddIn) {
  const auto replies = Play(Start + R"({"do":"fail-next","operation":"CommandBar.Left"}
{"do":"bars"}
{"do":"disconnect"}
{"do":"setting","section":"Settings","key":"ToolBarLeft"}
{"do":"setting","section":"Settings","key":"ToolBarTop"}
)");
  ASSERT_EQ(replies.size(), 8U);
  EXPECT_TRUE(replies[4]["ok"]) << "what is looked at from outside is no call of the add-in";
  EXPECT_TRUE(replies[6]["value"].is_null());
  EXPECT_EQ(replies[7]["value"], "0");
}

TEST(HostOperations, AreAllThatTheModelAsksTheHookFor) {
  std::set<std::string> asked;
  const std::regex operation(R"x((?:Hook\)|hook_\)|Read|Put)\(\s*"(\w+\.\w+)")x");
  for (const auto& file : std::filesystem::directory_iterator(
           std::filesystem::path(TESSEL_SOURCE_DIR) / "hosts" / "model")) {
    std::ifstream in(file.path());
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    for (std::sregex_iterator at(text.begin(), text.end(), operation), end; at != end; ++at) {
      asked.insert((*at)[1]);
    }
  }
  const auto listed = HostOperations();
  EXPECT_EQ(asked, (std::set<std::string>(listed.begin(), listed.end())));
}

TEST_F(Drive, TakesTypesByNumberAndByName) {
  const auto replies = Play(R"({"do":"new-project","name":"P","type":"ActiveXDll"}
{"do":"add-component","type":"classmodule","name":"C"}
{"do":"add-component","type":"Form","name":"F"}
{"do":"add-component","type":1,"name":"M"}
{"do":"add-component","type":"Sheet","name":"X"}
{"do":"add-component","type":99,"name":"X"}
{"do":"new-project","name":"Q","type":"Game"}
{"do":"projects"}
)");
  ASSERT_EQ(replies.size(), 8U);
  const Json& project = replies[7]["projects"][0];
  EXPECT_EQ(project["type"], 2);
  std::vector<int> types;
  for (const Json& component : project["components"]) types.push_back(component["type"]);
  EXPECT_EQ(types, (std::vector<int>{2, 5, 1}));
  EXPECT_EQ(replies[4]["error"].get<std::string>().rfind(
                "field \"type\": there is no type \"Sheet\" (1 StdModule, ", 0),
            0U);
  EXPECT_EQ(replies[5]["ok"], false);
  EXPECT_EQ(replies[6]["error"],
            "field \"type\": there is no type \"Game\" (0 StandardExe, 1 ActiveXExe, 2 "
            "ActiveXDll, 3 ActiveXControl)");
}

TEST_F(Drive, TellsTheControlsOfADesigner) {
  const auto replies = Play(R"({"do":"new-project","name":"P"}
{"do":"add-component","type":"Form","name":"F"}
{"do":"add-control","component":"F","class":"CommandButton","name":"cmdGo","properties":{"Caption":"Go","Index":2}}
{"do":"controls","component":"F"}
{"do":"add-component","type":"Module","name":"M"}
{"do":"controls","component":"M"}
)");
  ASSERT_EQ(replies.size(), 6U);
  EXPECT_EQ(replies[3]["controls"].dump(),
            R"([{"class":"CommandButton","name":"cmdGo","index":2,)"
            R"("properties":{"Caption":"Go","Index":"2"},"container":"F"}])");
  EXPECT_EQ(replies[5]["error"], "\"M\" has no designer");
}

TEST_F(Drive, TakesNoControlOfAClassThatCanBeNone) {
  for (const std::string bad : {"", ".", "a b", "A\"b", "VB.", ".Label", "A.B.C", "2D"}) {
    const auto replies = Play(R"({"do":"connect"}
{"do":"new-project","name":"P"}
{"do":"add-component","type":"Form","name":"F"}
{"do":"add-control","component":"F","name":"one","class":)" +
                              Json(bad).dump() + R"(}
{"do":"controls","component":"F"}
{"do":"add-control","component":"F","name":"one","class":"MSComctlLib.TreeView"}
{"do":"press","control":"btmCansel"}
)");
    ASSERT_EQ(replies.size(), 7U);
    EXPECT_EQ(replies[3]["error"],
              "field \"class\": \"" + bad + "\" is no class and no Library.Class");
    EXPECT_TRUE(replies[4]["controls"].empty()) << bad;
    EXPECT_EQ(replies[5]["ok"], true);
  }
}

TEST_F(Drive, TakesAFormWhoseControlsBearNamesThatNoneCanBeGiven) {
  folder_.Write("P.vbp", "Type=Exe\r\nForm=F.frm\r\nName=\"P\"\r\n");
  folder_.Write("F.frm",
                "VERSION 5.00\r\nBegin VB.Form F \r\n   Begin VB.Label Sub \r\n   End\r\n"
                "   Begin VB.Label F \r\n   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n");
  const auto replies = Play(R"({"do":"open","file":)" + File("P.vbp") + R"(}
{"do":"controls","component":"F"}
{"do":"rename-control","component":"F","name":"Sub","new-name":"lblSub"}
{"do":"rename-control","component":"F","name":"lblSub","new-name":"Sub"}
)");
  ASSERT_EQ(replies.size(), 4U);
  ASSERT_EQ(replies[1]["controls"].size(), 2U);
  EXPECT_EQ(replies[1]["controls"][0]["name"], "Sub");
  EXPECT_EQ(replies[2]["ok"], true);
  EXPECT_EQ(replies[3]["error"], "\"Sub\" is not a valid name");
}

TEST_F(Drive, RunsAHandlerThatNoControlReaches) {
  const auto replies = Play(R"({"do":"run","handler":"MenuFastEditErrorHandkerScheme_Click"}
{"do":"connect"}
{"do":"run","handler":"MenuFastFormatText_Click"}
{"do":"run","handler":"MenuFastEditErrorHandkerScheme_Click"}
{"do":"call-stack"}
)");
  ASSERT_EQ(replies.size(), 5U);
  EXPECT_EQ(replies[0]["error"], "the add-in is not connected");
  EXPECT_EQ(replies[2]["error"],
            "there is no handler \"MenuFastFormatText_Click\" without a control");
  EXPECT_EQ(replies[3]["front"]["form"], "frmErrorHandlerScheme");
  EXPECT_EQ(replies[4]["call-stack"].back(), "Tessel.Connect.MenuFastEditErrorHandkerScheme_Click");
}

TEST_F(Drive, OpenTellsWhatCouldNotBeLoadedAndTakesACodePage) {
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nModule=Gone; Gone.bas\r\nName=\"P\"\r\n");
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n' \xE4\r\n");
  const std::string open = R"({"do":"open","file":)" + File("P.vbp");
  const auto replies = Play(open + R"(,"code-page":1251}
{"do":"text","component":"M"}
{"do":"close-project","project":"P"}
)" + open + R"(,"code-page":4711}
)");
  ASSERT_EQ(replies.size(), 4U);
  ASSERT_EQ(replies[0]["problems"].size(), 1U);
  const Json& problem = replies[0]["problems"][0];
  EXPECT_EQ(problem["component"], "Gone");
  EXPECT_EQ(problem["project"], "P");
  EXPECT_EQ(problem["file"], (folder_.Path() / "Gone.bas").string());
  EXPECT_NE(problem["error"].get<std::string>().find("Gone.bas"), std::string::npos);
  EXPECT_EQ(replies[1]["text"], "' \u0434");
  EXPECT_EQ(replies[3]["error"], "field \"code-page\": there is no code page 4711");
}

TEST_F(Drive, SavesUnderAnotherNameAndReloads) {
  folder_.Write("taken.bas", "theirs");
  const auto replies = Play(R"({"do":"new-project","name":"P"}
{"do":"add-component","type":"Module","name":"M","text":"' one"}
{"do":"save-as","project":"P","file":)" +
                            File("P.vbp") + R"(}
{"do":"save-as","component":"M","file":)" +
                            File("taken.bas") + R"(}
{"do":"save-as","component":"M","file":)" +
                            File("Other.bas") + R"(}
{"do":"set-text","component":"M","text":"' two"}
{"do":"reload","component":"M"}
{"do":"text","component":"M"}
)");
  ASSERT_EQ(replies.size(), 8U);
  EXPECT_EQ(replies[2]["files"].size(), 2U);
  EXPECT_EQ(replies[3]["error"], (folder_.Path() / "taken.bas").string() + ": the file exists");
  EXPECT_EQ(folder_.Read("taken.bas"), "theirs");
  EXPECT_TRUE(replies[4]["ok"]);
  EXPECT_NE(folder_.Read("Other.bas").find("' one"), std::string::npos);
  EXPECT_EQ(replies[7]["text"], "' one");
}

TEST_F(Drive, ASaveLeavesAFileThatChangedOutsideUnlessItMayOverwriteIt) {
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n' one\r\n");
  std::istringstream in(R"({"do":"open","file":)" + File("P.vbp") + R"(}
{"do":"set-text","component":"M","text":"' mine"}
)");
  std::ostringstream out;
  Session session({folder_.Path() / "program", folder_.Path() / "settings.sqlite", false}, in, out);
  session.Run();
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n' theirs\r\n");
  const auto save = ProjectVerbs().find("save")->second;
  EXPECT_THROW(save(session, Json::object()), vb::Failure);
  EXPECT_NE(folder_.Read("M.bas").find("' theirs"), std::string::npos);
  EXPECT_EQ(save(session, {{"overwrite", true}})["files"].size(), 1U);
  EXPECT_NE(folder_.Read("M.bas").find("' mine"), std::string::npos);
}

TEST_F(Drive, ClosesAProjectWithoutSavingIt) {
  const auto replies = Play(R"({"do":"new-project","name":"P"}
{"do":"new-project","name":"Q"}
{"do":"remove-project","project":"P"}
{"do":"close-project","project":"P"}
{"do":"projects"}
)");
  ASSERT_EQ(replies.size(), 5U);
  EXPECT_TRUE(replies[2]["ok"]);
  EXPECT_EQ(replies[3]["error"], "There is no project \"P\"");
  ASSERT_EQ(replies[4]["projects"].size(), 1U);
  EXPECT_EQ(replies[4]["projects"][0]["name"], "Q");
}

TEST_F(Drive, ADialogOpensInTheMiddleAndItsPlaceIsKept) {
  const auto replies = Play(Start + R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]}
{"do":"close"}
{"do":"settings","section":"Windows settings\\frmFormatText"}
{"do":"setting","section":"Windows settings\\frmFormatText","key":"NormalPosLeft","value":"17"}
{"do":"setting","section":"Windows settings\\frmFormatText","key":"WindowState","value":"3"}
{"do":"click","path":["Tessel","Tessel","Code Formatter"]}
{"do":"close"}
{"do":"settings","section":"Windows settings\\frmFormatText"}
)");
  const auto valueOf = [](const Json& reply, const std::string& key) {
    for (const Json& one : reply["settings"]) {
      if (one["key"] == key) return one["value"].get<std::string>();
    }
    return std::string("none");
  };
  ASSERT_EQ(replies.size(), 11U);
  EXPECT_EQ(valueOf(replies[5], "WindowState"), "1");
  EXPECT_EQ(valueOf(replies[5], "NormalPosLeft"), "272");
  EXPECT_EQ(valueOf(replies[5], "NormalPosRight"), "752");
  EXPECT_EQ(valueOf(replies[5], "NormalPosTop"), "204");
  EXPECT_EQ(valueOf(replies[10], "WindowState"), "3");
  EXPECT_EQ(valueOf(replies[10], "NormalPosLeft"), "17");
}

TEST_F(Drive, SettingsKeepTheirTypes) {
  const auto replies = Play(R"({"do":"setting","section":"X","key":"a","value":"1"}
{"do":"setting","section":"X","key":"b","value":7}
{"do":"setting","section":"X","key":"c","value":true}
{"do":"settings","section":"X"}
)");
  EXPECT_EQ(replies[3]["settings"].dump(),
            R"([{"key":"a","type":"REG_SZ","value":"1"},{"key":"b","type":"REG_DWORD","value":7},)"
            R"({"key":"c","type":"REG_SZ","value":"True"}])");
}

TEST_F(Drive, AMissingDatabaseIsToldInABoxAndForgotten) {
  const auto replies =
      Play(R"({"do":"setting","section":"Connect MDB","key":"UserConnect1","value":"/no.mdb"}
{"do":"connect"}
{"do":"answer","button":"Yes"}
{"do":"answer","button":"OK"}
{"do":"connections"}
)");
  ASSERT_EQ(replies.size(), 5U);
  EXPECT_EQ(replies[1]["front"]["message"]["text"], "/no.mdb: the file does not exist");
  EXPECT_EQ(replies[2]["error"], "the box has no button \"Yes\"");
  EXPECT_EQ(replies[4]["connections"].size(), 2U);
}

}  // namespace
}  // namespace tessel::drive
