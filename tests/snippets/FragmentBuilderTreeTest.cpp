// The tree of the Snippet Manager.

#include <gtest/gtest.h>

#include "snippets/ManagerDesk.h"
#include "vb/OneLine.h"

namespace tessel {
namespace {

using Manager = frmFragmentBuilder;
using platform::MessageAnswer;

class ManagerTree : public test::ManagerDesk {
 protected:
  /// Two folders with records and a folder in the first.
  void Fill() {
    const auto b = Main->AddNode(u"B", TopID, 0, 0, FolderKind);
    const auto a = Main->AddNode(u"A", TopID, 0, 0, FolderKind);
    static_cast<void>(Main->AddNode(u"a1", a, 0, 0, RecordKind));
    static_cast<void>(Main->AddNode(u"a2", a, 0, 0, RecordKind));
    const auto inner = Main->AddNode(u"Inner", a, 0, 0, FolderKind);
    static_cast<void>(Main->AddNode(u"i1", inner, 0, 0, RecordKind));
    static_cast<void>(Main->AddNode(u"b1", b, 0, 0, RecordKind));
  }
  /// Names of the buttons of the tree that can be pressed, but those that always can.
  [[nodiscard]] std::string Enabled() const {
    std::string names;
    for (forms::Button Manager::*const button :
         {&Manager::btmAddFolder, &Manager::btmEditFolder, &Manager::btmDeleteFolder,
          &Manager::btmAddRecord, &Manager::btmEditRecord, &Manager::btmDeleteRecord,
          &Manager::btmMoveUp, &Manager::btmMoveDown, &Manager::btmMoveLeft,
          &Manager::btmMoveRight}) {
      const forms::Button& one = (*Dialog).*button;
      if (one.Enabled()) names += vb::ToUtf8(one.Caption()) + ", ";
    }
    return names;
  }
};

constexpr const char* Filled =
    "User Database\n"
    " A\n"
    "  Inner\n"
    "   i1\n"
    "  a1\n"
    "  a2\n"
    " B\n"
    "  b1\n";

TEST_F(ManagerTree, ADeletionThatTheDatabaseRefusesIsSilentAndTheGridStaysTrue) {
  Fill();
  Libraries.At(u"Marlow")->Execute(
      u"CREATE TRIGGER Refuse BEFORE DELETE ON Tree BEGIN SELECT RAISE(ABORT, 'refused'); END");
  Open();
  for (const StringView caption : {u"a1", u"A"}) {
    Go(caption);
    const std::string before = Rows();
    Answer(MessageAnswer::Yes);
    Press(caption == u"A" ? &Manager::btmDeleteFolder : &Manager::btmDeleteRecord);
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), caption);
    ExpectGridIsTheTable();
  }
  EXPECT_EQ(Messages().size(), 2U) << "the two questions";
}

TEST_F(ManagerTree, ACaptionThatIsTooLongIsToldAndTheOldOneStays) {
  Fill();
  Open();
  Go(u"a1");
  Press(&Manager::btmEditRecord);
  Edit(RowOf(u"a1"), String(256, u'n'));
  const auto reports = Services.Errors.Take();
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_NE(reports.front().find(u"at most 255 characters"), String::npos);
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"a1");
  ExpectGridIsTheTable();
}

TEST_F(ManagerTree, AFolderGoesDirectlyBelowItsParentAndARecordBehindItsWholeSubtree) {
  Fill();
  Open();
  Go(u"A");
  Press(&Manager::btmAddFolder);
  Edit(2, u"First");
  Go(u"A");
  Press(&Manager::btmAddRecord);
  EXPECT_EQ(Rows(),
            "User Database\n A\n  First\n  Inner\n   i1\n  a1\n  a2\n  New Record\n B\n  b1\n");
  EXPECT_EQ(Tree().Row(), 7);
  EXPECT_EQ(Tree().RowAt(7).CellData, u"Marlow.0");
  EXPECT_EQ(Tree().RowAt(2).CellData, u"Marlow.1");
  EXPECT_EQ(Tree().RowAt(2).Picture, 135);
  EXPECT_EQ(Tree().RowAt(7).Picture, 0);
  EXPECT_EQ(Tree().Editing(), (forms::GridCell{7, 0})) << "the name can be typed at once";
  ExpectGridIsTheTable();
}

