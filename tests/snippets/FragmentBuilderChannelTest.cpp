// The Snippet Manager through the channel, from the command to the database.

#include <gtest/gtest.h>

#include "snippets/SnippetChannel.h"

namespace tessel {
namespace {

class ManagerChannel : public test::SnippetChannel {
 protected:
  void Start() {
    Connect();
    Files.Write("Module1.bas",
                "Attribute VB_Name = \"Module1\"\r\nOption Explicit\r\n\r\nSub A()\r\nEnd Sub\r\n");
    const auto project = Files.Write(
        "Project1.vbp", "Type=Exe\r\nModule=Module1; Module1.bas\r\nName=\"Project1\"\r\n");
    Ask({{"do", "open"}, {"file", project.string()}});
    Open("Snippet Manager");
    Press("btmExpand");
    Form();
  }
  /// Adds a node below a row under its name.
  void Add(int below, const std::string& button, int row, const std::string& name) {
    Row(below);
    Press(button);
    Edit(row, name);
  }
  void Database(const std::string& name) {
    Item("btmFile", "NEWDATABASE");
    Choose(Files.Path() / name);
  }
  /// The rows of the last database.
  static std::string Last(const Json& form) {
    const std::string tree = Tree(form);
    const std::size_t top = tree.rfind("\nUser Database\n");
    return top == std::string::npos ? "" : tree.substr(top + 1);
  }
  /// The row of an own database whose rows stand behind those of the delivered library.
  int First() {
    Start();
    return static_cast<int>(Control(Play(), "fgTree").at("rows").size());
  }
};

TEST_F(ManagerChannel, TheCommandOpensOneDialogThatKeepsTheOthersShut) {
  Start();
  Ask({{"do", "click"}, {"path", {"Tessel", "Snippet Manager"}}});
  Open("Code Formatter");
  Open("Procedure Builder");
  Press("btmExit");
  Open("Procedure Builder");
  Play();
  std::vector<std::string> fronts;
  for (const Json& reply : Replies) {
    if (const std::string form = FormOf(reply); fronts.empty() || fronts.back() != form) {
      fronts.push_back(form);
    }
  }
  EXPECT_EQ(fronts,
            (std::vector<std::string>{"", "frmFragmentBuilder", "", "frmProcedureBuilder"}));
}

TEST_F(ManagerChannel, TheTreeIsEditedAndEachChangeIsInTheDatabase) {
  const int own = First();
  Database("own.mdb");
  Add(own, "btmAddFolder", own + 1, "Folder");
  Add(own + 1, "btmAddRecord", own + 2, "Record");
  Add(own + 1, "btmAddFolder", own + 2, "Inner");
  Add(own + 1, "btmAddRecord", own + 4, "Last");
  Form();
  Query("SELECT Name, lft, rgt, Root FROM Tree ORDER BY lft", "UserConnect1");
  Row(own + 2);
  Press("btmMoveDown");
  Form();
  Row(own + 1);
  Press("btmDeleteFolder");
  Answer("Yes");
  Form();
  Query("SELECT Name FROM Tree", "UserConnect1");
  Play();
  EXPECT_EQ(Last(Forms()[1]), "User Database\n Folder\n  Inner\n  Record\n  Last\n");
  EXPECT_EQ(Queries()[0],
            Json::parse(R"([["root",1,10,1],["Folder",2,9,1],["Inner",3,4,1],["Record",5,6,0],
                            ["Last",7,8,0]])"));
  EXPECT_EQ(Tree(Forms()[1]), Tree(Forms()[2])) << "a folder stays ahead of the records";
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{"Are you sure to delete folder 'Folder' and subfolders?"}));
  EXPECT_EQ(Last(Forms()[3]), "User Database\n");
  EXPECT_EQ(Queries()[1], Json::parse(R"([["root"]])"));
  const Json first = Control(Forms()[1], "fgTree").at("rows")[static_cast<std::size_t>(own)];
  EXPECT_EQ(first.at("cell-data"), "UserConnect1.1");
  EXPECT_EQ(first.at("data"), 1);
  EXPECT_EQ(first.at("picture"), 135);
}

TEST_F(ManagerChannel, ATopRowOffersNoEditDeleteOrMove) {
  Start();
  Row(0);
  Form();
  const Json form = Play();
  for (const char* const name :
       {"btmEditFolder", "btmDeleteFolder", "btmEditRecord", "btmDeleteRecord", "btmMoveUp",
        "btmMoveDown", "btmMoveLeft", "btmMoveRight"}) {
    EXPECT_EQ(Control(form, name).at("enabled"), false) << name;
    EXPECT_EQ(Control(form, name).at("tool-tip"), Control(form, name).at("caption"));
  }
  bool told = false;
  for (const Json& control : form.at("controls")) {
    told =
        told || (control.at("kind") == "Label" && control.value("caption", "") == "Information:" &&
                 control.at("visible") == true);
  }
  EXPECT_TRUE(told);
  EXPECT_EQ(Control(form, "lblName").at("caption"), "VBCode.MDB");
}

