// Databases that the Snippet Manager makes, opens and closes.

#include <gtest/gtest.h>

#include "snippets/ManagerDesk.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;
using platform::MessageAnswer;

class ManagerDatabases : public test::ManagerDesk {
 protected:
  /// Chooses a file in the box that an entry of the menu opens.
  void With(StringView key, const fs::path& file) {
    Choose(file);
    File(key);
  }
  fs::path NewDatabase(const std::string& name) {
    const fs::path file = Folder().Path() / name;
    With(u"NEWDATABASE", file);
    return file;
  }
};

TEST_F(ManagerDatabases, ANewOneShowsOneTopRow) {
  Open();
  const fs::path file = NewDatabase("own.mdb");
  EXPECT_EQ(Rows(), "User Database\nUser Database\n");
  EXPECT_EQ(Tree().Row(), 1);
  EXPECT_EQ(Tree().RowAt(1).CellData, u"UserConnect1.1");
  EXPECT_EQ(Registered(), "Marlow UserConnect1 ");
  EXPECT_EQ(Dialog->lblName.Caption(), u"own.mdb");
  EXPECT_EQ(Libraries.At(u"UserConnect1")->IsOpen(), true);
  EXPECT_EQ(test::RowsOf(Libraries.At(u"UserConnect1")),
            (std::vector<test::TreeRow>{{1, 1, 2, 1, u"root"}}));
  EXPECT_TRUE(Tree().HasFocus());
}

TEST_F(ManagerDatabases, AFileIsOpenedOnceHoweverItsPathIsSpelt) {
  Open();
  const fs::path file = Folder().Path() / "A.MDB";
  test::WriteEmptyDatabase(file);
  With(u"OPENDATABASE", file);
  const auto refused = [&](const fs::path& path) {
    Desktop().Messages.clear();
    With(u"OPENDATABASE", path);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"File with the name: \"" + path.string() +
                                                    "\" is already opened, choose another file"}));
  };
  refused(Folder().Path() / "a.mdb");
  refused(file);
  refused(Folder().Path() / "." / "A.MDB");
  EXPECT_EQ(Registered(), "Marlow UserConnect1 ");
  EXPECT_EQ(Tree().Rows(), 2);
}

TEST_F(ManagerDatabases, ANewOneNeverTakesThePlaceOfAnOpenOne) {
  static_cast<void>(Main->AddNode(u"Kept", TopID, 0, 0, FolderKind));
  Open();
  const fs::path file = Folder().Path() / "Marlow.mdb";
  With(u"NEWDATABASE", file);
  EXPECT_EQ(Messages().size(), 1U);
  EXPECT_NE(Messages()[0].find("is already opened"), std::string::npos);
  EXPECT_EQ(test::RowsOf(test::OpenDatabase(file)).size(), 2U);
}

TEST_F(ManagerDatabases, AFileWithoutAColumnIsRefusedAndForgotten) {
  Open();
  const fs::path file = Folder().Path() / "old.mdb";
  test::WriteEmptyDatabase(file);
  test::OpenDatabase(file)->Execute(u"ALTER TABLE List DROP COLUMN TextUserNotes");
  With(u"OPENDATABASE", file);
  ASSERT_EQ(Messages().size(), 1U);
  EXPECT_TRUE(Messages()[0].ends_with("\r\nFile: " + file.string() + "\r\nTable: List"))
      << Messages()[0];
  EXPECT_EQ(Desktop().Messages[0].Style, platform::OKOnly);
  EXPECT_EQ(Registered(), "Marlow ");
  EXPECT_EQ(gConnectionMDBs->Count(), 1U);
  EXPECT_EQ(Rows(), "User Database\n");
}

TEST_F(ManagerDatabases, WhatIsNoDatabaseSaysSoAndIsForgotten) {
  Open();
  With(u"OPENDATABASE", Folder().Write("text.mdb", "no database at all"));
  With(u"OPENDATABASE", Folder().Write("empty.mdb", ""));
  With(u"OPENDATABASE", Folder().Path() / "gone.mdb");
  With(u"OPENDATABASE", Folder().Path());
  ASSERT_EQ(Messages().size(), 4U);
  EXPECT_NE(Messages()[0].find("text.mdb: the file is damaged or is no database"),
            std::string::npos);
  EXPECT_NE(Messages()[2].find("gone.mdb: the file does not exist"), std::string::npos);
  EXPECT_EQ(Registered(), "Marlow ");
  EXPECT_EQ(Rows(), "User Database\n");
}

TEST_F(ManagerDatabases, AJetFileNamesTheCommandThatBringsItOver) {
  Open();
  const std::string bytes = std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4076, '\0');
  const fs::path file = Folder().Write("jet.mdb", bytes);
  With(u"OPENDATABASE", file);
  ASSERT_EQ(Messages().size(), 1U);
  EXPECT_NE(Messages()[0].find("a genuine Microsoft Jet database"), std::string::npos);
  EXPECT_NE(Messages()[0].find("tessel snippets import \"" + file.string() + "\""),
            std::string::npos);
  EXPECT_EQ(Folder().Read("jet.mdb"), bytes);
  EXPECT_EQ(Registered(), "Marlow ");
}