TEST_F(ManagerTree, ANodeBelowAClosedFolderShows) {
  Fill();
  Open();
  EXPECT_FALSE(Tree().RowShows(1));
  Press(&Manager::btmAddRecord);
  EXPECT_EQ(Tree().Row(), 8);
  EXPECT_TRUE(Tree().RowShows(8));
  ExpectGridIsTheTable();
}

TEST_F(ManagerTree, EachKindOfRowOffersWhatCanBeDoneToIt) {
  Fill();
  Open();
  Row(0);
  EXPECT_EQ(Enabled(), "Add Folder, Add Record, ");
  Go(u"A");
  EXPECT_EQ(Enabled(),
            "Add Folder, Edit Folder, Delete Folder, Add Record, Move Up, Move Down, Move Left, "
            "Move Right, ");
  Go(u"a1");
  EXPECT_EQ(Enabled(), "Edit Record, Delete Record, Move Up, Move Down, Move Left, Move Right, ");
}

TEST_F(ManagerTree, DeletingAFolderTakesExactlyTheRowsBelowIt) {
  Fill();
  Open();
  Go(u"A");
  Answer(MessageAnswer::Yes);
  Press(&Manager::btmDeleteFolder);
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{"Are you sure to delete folder 'A' and subfolders?"}));
  EXPECT_EQ(Desktop().Messages[0].Style, 292);
  EXPECT_EQ(Rows(), "User Database\n B\n  b1\n");
  EXPECT_EQ(Tree().Row(), 1) << "what stands there now";
  EXPECT_TRUE(Dialog->btmDeleteFolder.Enabled());
  ExpectGridIsTheTable();
  EXPECT_TRUE(test::ListIdsOf(Libraries.At(u"Marlow")).empty());
}

TEST_F(ManagerTree, TheLastRowIsCurrentBehindTheDeletionOfTheLast) {
  Fill();
  Open();
  Go(u"b1");
  Answer(MessageAnswer::Yes);
  Press(&Manager::btmDeleteRecord);
  EXPECT_EQ(Tree().Row(), 6);
  EXPECT_TRUE(Dialog->btmEditFolder.Enabled()) << "the buttons are those of the folder";
  EXPECT_FALSE(Dialog->C1TCodeObject.Visible());
  ExpectGridIsTheTable();
}

TEST_F(ManagerTree, WithoutAYesNothingIsDeleted) {
  Fill();
  Open();
  Go(u"A");
  Answer(MessageAnswer::No);
  Press(&Manager::btmDeleteFolder);
  EXPECT_EQ(Rows(), Filled);
  ExpectGridIsTheTable();
}

TEST_F(ManagerTree, AFolderDoesNotMoveDownPastARecord) {
  Fill();
  Open();
  Go(u"Inner");
  Press(&Manager::btmMoveDown);
  EXPECT_EQ(Rows(), Filled);
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"Inner");
}

TEST_F(ManagerTree, MovesReloadTheTreeAndKeepTheNodeSelected) {
  Fill();
  Open();
  Go(u"A");
  Press(&Manager::btmMoveDown);
  EXPECT_EQ(Rows(), "User Database\n B\n  b1\n A\n  Inner\n   i1\n  a1\n  a2\n");
  EXPECT_EQ(Tree().Row(), 3);
  EXPECT_EQ(Tree().TopRow(), 3);
  Press(&Manager::btmMoveUp);
  EXPECT_EQ(Rows(), Filled);
  Go(u"Inner");
  Press(&Manager::btmMoveLeft);
  ExpectGridIsTheTable();
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"Inner");
  Press(&Manager::btmMoveRight);
  ExpectGridIsTheTable();
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"Inner");
}