TEST_F(ManagerChannel, MessagesOfTheDatabases) {
  Start();
  Row(0);
  Item("btmFile", "CLOSECURRENTDATABASE");
  Answer("OK");
  Database("A.mdb");
  Item("btmFile", "OPENDATABASE");
  Choose(Files.Path() / "a.MDB");
  Answer("OK");
  Form();
  Item("btmFile", "CLOSECURRENTDATABASE");
  Form();
  Ask({{"do", "connections"}});
  const Json connections = Play();
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{"It is not possible to close Data Base: \"Marlow\"",
                                      "File with the name: \"" + (Files.Path() / "a.MDB").string() +
                                          "\" is already opened, choose another file"}));
  EXPECT_EQ(Last(Forms()[1]), "User Database\n");
  EXPECT_EQ(Tree(Forms()[2]), Tree(Forms()[0]));
  EXPECT_EQ(connections.at("connections").size(), 2U);
}

TEST_F(ManagerChannel, RecordsAreWrittenImportedAndInserted) {
  const int own = First();
  Database("own.mdb");
  Add(own, "btmAddRecord", own + 1, "Text");
  Page("C1TCodeObject", 1);
  Type("RicCodeFragmentBuilder", "Sub B()\r\nEnd Sub");
  Press("btmSave");
  Pick("ComListObject", "Module1");
  Press("btmInsert");
  Text("Module1");
  Page("C1TCodeObject", 2);
  Type("RicUserCode", "notes");
  Press("btmSaveUserCode");
  Type("RicUserCode", "");
  Press("btmSaveUserCode");
  Page("C1TCodeObject", 0);
  Press("btmImportObject");
  Choose(Files.Write("clsOne.cls",
                     "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
                     "Attribute VB_Name = \"clsOne\"\r\nAttribute VB_Exposed = False\r\n"
                     "Public Value As Long\r\n"));
  Press("btmInsertObject");
  Press("btmInsertObject");
  Answer("Yes");
  Query("SELECT Text, TextUserNotes, NameObj, ClassObj FROM List", "UserConnect1");
  Ask({{"do", "projects"}});
  const Json projects = Play();
  EXPECT_EQ(Texts()[0], "Option Explicit\r\n\r\nSub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub");
  EXPECT_EQ(Queries()[0], Json::parse(R"([["Sub B()\r\nEnd Sub","notes","clsOne","CLS"]])"));
  ASSERT_EQ(Messages().size(), 1U);
  EXPECT_NE(Messages()[0].find("clsOne1"), std::string::npos) << Messages()[0];
  EXPECT_NE(projects.dump().find("\"clsOne1\""), std::string::npos) << projects;
}

TEST_F(ManagerChannel, ADroppedComponentBecomesARecord) {
  const int own = First();
  Database("own.mdb");
  Drop(own, Files.Write("vb1.tmp", "Attribute VB_Name = \"modMath\"\r\nOption Explicit\r\n"));
  Drop(own + 1, Files.Write("vb2.tmp", "Attribute VB_Name = \"modOther\"\r\n"));
  Drop(own, Files.Write("vb3.tmp", "no component"));
  Form();
  Play();
  const Json form = Forms().back();
  EXPECT_EQ(Last(form), "User Database\n modMath\n");
  EXPECT_EQ(Control(form, "lblType").at("caption"), "Module");
  EXPECT_EQ(Control(form, "C1TCodeObject").at("index"), 0);
  EXPECT_EQ(Control(form, "btmInsertObject").at("enabled"), true);
}

TEST_F(ManagerChannel, WhatIsOpenIsOpenAgainAfterTheNextStart) {
  const int own = First();
  Database("own.mdb");
  Press("btmAddFolder");
  Ask({{"do", "disconnect"}});
  Connect();
  Open("Snippet Manager");
  Form();
  Play();
  EXPECT_EQ(Last(Forms().back()), "User Database\n New Folder\n");
  EXPECT_EQ(Control(Forms().back(), "fgTree").at("row"), own + 1)
      << "the end of the add-in keeps the dialog's settings as its own end does";
}

TEST_F(ManagerChannel, AFailingCallOfAnInsertionIsReportedAndTheDialogStays) {
  Start();
  Ask({{"do", "caret"}, {"component", "Module1"}, {"line", 3}, {"column", 1}});
  Row(2);
  Page("C1TCodeObject", 1);
  Ask({{"do", "select-text"}, {"control", "RicCodeFragmentBuilder"}, {"start", 0}, {"length", 6}});
  Fail("CodeModule.InsertLines");
  Press("btmInsertSelectedsExample");
  Press("btnIgnore");
  Text("Module1");
  Form();
  const Json form = Play(true);
  EXPECT_EQ(Texts()[0], "Option Explicit\r\n\r\nSub A()\r\nEnd Sub");
  EXPECT_EQ(form.at("form"), "frmFragmentBuilder");
}

}  // namespace
}  // namespace tessel