TEST_F(ManagerDatabases, ClosingTakesItsRowsAndKeepsTheRest) {
  Open();
  const fs::path file = NewDatabase("one.mdb");
  Press(&frmFragmentBuilder::btmAddFolder);
  NewDatabase("two.mdb");
  Row(1);
  File(u"CLOSECURRENTDATABASE");
  EXPECT_EQ(Rows(), "User Database\nUser Database\n");
  EXPECT_EQ(Tree().RowAt(1).CellData, u"UserConnect2.1");
  EXPECT_EQ(Tree().Row(), 0);
  EXPECT_EQ(Registered(), "Marlow UserConnect2 ");
  EXPECT_EQ(gConnectionMDBs->Find(u"UserConnect1"), nullptr);
  EXPECT_TRUE(fs::exists(file));
  With(u"OPENDATABASE", file);
  EXPECT_EQ(Rows(), "User Database\nUser Database\nUser Database\n New Folder\n");
}

TEST_F(ManagerDatabases, TheNumberOfAClosedOneIsUsedAgain) {
  Open();
  for (const char* const name : {"1.mdb", "2.mdb", "3.mdb"}) NewDatabase(name);
  Row(3);
  File(u"CLOSECURRENTDATABASE");
  EXPECT_EQ(Registered(), "Marlow UserConnect1 UserConnect2 ");
  NewDatabase("4.mdb");
  EXPECT_EQ(Tree().RowAt(3).CellData, u"UserConnect3.1");
  Row(2);
  File(u"CLOSECURRENTDATABASE");
  NewDatabase("5.mdb");
  EXPECT_NE(gConnectionMDBs->Find(u"UserConnect2"), nullptr);
}

TEST_F(ManagerDatabases, TheMainOneIsNotClosed) {
  Open();
  NewDatabase("own.mdb");
  Row(0);
  File(u"CLOSECURRENTDATABASE");
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{"It is not possible to close Data Base: \"Marlow\""}));
  EXPECT_EQ(Registered(), "Marlow UserConnect1 ");
  EXPECT_EQ(Tree().Rows(), 2);
  EXPECT_TRUE(Libraries.At(u"Marlow")->IsOpen());
}

TEST_F(ManagerDatabases, WithoutAFileNothingHappens) {
  Open();
  File(u"NEWDATABASE");
  File(u"OPENDATABASE");
  EXPECT_EQ(Registered(), "Marlow ");
  EXPECT_TRUE(Desktop().Messages.empty());
}

TEST_F(ManagerDatabases, APlaceThatCannotBeWrittenIsReportedAndNothingIsRegistered) {
  Open();
  NewDatabase("missing folder/own.mdb");
  EXPECT_EQ(Services.Errors.Take().size(), 1U);
  EXPECT_EQ(Registered(), "Marlow ");
  EXPECT_EQ(Rows(), "User Database\n");
}

TEST_F(ManagerDatabases, AReadOnlyOneIsShownAndKeepsWhatItHolds) {
  static_cast<void>(Main->AddNode(u"Kept", TopID, 0, 0, FolderKind));
  const auto record = Main->AddNode(u"Record", TopID, 0, 0, RecordKind);
  Main->UpdateListFragment(record, test::TextFragment(u"old"));
  Libraries.At(u"Marlow")->Execute(u"PRAGMA query_only = 1");
  Open();
  Go(u"Kept");
  Press(&frmFragmentBuilder::btmMoveDown);
  Press(&frmFragmentBuilder::btmAddFolder);
  EXPECT_EQ(Tree().RowAt(Tree().Row()).Data, 0);
  Go(u"Record");
  Page(1);
  forms::user::Type(Dialog->RicCodeFragmentBuilder, u"new");
  Press(&frmFragmentBuilder::btmSave);
  EXPECT_EQ(Services.Errors.Take().size(), 1U) << "what could not be saved is told";
  EXPECT_EQ(Main->GetRecordsetFromList(record).Text, u"old");
  Reopen();
  EXPECT_EQ(Rows(), "User Database\n Kept\n Record\n");
}

TEST_F(ManagerDatabases, TheFirstEntryOfAnEmptyListIsTheFirstNumber) {
  Open();
  gAppSettings->DeleteSetting(u"Connect MDB", u"");
  EXPECT_FALSE(gConnectReestr->GetAllConnect().has_value());
  NewDatabase("own.mdb");
  EXPECT_EQ(Registered(), "UserConnect1 ");
  EXPECT_EQ(Rows(), "User Database\nUser Database\n");
  Row(1);
  gAppSettings->DeleteSetting(u"Connect MDB", u"");
  File(u"CLOSECURRENTDATABASE");
  EXPECT_EQ(Rows(), "User Database\n") << "what isn't registered any more closes as well";
}

/// Something that keeps a database from being written, and its end.
struct WriteFault {
  const char* What;
  std::function<void(store::Connection&, const fs::path&)> Begin, End;
};

