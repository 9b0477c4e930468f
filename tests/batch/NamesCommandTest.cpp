#include "hosts/batch/NamesCommand.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "batch/Tessel.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/files/SystemFiles.h"
#include "store/Seeds.h"

namespace tessel::batch {
namespace {

constexpr const char* Head =
    "VERSION 5.00\r\n"
    "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\r\n"
    "Begin VB.Form Form1 \r\n"
    "   Caption         =   \"Form1\"\r\n"
    "   Begin VB.Frame Frame1 \r\n"
    "      BeginProperty Font \r\n"
    "         Name            =   \"Tahoma\"\r\n"
    "      EndProperty\r\n"
    "      Begin VB.CommandButton cmdSave \r\n"
    "      End\r\n"
    "      Begin VB.OptionButton Option1 \r\n"
    "         Index           =   0\r\n"
    "      End\r\n"
    "      Begin VB.OptionButton Option1 \r\n"
    "         Index           =   1\r\n"
    "      End\r\n"
    "   End\r\n"
    "   Begin MSComctlLib.ListView tree \r\n"
    "   End\r\n"
    "   Begin Own.Gadget gadget1 \r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"Form1\"\r\n";

class NamesCommandTest : public testing::Test {
 protected:
  NamesCommandTest() { (void)tessel_.Folder.Write("Form1.frm", Head); }
  int Run(std::vector<std::string> words) {
    words.insert(words.begin(), "names");
    return tessel_.Run(words);
  }

  test::Tessel tessel_;
};

TEST_F(NamesCommandTest, NamesFileLineAndPrefixOfEachControlThatLacksIt) {
  EXPECT_EQ(Run({"Form1.frm"}), WouldChange);
  EXPECT_EQ(tessel_.Out,
            "Form1.frm:5: Frame1 (Frame) lacks the prefix fra\n"
            "Form1.frm:11: Option1 (OptionButton) lacks the prefix opt\n"
            "Form1.frm:18: tree (ListView) lacks the prefix lvw\n");
  EXPECT_EQ(tessel_.Err, "3 without the prefix, 1 with it\n");
}

TEST_F(NamesCommandTest, WritesOneJsonDocument) {
  EXPECT_EQ(Run({"--json", "--quiet", "Form1.frm"}), WouldChange);
  const auto all = nlohmann::json::parse(tessel_.Out);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[1], (nlohmann::json{{"project", all[1]["project"]},
                                    {"component", "Form1"},
                                    {"file", "Form1.frm"},
                                    {"line", 11},
                                    {"name", "Option1"},
                                    {"class", "OptionButton"},
                                    {"prefix", "opt"}}));
  EXPECT_EQ(tessel_.Err, "");
}

TEST_F(NamesCommandTest, APrefixInAnotherCaseIsNone) {
  (void)tessel_.Folder.Write(
      "Case.frm",
      "VERSION 5.00\r\nBegin VB.Form Case \r\n   Begin VB.Label LBLnote \r\n   End\r\nEnd\r\n"
      "Attribute VB_Name = \"Case\"\r\n");
  EXPECT_EQ(Run({"Case.frm"}), WouldChange);
  EXPECT_EQ(tessel_.Out, "Case.frm:3: LBLnote (Label) lacks the prefix lbl\n");
}

TEST_F(NamesCommandTest, WithNothingToTellTheExitCodeIsZero) {
  (void)tessel_.Folder.Write(
      "Good.frm",
      "VERSION 5.00\r\nBegin VB.Form Good \r\n   Begin VB.Timer tmrTick \r\n   End\r\nEnd\r\n"
      "Attribute VB_Name = \"Good\"\r\n");
  (void)tessel_.Folder.Write("M.bas", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub\r\n");
  EXPECT_EQ(Run({"Good.frm", "M.bas"}), Done);
  EXPECT_EQ(tessel_.Out, "");
  EXPECT_EQ(Run({"--json", "M.bas"}), Done);
  EXPECT_EQ(tessel_.Out, "[]\n");
}

TEST_F(NamesCommandTest, TakesProjectsFoldersExclusionsAndComponents) {
  (void)tessel_.Folder.Write("a/Form1.frm", Head);
  (void)tessel_.Folder.Write("a/P.vbp", "Type=Exe\r\nForm=Form1.frm\r\nName=\"P\"\r\n");
  EXPECT_EQ(Run({"--component", "form1", "a/P.vbp"}), WouldChange);
  EXPECT_NE(tessel_.Out.find("a/Form1.frm:5: Frame1"), std::string::npos);
  EXPECT_EQ(Run({"--exclude", "*.frm", "a"}), Done);
  EXPECT_EQ(Run({"a", "a/P.vbp"}), WouldChange);
  EXPECT_EQ(tessel_.Out.find("Frame1"), tessel_.Out.rfind("Frame1")) << "each file once";
  EXPECT_EQ(Run({"--component", "Nobody", "a/P.vbp"}), Failed);
}

TEST_F(NamesCommandTest, WhatCantBeReadIsTheExitCodeAndTheRestIsListed) {
  (void)tessel_.Folder.Write("P.vbp", "Type=Exe\r\nForm=Form1.frm\r\nForm=Gone.frm\r\n");
  EXPECT_EQ(Run({"P.vbp", "none.vbp"}), Failed);
  EXPECT_NE(tessel_.Out.find("Form1.frm:5: Frame1"), std::string::npos);
  EXPECT_NE(tessel_.Err.find("Gone.frm"), std::string::npos);
  EXPECT_NE(tessel_.Err.find("none.vbp"), std::string::npos);
}

TEST_F(NamesCommandTest, TakesThePrefixesOfAProgramsDirectory) {
  files::SystemFiles files;
  store::WriteStandardDatabases(tessel_.Folder.Path() / "prog" / "Data", files);
  {
    const auto personal = OpenPersonal(tessel_.Folder.Path() / "prog");
    personal->Execute(u"DELETE FROM ControlType WHERE Name <> \"Frame\"");
    personal->Execute(
        u"INSERT INTO ControlType (Name, Prefix, Enable) VALUES (\"Gadget\", \"gdt\", Yes)");
    personal->Execute(u"UPDATE ControlType SET Enable=No WHERE Name=\"Frame\"");
  }
  EXPECT_EQ(Run({"--data", "prog", "Form1.frm"}), WouldChange);
  EXPECT_EQ(tessel_.Out, "Form1.frm:20: gadget1 (Gadget) lacks the prefix gdt\n");
  EXPECT_EQ(Run({"--data", "nowhere", "Form1.frm"}), Failed);
}

}  // namespace
}  // namespace tessel::batch