TEST_F(ManagerTree, AMoveInALibraryThatAnotherProgramHoldsLeavesRowsAndTypedText) {
  Fill();
  Open();
  Go(u"a1");
  Page(1);
  forms::user::Type(Dialog->RicCodeFragmentBuilder, u"typed");
  for (forms::Button Manager::*const button : {&Manager::btmMoveUp, &Manager::btmMoveDown,
                                               &Manager::btmMoveLeft, &Manager::btmMoveRight}) {
    Libraries.At(u"Marlow")->Execute(u"PRAGMA busy_timeout = 1");
    const auto other = test::OpenDatabase(Folder().Path() / "Marlow.mdb");
    other->Execute(u"BEGIN EXCLUSIVE");
    Press(button);
    EXPECT_EQ(Rows(), Filled);
    EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"a1");
    EXPECT_EQ(Dialog->RicCodeFragmentBuilder.Text(), u"typed");
    EXPECT_FALSE(Services.Errors.Take().empty());
    other->Execute(u"ROLLBACK");
  }
  Press(&Manager::btmSave);
  EXPECT_EQ(
      Main->GetRecordsetFromList(static_cast<std::int32_t>(Tree().RowAt(Tree().Row()).Data)).Text,
      u"typed");
}

TEST_F(ManagerTree, ALibraryThatCantBeReadAtAReloadKeepsItsRows) {
  Fill();
  Open();
  Go(u"a1");
  Libraries.At(u"Marlow")->Execute(u"PRAGMA busy_timeout = 1");
  test::WriteEmptyDatabase(Folder().Path() / "more.mdb");
  const auto other = test::OpenDatabase(Folder().Path() / "Marlow.mdb");
  other->Execute(u"BEGIN EXCLUSIVE");
  Choose(Folder().Path() / "more.mdb");
  File(u"OPENDATABASE");
  EXPECT_EQ(Rows(), std::string(Filled) + "User Database\n");
  EXPECT_FALSE(Services.Errors.Take().empty());
  other->Execute(u"ROLLBACK");
  Go(u"A");
  Press(&Manager::btmMoveDown);
  ExpectGridIsTheTable();
}

TEST_F(ManagerTree, AMoveWorksOnTheRowsOwnDatabase) {
  Fill();
  const auto own = Libraries.Add(u"UserConnect1");
  static_cast<void>(own->AddNode(u"Y", TopID, 0, 0, FolderKind));
  static_cast<void>(own->AddNode(u"X", TopID, 0, 0, FolderKind));
  Open();
  Go(u"X");
  Press(&Manager::btmMoveDown);
  EXPECT_EQ(Rows(), std::string(Filled) + "User Database\n Y\n X\n");
  EXPECT_EQ(Tree().Row(), 10) << "the row of its database, though another has that number as well";
}

TEST_F(ManagerTree, ADoubleClickOnATopRowEditsTheNodeAndNotTheCaptionOfTheDatabase) {
  Open();
  forms::user::DoubleClick(Tree(), 0);
  Edit(0, u"My own");
  EXPECT_EQ(test::RowsOf(Libraries.At(u"Marlow"))[0].Name, u"My own");
  EXPECT_EQ(Tree().TextMatrix(0, 0), u"My own");
  Reopen();
  EXPECT_EQ(Tree().TextMatrix(0, 0), u"User Database");
}

TEST_F(ManagerTree, ARowThatCouldNotBeAddedCannotBeEdited) {
  Open();
  Libraries.At(u"Marlow")->Execute(u"DELETE FROM Tree");
  Press(&Manager::btmAddFolder);
  EXPECT_EQ(Tree().RowAt(1).Data, 0);
  EXPECT_FALSE(Tree().Editing());
  EXPECT_THROW(Edit(1, u"x"), vb::Failure);
}

TEST_F(ManagerTree, NamesOfEveryKindAreTakenAsTheyAre) {
  Open();
  const String names[] = {u"it's \"quoted\"",
                          u"100 %",
                          u"two\r\nlines",
                          u"'; DROP TABLE Tree; --",
                          u"\xD83D\xDE00 and a lone \xD83D",
                          u"a.b.c",
                          u"",
                          u"?"};
  for (const String& name : names) {
    Row(0);
    Press(&Manager::btmAddFolder);
    Edit(1, name);
    EXPECT_EQ(test::RowsOf(Libraries.At(u"Marlow"))[1].Name, vb::InOneLine(name));
    Press(&Manager::btmAddRecord);
    Press(&Manager::btmMoveLeft);
  }
  ExpectGridIsTheTable();
  Reopen();
  ExpectGridIsTheTable();
}

TEST_F(ManagerTree, AllIsOpenedAndClosedAtOnce) {
  Fill();
  Open();
  Press(&Manager::btmExpand);
  for (int row = 0; row < Tree().Rows(); ++row) EXPECT_TRUE(Tree().RowShows(row)) << row;
  Press(&Manager::btmCollapse);
  EXPECT_TRUE(Tree().RowShows(0));
  for (int row = 1; row < Tree().Rows(); ++row) EXPECT_FALSE(Tree().RowShows(row)) << row;
}