std::vector<WriteFault> WriteFaults() {
  const auto other = std::make_shared<store::Connection>();
  const auto says = [](const char16_t* statement) {
    return [statement](store::Connection& to, const fs::path&) { to.Execute(statement); };
  };
  return {{"read-only", says(u"PRAGMA query_only = 1"), says(u"PRAGMA query_only = 0")},
          {"full", says(u"PRAGMA max_page_count = 1"), says(u"PRAGMA max_page_count = 100000")},
          {"vanished",
           [](store::Connection&, const fs::path& file) { fs::rename(file, file.string() + "x"); },
           [](store::Connection&, const fs::path& file) { fs::rename(file.string() + "x", file); }},
          {"locked",
           [other](store::Connection& to, const fs::path& file) {
             to.Execute(u"PRAGMA busy_timeout = 1");
             other->DataSource = file.u16string();
             other->Open();
             other->Execute(u"BEGIN EXCLUSIVE");
           },
           [other](store::Connection&, const fs::path&) { other->Close(); }}};
}

TEST_F(ManagerDatabases, ATextThatCannotBeSavedStaysInItsBoxWhateverTheAnswer) {
  using platform::MessageAnswer;
  struct Edited {
    int Page;
    forms::RichTextBox frmFragmentBuilder::*Box;
    forms::Button frmFragmentBuilder::*Save;
    String ListFragment::*Column;
  };
  const Edited pages[] = {{0, &frmFragmentBuilder::RicCodeObjectFragmentBuilder,
                           &frmFragmentBuilder::btmCodeSave, &ListFragment::TextObj},
                          {1, &frmFragmentBuilder::RicCodeFragmentBuilder,
                           &frmFragmentBuilder::btmSave, &ListFragment::Text},
                          {2, &frmFragmentBuilder::RicUserCode,
                           &frmFragmentBuilder::btmSaveUserCode, &ListFragment::TextUserNotes}};
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  const auto record = Main->AddNode(u"Record", TopID, 0, 0, RecordKind);
  Open();
  Go(u"Record");
  const auto connection = Libraries.At(u"Marlow");
  int number = 0;
  for (const WriteFault& fault : WriteFaults()) {
    for (const std::deque<MessageAnswer>& answers :
         {std::deque{MessageAnswer::Ignore, MessageAnswer::Ignore},
          {MessageAnswer::Abort},
          {MessageAnswer::Retry, MessageAnswer::Ignore, MessageAnswer::Ignore}}) {
      for (const Edited& one : pages) {
        // Longer than what it takes the place of, so that a full database has no room for it.
        const auto length = static_cast<std::size_t>(++number) * 4'000;
        const String typed = u"'" + String(length, u'x') + u"\r\n";
        Page(one.Page);
        forms::user::Type((*Dialog).*one.Box, typed);
        Desktop().Answers = answers;
        fault.Begin(*connection, Folder().Path() / "Marlow.mdb");
        Press(one.Save);
        fault.End(*connection, Folder().Path() / "Marlow.mdb");
        EXPECT_FALSE(Messages().empty()) << fault.What;
        Desktop().Messages.clear();
        Desktop().Answers.clear();
        EXPECT_TRUE(((*Dialog).*one.Box).Text() == typed) << fault.What << ' ' << one.Page;
        Press(one.Save);
        EXPECT_TRUE(Main->GetRecordsetFromList(record).*one.Column == typed) << fault.What;
        EXPECT_TRUE(Messages().empty()) << fault.What;
      }
    }
  }
}

TEST_F(ManagerDatabases, WhatWasTypedStaysWhenAnImportFailsAndTheRecordCannotBeRead) {
  using platform::MessageAnswer;
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  static_cast<void>(Main->AddNode(u"Record", TopID, 0, 0, RecordKind));
  Open();
  Go(u"Record");
  Page(1);
  forms::user::Type(Dialog->RicCodeFragmentBuilder, u"typed");
  Choose(Folder().Write("t.txt", "imported"));
  Desktop().Answers.assign(5, MessageAnswer::Ignore);
  const WriteFault locked = WriteFaults().back();
  locked.Begin(*Libraries.At(u"Marlow"), Folder().Path() / "Marlow.mdb");
  Press(&frmFragmentBuilder::btmImportCode);
  locked.End(*Libraries.At(u"Marlow"), Folder().Path() / "Marlow.mdb");
  EXPECT_EQ(Messages().size(), 2U);
  EXPECT_EQ(Dialog->RicCodeFragmentBuilder.Text(), u"typed");
}

TEST_F(ManagerDatabases, AFileThatVanishedIsToldAndTheRestStays) {
  Open();
  const fs::path file = NewDatabase("own.mdb");
  fs::remove(file);
  Row(0);
  Row(1);
  EXPECT_EQ(Services.Errors.Take().size(), 1U) << "its size can't be told";
  Press(&frmFragmentBuilder::btmAddFolder);
  EXPECT_EQ(Tree().RowAt(2).Data, 0) << "nothing is written into a file that nobody will see";
  File(u"CLOSECURRENTDATABASE");
  EXPECT_EQ(Rows(), "User Database\n");
}

}  // namespace
}  // namespace tessel