// Settings

TEST_F(ManagerTree, WithoutSettingsTheFirstRowTheTopRowsAndTheFirstPageAreShown) {
  Fill();
  Open();
  EXPECT_EQ(Tree().Row(), 0);
  EXPECT_FALSE(Tree().RowShows(1));
  EXPECT_EQ(Dialog->C1TCodeObject.CurrTab(), 0);
}

TEST_F(ManagerTree, ComesBackAsItWasLeft) {
  Fill();
  Open();
  Go(u"Inner");
  Go(u"i1");
  Page(2);
  forms::user::ResizeColumn(Tree(), 0, 50);
  Reopen();
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"i1");
  EXPECT_TRUE(Tree().RowShows(Tree().Row()));
  EXPECT_EQ(Dialog->C1TCodeObject.CurrTab(), 2);
  EXPECT_EQ(Tree().ColumnWidths->front(), 50);
  const auto value = [](StringView key) {
    return gAppSettings->GetText(u"Settings\\VBCode\\frmFragmentBuild", key, u"-");
  };
  EXPECT_EQ(value(u"C1TCodeObject"), u"2");
  EXPECT_EQ(value(u"C1EElasticAll_Grid_0_gsColWidth"), u"6000");
  EXPECT_EQ(value(u"fgTreeOutline"), u"4");
  EXPECT_EQ(value(u"fgTreeRow"), u"3");
}

TEST_F(ManagerTree, AStoredRowWinsOverTheSelectedFolder) {
  Fill();
  gAppSettings->SaveSetting(u"Settings\\VBCode", u"SelectedFolder", String(u"71"));
  Open();
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"B");
  EXPECT_TRUE(Tree().RowShows(Tree().Row()));
  Dialog->Unload();
  gAppSettings->SaveSetting(u"Settings\\VBCode\\frmFragmentBuild", u"fgTreeRow", String(u"2"));
  Open();
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"Inner");
}

TEST_F(ManagerTree, SettingsBeyondWhatThereIsAreLeftAlone) {
  for (const StringView key : {u"C1TCodeObject", u"fgTreeRow", u"fgTreeOutline"}) {
    gAppSettings->SaveSetting(u"Settings\\VBCode\\frmFragmentBuild", key, String(u"77"));
  }
  Open();
  EXPECT_EQ(Tree().Row(), 0);
  EXPECT_EQ(Dialog->C1TCodeObject.CurrTab(), 0);
}

TEST_F(ManagerTree, TheGridShowsWhatTheTableHoldsWhenNothingCanBeWritten) {
  Fill();
  Open();
  Go(u"A");
  {
    const test::Reader reader(*Libraries.At(u"Marlow"));
    Press(&Manager::btmAddFolder);
    EXPECT_EQ(Tree().RowAt(2).Data, 0) << "a row without a node";
    EXPECT_THROW(Edit(2, u"x"), vb::Failure) << "which can't be edited";
    Row(1);
    Answer(MessageAnswer::Yes);
    Press(&Manager::btmDeleteFolder);
    EXPECT_EQ(Tree().TextMatrix(1, 0), u"A");
    Press(&Manager::btmEditFolder);
    Edit(1, u"renamed");
    EXPECT_EQ(Tree().TextMatrix(1, 0), u"A");
  }
  Reopen();
  EXPECT_EQ(Rows(), Filled);
  Go(u"A");
  Answer(MessageAnswer::Yes);
  Press(&Manager::btmDeleteFolder);
  EXPECT_EQ(Rows(), "User Database\n B\n  b1\n");
  ExpectGridIsTheTable();
}

// Drops

class ManagerDrops : public ManagerTree {
 protected:
  void Drop(int row, const std::filesystem::path& file) const {
    forms::user::Drop(Tree(), row, {file.u16string()});
  }
  [[nodiscard]] ListFragment Record() const {
    return Main->GetRecordsetFromList(static_cast<std::int32_t>(Tree().RowAt(Tree().Row()).Data));
  }
};

TEST_F(ManagerDrops, AModuleBecomesARecordUnderItsName) {
  Fill();
  Open();
  Go(u"A");
  Drop(1, Folder().Write("x.tmp", "Attribute VB_Name = \"modMath\"\r\nSub A()\r\nEnd Sub\r\n"));
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"modMath");
  EXPECT_EQ(Tree().Row(), 6) << "behind all of the folder's rows";
  EXPECT_EQ(Tree().RowAt(6).Picture, 115);
  EXPECT_EQ(Record().ClassObj, u"BAS");
  EXPECT_EQ(Record().NameObj, u"modMath");
  EXPECT_EQ(Record().TextObj, u"Sub A()\r\nEnd Sub\r\n");
  EXPECT_EQ(Dialog->C1TCodeObject.CurrTab(), 0);
  EXPECT_EQ(Dialog->RicCodeObjectFragmentBuilder.Text(), u"Sub A()\r\nEnd Sub\r\n");
  EXPECT_EQ(Dialog->lblType.Caption(), u"Module");
  EXPECT_TRUE(Dialog->btmInsertObject.Enabled());
  ExpectGridIsTheTable();
}

TEST_F(ManagerDrops, AClassAndAFormWithoutCompanionComeInAsSuch) {
  Open();
  Drop(0, Folder().Write("c.tmp",
                         "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"clsOne\"\r\n"
                         "Attribute VB_Exposed = False\r\nPublic X\r\n"));
  EXPECT_EQ(Record().ClassObj, u"CLS");
  EXPECT_EQ(Tree().RowAt(Tree().Row()).Picture, 114);
  Drop(0, Folder().Write("f.tmp",
                         "VERSION 5.00\r\nBegin VB.Form frmOne \r\nEnd\r\n"
                         "Attribute VB_Name = \"frmOne\"\r\nAttribute VB_Exposed = False\r\n"));
  EXPECT_EQ(Tree().TextMatrix(Tree().Row(), 0), u"frmOne");
  EXPECT_EQ(Tree().RowAt(Tree().Row()).Picture, 112);
  EXPECT_EQ(Record().ClassObj, u"FRM");
  EXPECT_TRUE(Services.Errors.Take().empty()) << "it names no companion, so it lacks none";
}

TEST_F(ManagerDrops, AFormThatLacksTheCompanionThatItNamesIsTold) {
  Open();
  Drop(0, Folder().Write("f.tmp",
                         "VERSION 5.00\r\nBegin VB.Form frmOne \r\n  Icon = \"frmOne.frx\":0000\r\n"
                         "End\r\nAttribute VB_Name = \"frmOne\"\r\n"
                         "Attribute VB_Exposed = False\r\n"));
  const auto reports = Services.Errors.Take();
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_NE(reports.front().find(u"File not found"), String::npos) << vb::ToUtf8(reports.front());
}

TEST_F(ManagerDrops, WhatIsNoComponentAndWhatFallsOnARecordAddsNothing) {
  Fill();
  Open();
  const auto module = Folder().Write("m.tmp", "Attribute VB_Name = \"m\"\r\n");
  Go(u"a1");
  Drop(RowOf(u"a1"), module);
  Drop(0, Folder().Write("note.tmp", "nothing of the kind"));
  Drop(0, Folder().Write("m.bas", "Attribute VB_Name = \"m\"\r\n"));
  Drop(0, Folder().Write("text.tmp", "x = \"Attribute VB_Name = \"\"m\"\"\"\r\n"));
  Drop(0, Folder().Write("bare.tmp", "Attribute VB_Name = \"m\""));
  Drop(0, Folder().Write("tab.tmp", "Attribute VB_Name = \"m\tn\"\r\n"));
  Drop(0, Folder().Write("plain.tmp", "VERSION 1.0 CLASS\r\nAttribute VB_Name = \"c\"\r\n"));
  forms::user::Drop(Tree(), 0, {});
  EXPECT_EQ(Rows(), Filled);
  ExpectGridIsTheTable();
}

TEST_F(ManagerDrops, ADroppedFileThatIsGoneIsReported) {
  Open();
  Drop(0, Folder().Path() / "gone.tmp");
  EXPECT_EQ(Services.Errors.Take().size(), 1U);
  EXPECT_EQ(Rows(), "User Database\n");
}

}  // namespace
}  // namespace tessel
