#include "hosts/batch/SnippetsCommand.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <sstream>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "connections/cConnectReestr.h"
#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/EditorSnippets.h"
#include "hosts/linux/SqliteRegistry.h"
#include "snippets/SnippetDatabase.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

class Snippets : public testing::Test {
 protected:
  Snippets() { test::WriteEmptyDatabase(library_); }

  /// Runs the whole program with "snippets" ahead of the words; the library and the user's
  /// directories are those of this test.
  int Run(std::vector<std::string> words, const std::string& input = {},
          const std::string& library = "lib.mdb") {
    words.insert(words.begin(), "snippets");
    const std::string root = folder_.Path().string() + "/";
    for (const std::string& more :
         {std::string("--data"), root + "user", std::string("--settings"), root + "settings"}) {
      words.push_back(more);
    }
    if (!library.empty()) {
      words.push_back("--library");
      words.push_back(library == "lib.mdb" ? library_.string() : library);
    }
    out_.str("");
    err_.str("");
    std::istringstream in(input);
    return RunProgram(words, {in, out_, err_});
  }
  [[nodiscard]] std::string Path(const std::string& name) const {
    return (folder_.Path() / name).string();
  }

  test::TemporaryFolder folder_;
  fs::path library_ = folder_.Path() / "lib.mdb";
  std::ostringstream out_, err_;
};

TEST_F(Snippets, AddsShowsAndListsRecords) {
  EXPECT_EQ(Run({"add", "-", "--name", "Hello", "--notes", "a note", "--folder", "Basics/First"},
                "MsgBox 1\r\n"),
            Done);
  EXPECT_EQ(out_.str(), "added 73\tHello\n");
  folder_.Write("C.cls", "VERSION 1.0 CLASS\r\nAttribute VB_Exposed = False\r\n'code\r\n");
  EXPECT_EQ(Run({"add", Path("C.cls")}), Done);
  EXPECT_EQ(Run({"list"}), Done);
  EXPECT_EQ(out_.str(), "71\tBasics/\n72\t  First/\n73\t    Hello\n74\tC [CLS]\n");
  EXPECT_EQ(Run({"show", "basics/first/hello"}), Done);
  EXPECT_EQ(out_.str(), "' a note\n\nMsgBox 1\r\n");
  EXPECT_EQ(Run({"show", "74"}), Done);
  EXPECT_EQ(out_.str(), "VERSION 1.0 CLASS\r\nAttribute VB_Exposed = False\r\n'code\r\n");
  EXPECT_EQ(Run({"find", "MSGBOX"}), Done);
  EXPECT_EQ(out_.str(), "73\tBasics/First/Hello\n");
}

TEST_F(Snippets, AComponentIsReadInItsOwnCodePage) {
  const std::string name = "\xCC\xEE\xE4\xF3\xEB\xFC",
                    plain = "\xD0\x9C\xD0\xBE\xD0\xB4\xD1\x83\xD0\xBB\xD1\x8C";
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n'" + name + " " + name + "\r\n");
  EXPECT_EQ(Run({"add", Path("M.bas")}), Done);
  EXPECT_EQ(Run({"add", Path("M.bas"), "--name", "West", "--code-page", "1252"}), Done);
  EXPECT_EQ(Run({"show", "M"}), Done);
  EXPECT_EQ(out_.str(), "Attribute VB_Name = \"M\"\r\n'" + plain + " " + plain + "\r\n");
  EXPECT_EQ(Run({"show", "West"}), Done);
  EXPECT_NE(out_.str().find("\xC3\x8C\xC3\xAE"), std::string::npos);
  folder_.Write("t.txt", name);
  EXPECT_EQ(Run({"add", Path("t.txt"), "--code-page", "1251"}), Done);
  EXPECT_EQ(Run({"show", "t"}), Done);
  EXPECT_EQ(out_.str(), plain);
  EXPECT_EQ(Run({"add", Path("t.txt"), "--code-page", "7"}), Failed);
  EXPECT_EQ(err_.str(), "tessel: there is no code page 7\n");
}

TEST_F(Snippets, ACompanionThatTheLibraryDoesNotKeepIsTold) {
  const auto text = [](const std::string& kind, const std::string& companion) {
    return "VERSION 5.00\r\nBegin VB." + kind + " One \r\n   Picture = \"" + companion +
           "\":0000\r\nEnd\r\nAttribute VB_Name = \"One\"\r\nAttribute VB_Exposed = False\r\n";
  };
  for (const char* const file : {"One.ctx", "One.pgx", "One.frx"}) folder_.Write(file, "pictures");
  const auto told = [&](const std::string& file, const std::string& bytes) {
    folder_.Write(file, bytes);
    EXPECT_EQ(Run({"add", Path(file)}), Done);
    return err_.str();
  };
  EXPECT_EQ(told("One.ctl", text("UserControl", "One.ctx")),
            "tessel: " + Path("One.ctl") +
                ": its pictures and texts lie in One.ctx, which a library doesn't keep with CTL "
                "objects; keep that file beside the project\n");
  EXPECT_NE(told("One.pag", text("PropertyPage", "One.pgx")).find("One.pgx"), std::string::npos);
  EXPECT_EQ(told("One.frm", text("Form", "One.frx")), "");
  EXPECT_NE(told("One.frm", text("MDIForm", "One.frx")).find("One.frx"), std::string::npos);
  EXPECT_EQ(told("Two.ctl", text("UserControl", "gone.ctx")), "");
}

TEST_F(Snippets, NamesWhatIsMissing) {
  EXPECT_EQ(Run({"show", "99"}), Failed);
  EXPECT_EQ(err_.str(), "tessel: there is no record 99 (list and find name them)\n");
  EXPECT_EQ(Run({"add", "-"}, "x"), Failed);
  EXPECT_EQ(err_.str(), "tessel: the record needs --name\n");
  EXPECT_EQ(Run({"add", Path("none.txt")}), Failed);
  EXPECT_NE(err_.str().find("none.txt"), std::string::npos);
  EXPECT_EQ(Run({"list"}, "", "Nowhere"), Failed);
  EXPECT_EQ(err_.str(),
            "tessel: Nowhere: there is no such file, and no library of that name; there are "
            "Marlow\n");
  folder_.Write("text.mdb", "no database at all, but long enough for one");
  EXPECT_EQ(Run({"list"}, "", Path("text.mdb")), Failed);
  EXPECT_NE(err_.str().find("text.mdb: "), std::string::npos);
  test::OpenDatabase(library_)->Execute(u"ALTER TABLE List DROP COLUMN TextUserNotes");
  EXPECT_EQ(Run({"list"}), Failed);
  EXPECT_NE(err_.str().find("lib.mdb: is no snippet library; table List"), std::string::npos);
}

TEST_F(Snippets, WorksOnTheUsersOwnLibrariesByName) {
  EXPECT_EQ(Run({"list"}, "", ""), Done);
  EXPECT_FALSE(out_.str().empty()) << "the starter library";
  EXPECT_TRUE(fs::exists(folder_.Path() / "user/Data/VBCode.MDB"));
  {
    struct Services : BatchPlatform {
      explicit Services(const fs::path& file) : BatchPlatform(4), Own(file) {}
      platform::Registry& Registry() override { return Own; }
      linux_host::SqliteRegistry Own;
    } services(folder_.Path() / "settings");
    const platform::ScopedPlatform scope(services);
    const auto settings = std::make_shared<CAppSettings>();
    settings->Init(u"Norvane", u"Tessel");
    cConnectReestr list;
    list.Init(settings);
    ASSERT_TRUE(list.AddNewConnection(library_.u16string()));
  }
  Run({"add", "-", "--name", "Mine"}, "x");
  EXPECT_EQ(Run({"list"}, "", "userconnect1"), Done);
  EXPECT_EQ(out_.str(), "71\tMine\n");
}

TEST_F(Snippets, AnExportedFolderIsImported) {
  Run({"add", "-", "--name", "One", "--folder", "F"}, "text");
  EXPECT_EQ(Run({"export", Path("out")}), Done);
  EXPECT_EQ(out_.str(), Path("out/F/One.snippet") + "\n");
  EXPECT_EQ(Run({"import", Path("out")}), Done);
  EXPECT_EQ(out_.str(), "replaced F/One\n");
  EXPECT_EQ(Run({"import", Path("out"), "--folder", "Team"}), Done);
  EXPECT_EQ(out_.str(), "added F/One\n");
  EXPECT_EQ(Run({"list"}), Done);
  EXPECT_EQ(out_.str(), "73\tTeam/\n74\t  F/\n75\t    One\n71\tF/\n72\t  One\n");
}

TEST_F(Snippets, ARecordThatWaitsForItsFirstTextIsFoundAndExported) {
  EXPECT_EQ(Run({"add", "-", "--name", "Other"}, "x = 1\r\n"), Done);
  // As the manager adds one.
  const int id =
      test::OpenTree(test::OpenDatabase(library_))->AddNode(u"Empty yet", TopID, 0, 0, RecordKind);
  EXPECT_EQ(Run({"find", "empty"}), Done);
  EXPECT_EQ(out_.str(), std::to_string(id) + "\tEmpty yet\n");
  EXPECT_EQ(Run({"export", Path("out")}), Done) << err_.str();
  EXPECT_NE(out_.str().find("Empty yet.snippet\n"), std::string::npos) << out_.str();
}

TEST_F(Snippets, AnExportNamesWhatItRemovesAndWhatItKeeps) {
  Run({"add", "-", "--name", "One", "--folder", "F"}, "text");
  Run({"export", Path("out")});
  folder_.Write("out/mine.snippet", "Name: mine\n");
  test::OpenTree(test::OpenDatabase(library_))->DeleteNode(71);
  EXPECT_EQ(Run({"export", Path("out")}), Done);
  EXPECT_EQ(out_.str(),
            "removed " + Path("out/F/One.snippet") + "\nkept " + Path("out/mine.snippet") + "\n");
}

TEST_F(Snippets, AnExportOfADamagedLibraryLeavesTheGoodCopyAlone) {
  for (int at = 0; at < 200; ++at) {
    Run({"add", "-", "--name", "Record " + std::to_string(at)}, std::string(300, 'x'));
  }
  ASSERT_EQ(Run({"export", Path("out")}), Done);
  const std::string whole = folder_.Read("lib.mdb"), order = folder_.Read("out/_order.txt");
  folder_.Write("lib.mdb", whole.substr(0, whole.size() - 3000));
  EXPECT_EQ(Run({"export", Path("out")}), Failed);
  EXPECT_EQ(err_.str(),
            "tessel: " + Path("lib.mdb") + ": the file is damaged; take it from a copy\n");
  folder_.Write("lib.mdb", whole);
  test::OpenDatabase(library_)->Execute(u"UPDATE Tree SET lft = NULL, rgt = NULL WHERE ID = 75");
  EXPECT_EQ(Run({"export", Path("out")}), Failed);
  EXPECT_NE(err_.str().find("The numbers of the tree are damaged; \"tessel snippets check\""),
            std::string::npos)
      << err_.str();
  EXPECT_EQ(folder_.Read("out/_order.txt"), order);
  EXPECT_TRUE(fs::exists(Path("out/Record 7.snippet")));
  EXPECT_EQ(Run({"check"}), Done);
  EXPECT_EQ(Run({"export", Path("out")}), Done);
}

TEST_F(Snippets, AnExportNamesEveryFileThatWasChangedByHand) {
  Run({"add", "-", "--name", "One"}, "text");
  Run({"add", "-", "--name", "Two"}, "text");
  folder_.Write("out/One.snippet", "Name: One\n");
  folder_.Write("out/Two.snippet", "Name: Two\n");
  EXPECT_EQ(Run({"export", Path("out")}), Failed);
  const std::string why = " was changed by hand; import it or remove it first\n";
  EXPECT_EQ(err_.str(), "tessel: " + Path("out/One.snippet") + why + Path("out/Two.snippet") + why);
  EXPECT_FALSE(fs::exists(Path("out/_order.txt")));
}

TEST_F(Snippets, ATeamKeepsOneFolderAndNobodysWorkIsLost) {
  Run({"add", "-", "--name", "One"}, "old\r\n");
  Run({"add", "-", "--name", "Two"}, "old\r\n");
  ASSERT_EQ(Run({"export", Path("out")}), Done);
  // The colleague has a copy of the library, with all that it knows, and a change of One.
  folder_.Write("colleague.mdb", folder_.Read("lib.mdb"));
  folder_.Write("edit/One.snippet", "Name: One\nText:\n    theirs\n");
  const auto theirs = [&](std::vector<std::string> words, const std::string& input = {}) {
    return Run(std::move(words), input, Path("colleague.mdb"));
  };
  ASSERT_EQ(theirs({"import", Path("edit")}), Done);
  ASSERT_EQ(theirs({"add", "-", "--name", "Three"}, "new\r\n"), Done);
  ASSERT_EQ(theirs({"export", Path("out")}), Done) << err_.str();
  EXPECT_EQ(Run({"export", Path("out")}), Failed);
  const std::string why = " was changed by hand; import it or remove it first\n";
  EXPECT_EQ(err_.str(), "tessel: " + Path("out/_order.txt") + why + Path("out/One.snippet") + why);
  EXPECT_EQ(Run({"import", Path("out")}), Done);
  EXPECT_EQ(out_.str(), "replaced One\nreplaced Two\nadded Three\n");
  EXPECT_EQ(Run({"export", Path("out")}), Done);
  EXPECT_EQ(folder_.Read("out/One.snippet"), "Name: One\nText:\n    theirs\n");
  EXPECT_EQ(folder_.Read("out/Three.snippet"), "Name: Three\nText:\n    new\n");
  EXPECT_EQ(Run({"check", "--check"}), Done) << out_.str();
}

TEST_F(Snippets, AnImportTakesNobodysOlderTextForANewerOne) {
  const auto write = [&](const std::string& name, const std::string& text) {
    folder_.Write("edit/" + name + ".snippet", "Name: " + name + "\nText:\n    " + text + "\n");
  };
  const auto shown = [&](const std::string& name) {
    EXPECT_EQ(Run({"show", name}), Done) << err_.str();
    return out_.str();
  };
  for (const char* const name : {"Mine", "Theirs", "Both"}) {
    Run({"add", "-", "--name", name}, "old\r\n");
  }
  ASSERT_EQ(Run({"export", Path("out")}), Done);
  // In the library, as by its dialog.
  write("Mine", "mine");
  ASSERT_EQ(Run({"import", Path("edit")}), Done);
  // In the folder, by somebody else.
  folder_.Write("out/Theirs.snippet", "Name: Theirs\nText:\n    theirs\n");
  EXPECT_EQ(Run({"import", Path("out")}), Done) << err_.str();
  EXPECT_EQ(out_.str(), "kept Mine\nreplaced Theirs\nreplaced Both\n");
  EXPECT_EQ(shown("Mine"), "mine\r\n");
  EXPECT_EQ(shown("Theirs"), "theirs\r\n");
  ASSERT_EQ(Run({"export", Path("out")}), Done) << err_.str();
  EXPECT_EQ(folder_.Read("out/Mine.snippet"), "Name: Mine\nText:\n    mine\n");
  // Both sides of one record.
  write("Both", "mine");
  fs::remove(Path("edit/Mine.snippet"));
  ASSERT_EQ(Run({"import", Path("edit")}), Done);
  folder_.Write("out/Both.snippet", "Name: Both\nText:\n    theirs\n");
  EXPECT_EQ(Run({"import", Path("out")}), Failed);
  EXPECT_EQ(err_.str(), "tessel: " + Path("out/Both.snippet") +
                            " was changed, and so was its record; give one of them another name\n");
  EXPECT_EQ(shown("Both"), "mine\r\n");
  folder_.Write("out/Both.snippet", "Name: Both, theirs\nText:\n    theirs\n");
  EXPECT_EQ(Run({"import", Path("out")}), Done) << err_.str();
  EXPECT_EQ(out_.str(), "replaced Mine\nreplaced Theirs\nadded Both, theirs\n");
  EXPECT_EQ(shown("Both"), "mine\r\n");
  EXPECT_EQ(Run({"export", Path("out")}), Done) << err_.str();
  EXPECT_EQ(folder_.Read("out/Both.snippet"), "Name: Both\nText:\n    mine\n");
}

TEST_F(Snippets, AFileByHandIsNoChangeOfItsRecord) {
  Run({"add", "-", "--name", "One"}, "old\r\n");
  ASSERT_EQ(Run({"export", Path("out")}), Done);
  for (const char* const text : {"second", "third"}) {
    // As a person writes it: other blanks, other line ends.
    folder_.Write("out/One.snippet", std::string("Name: One\r\nText:\r\n    ") + text + "\r\n");
    EXPECT_EQ(Run({"import", Path("out")}), Done) << err_.str();
    EXPECT_EQ(out_.str(), "replaced One\n");
  }
  EXPECT_EQ(Run({"show", "One"}), Done);
  EXPECT_NE(out_.str().find("third"), std::string::npos);
}

TEST_F(Snippets, AMarkTellsHowATextIsWritten) {
  using namespace std::string_literals;
  const std::string plain =
      "Gr\xC3\xBC\xC3\x9F"
      "e";
  const std::pair<const char*, std::string> texts[] = {{"Utf8", "\xEF\xBB\xBF" + plain},
                                                       {"Little",
                                                        "\xFF\xFE"
                                                        "G\0r\0\xFC\0\xDF\0e\0"s},
                                                       {"Big",
                                                        "\xFE\xFF"
                                                        "\0G\0r\0\xFC\0\xDF\0e"s}};
  for (const auto& [name, bytes] : texts) {
    const std::string file = std::string(name) + ".txt";
    folder_.Write(file, bytes);
    EXPECT_EQ(Run({"add", Path(file)}), Done);
    EXPECT_EQ(Run({"add", "-", "--name", std::string("In") + name}, bytes), Done);
    for (const std::string& record : {std::string(name), std::string("In") + name}) {
      EXPECT_EQ(Run({"show", record}), Done);
      EXPECT_EQ(out_.str(), plain) << record;
    }
  }
  EXPECT_EQ(Run({"add", "-", "--name", "Cut"},
                "\xFF\xFE"
                "G\0r"s),
            Failed);
  EXPECT_NE(err_.str().find("ends within a character"), std::string::npos) << err_.str();
  // The sign for what can't be read is a character like another.
  EXPECT_EQ(Run({"add", "-", "--name", "Sign"}, plain + "\xEF\xBF\xBD"), Done);
  EXPECT_EQ(Run({"show", "Sign"}), Done);
  EXPECT_EQ(out_.str(), plain + "\xEF\xBF\xBD");
  EXPECT_EQ(Run({"add", "-", "--name", "Old", "--code-page", "1252"}, "\xFF\xFE"), Done);
  EXPECT_EQ(Run({"show", "Old"}), Done);
  EXPECT_EQ(out_.str(), "\xC3\xBF\xC3\xBE");
}

TEST_F(Snippets, AnImportSaysThatThereIsNothing) {
  fs::create_directories(Path("in/sub"));
  EXPECT_EQ(Run({"import", Path("in")}), Failed);
  EXPECT_EQ(err_.str(), "tessel: nothing to import in " + Path("in") + "\n");
  EXPECT_EQ(Run({"list"}), Done);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(Run({"export", Path("out")}), Done);
  EXPECT_EQ(Run({"import", Path("out")}), Done);
  EXPECT_EQ(out_.str(), "nothing to import in " + Path("out") + "\n");
}

TEST_F(Snippets, WhatIsNoFileIsToldInPlainWords) {
  fs::create_directories(Path("folder"));
  EXPECT_EQ(Run({"add", Path("folder")}), Failed);
  EXPECT_EQ(err_.str(), "tessel: " + Path("folder") + ": cannot be read: Is a directory\n");
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(Run({"import", Path("pipe")}), Failed);
  EXPECT_EQ(err_.str(), "tessel: " + Path("pipe") + ": is no regular file\n");
}

TEST_F(Snippets, ANumberIsThatOfARecordAheadOfAName) {
  Run({"add", "-", "--name", "72"}, "first");
  Run({"add", "-", "--name", "other"}, "second");
  EXPECT_EQ(Run({"show", "72"}), Done);
  EXPECT_EQ(out_.str(), "second");
}

TEST_F(Snippets, APipeIsReadOnceAndWhole) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  const pid_t writer = fork();
  if (writer == 0) {
    std::ofstream(Path("pipe")) << "hello\r\n";
    _exit(0);
  }
  EXPECT_EQ(Run({"add", Path("pipe"), "--name", "Piped"}), Done) << err_.str();
  waitpid(writer, nullptr, 0);
  EXPECT_EQ(Run({"show", "Piped"}), Done);
  EXPECT_EQ(out_.str(), "hello\r\n");
}

TEST_F(Snippets, AFormWhoseCompanionIsMissingComesInAndIsTold) {
  folder_.Write("F.frm",
                "VERSION 5.00\r\nBegin VB.Form F\r\n   Icon = \"F.frx\":0000\r\nEnd\r\n"
                "Attribute VB_Name = \"F\"\r\nAttribute VB_Exposed = False\r\n");
  EXPECT_EQ(Run({"add", Path("F.frm")}), Done);
  EXPECT_EQ(err_.str(), "tessel: " + Path("F.frm") +
                            ": its pictures and texts lie in F.frx, which is missing or empty; the "
                            "record has come in without them\n");
  folder_.Write("F.frx", "pictures");
  EXPECT_EQ(Run({"add", Path("F.frm")}), Done);
  EXPECT_EQ(err_.str(), "");
}

TEST_F(Snippets, ALibraryInUtf16IsReadAndChanged) {
  fs::remove(library_);
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open(library_.c_str(), &raw), SQLITE_OK);
  ASSERT_EQ(
      sqlite3_exec(raw,
                   "PRAGMA encoding = 'UTF-16le';"
                   "CREATE TABLE Tree (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name VARCHAR(255),"
                   " lft INTEGER, rgt INTEGER, Root INTEGER);"
                   "CREATE TABLE List (Id INTEGER PRIMARY KEY REFERENCES Tree (ID) ON DELETE"
                   " CASCADE, Text TEXT, TitleObj TEXT, TextObj TEXT, CompObj TEXT,"
                   " NameObj VARCHAR(50), ClassObj VARCHAR(3), TextUserNotes TEXT);"
                   "CREATE TABLE NameMDB (Name VARCHAR(50));"
                   "INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES (1, 'root', 1, 2, 1);",
                   nullptr, nullptr, nullptr),
      SQLITE_OK);
  sqlite3_close(raw);
  const std::string text =
      "Gr\xC3\xBC\xC3\x9F"
      "e \xF0\x9F\x98\x80 \xD0\x96";
  EXPECT_EQ(Run({"add", "-", "--name", "One \xD0\x96"}, text), Done) << err_.str();
  EXPECT_EQ(Run({"show", "one \xD0\xB6"}), Done) << err_.str();
  EXPECT_EQ(out_.str(), text);
  EXPECT_EQ(Run({"find",
                 "gr\xC3\x9C\xC3\x9F"
                 "E"}),
            Done);
  EXPECT_EQ(out_.str(), "2\tOne \xD0\x96\n");
  EXPECT_EQ(Run({"export", Path("out")}), Done) << err_.str();
  EXPECT_EQ(Run({"export", Path("out")}), Done) << err_.str();
  EXPECT_EQ(Run({"check", "--check"}), Done) << out_.str();
}

TEST_F(Snippets, AnExportClearsWhatAKilledOneLeft) {
  Run({"add", "-", "--name", "One", "--folder", "F/G"}, "text");
  Run({"export", Path("out")});
  for (const char* const file : {"out/.tessel-0badcafe.tmp", "out/F/G/.tessel-1badcafe.tmp"}) {
    folder_.Write(file, "half");
  }
  folder_.Write("out/.git/.tessel-2badcafe.tmp", "not ours");
  EXPECT_EQ(Run({"export", Path("out")}), Done);
  EXPECT_FALSE(fs::exists(Path("out/.tessel-0badcafe.tmp")));
  EXPECT_FALSE(fs::exists(Path("out/F/G/.tessel-1badcafe.tmp")));
  EXPECT_TRUE(fs::exists(Path("out/.git/.tessel-2badcafe.tmp")));
}

TEST_F(Snippets, AnEditorsSnippetsAreImported) {
  folder_.Write("vb.code-snippets",
                "// made by hand\n{\n  \"For loop\": {\n    \"prefix\": [\"for\", \"loop\"],\n"
                "    \"body\": [\"For ${1:i} = 0 To 1\", \"\\t$0\", \"Next $1\",],\n"
                "    \"description\": \"Counts /* not a comment */\",\n  },\n"
                "  /* one line */ \"Url\": {\"body\": \"x = \\\"http://a\\\"\"},\n}\n");
  EXPECT_EQ(Run({"import", Path("vb.code-snippets"), "--folder", "Editor"}), Done);
  EXPECT_EQ(Run({"show", "Editor/For loop"}), Done);
  EXPECT_EQ(out_.str(),
            "' Counts /* not a comment */\n' Prefix: for, loop\n\nFor i = 0 To 1\r\n\t\r\nNext "
            "i\r\n");
  EXPECT_EQ(Run({"show", "Editor/Url"}), Done);
  EXPECT_EQ(out_.str(), "x = \"http://a\"\r\n");
}

TEST_F(Snippets, ABadImportChangesNothingAndNamesThePlace) {
  folder_.Write("bad.code-snippets", "{\n \"a\": {\"body\": 1},\n oops\n}");
  EXPECT_EQ(Run({"import", Path("bad.code-snippets"), "--folder", "New"}), Failed);
  EXPECT_NE(err_.str().find("bad.code-snippets:3: the file is no JSON"), std::string::npos);
  folder_.Write("bad.code-snippets", "{\"good\": {\"body\": \"x\"}, \"a\": {\"body\": 1}}");
  EXPECT_EQ(Run({"import", Path("bad.code-snippets"), "--folder", "New"}), Failed);
  EXPECT_NE(err_.str().find("the body of the snippet \"a\" is neither a text nor a list of texts"),
            std::string::npos);
  folder_.Write("bad.code-snippets", "{\"a\": {\"body\": \"x\"}, \"a\": {\"body\": \"y\"}}");
  EXPECT_EQ(Run({"import", Path("bad.code-snippets"), "--folder", "New"}), Failed);
  EXPECT_EQ(err_.str(), "tessel: " + Path("bad.code-snippets") + ": holds \"a\" twice\n");
  EXPECT_EQ(Run({"list"}), Done);
  EXPECT_EQ(out_.str(), "");
}

TEST_F(Snippets, ChecksAndMendsALibrary) {
  Run({"add", "-", "--name", "One"}, "x");
  EXPECT_EQ(Run({"check"}), Done);
  EXPECT_EQ(out_.str(), "");
  test::OpenDatabase(library_)->Execute(u"UPDATE Tree SET lft = 77, rgt = 78 WHERE ID = 71");
  EXPECT_EQ(Run({"check", "--check"}), WouldChange);
  EXPECT_EQ(Run({"check"}), Done);
  EXPECT_EQ(out_.str(), "71 \"One\" stood outside the top\n");
  EXPECT_EQ(Run({"check"}), Done);
  EXPECT_EQ(out_.str(), "");
}

TEST_F(Snippets, ANameThatTheColumnCannotHoldIsRefusedAndNeverCut) {
  const std::string name(255, 'n'), longer = name + "n";
  EXPECT_EQ(Run({"add", "-", "--name", name}, "x"), Done);
  folder_.Write("in/a.snippet", "Name: " + longer + "\nText:\n    1\n");
  folder_.Write("object/a.snippet", "Name: a\nObject: " + longer + "\nClass: BAS\n");
  folder_.Write("a.code-snippets", "{\"" + longer + "\": {\"body\": \"x\"}}");
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"add", "-", "--name", longer},
        {"add", "-", "--name", "x", "--folder", longer},
        {"import", Path("in")},
        {"import", Path("object")},
        {"import", Path("a.code-snippets")}}) {
    EXPECT_EQ(Run(words, "x"), Failed);
    EXPECT_NE(err_.str().find(" has at most "), std::string::npos) << err_.str();
    EXPECT_NE(err_.str().find("nnn...\" has 256"), std::string::npos) << err_.str();
    if (words[1] == Path("in") || words[1] == Path("object")) {
      EXPECT_TRUE(err_.str().starts_with("tessel: " + words[1] + "/a.snippet: ")) << err_.str();
    }
  }
  EXPECT_EQ(Run({"list"}), Done);
  EXPECT_EQ(out_.str(), "71\t" + name + "\n");
}

TEST_F(Snippets, ALibraryThatCannotBeWrittenIsNamedWithTheCause) {
  Run({"add", "-", "--name", "One"}, "x");
  std::string bytes = folder_.Read("lib.mdb");
  // A file of a later version of the format is read and never written.
  constexpr std::size_t WriteVersion = 18;
  bytes[WriteVersion] = 3;
  folder_.Write("lib.mdb", bytes);
  folder_.Write("a.code-snippets", "{\"good\": {\"body\": \"x\"}}");
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"add", "-", "--name", "Two"},
        {"add", "-", "--name", "Two", "--folder", "New"},
        {"import", Path("a.code-snippets")}}) {
    EXPECT_EQ(Run(words, "x"), Failed);
    EXPECT_EQ(err_.str(),
              "tessel: " + Path("lib.mdb") + ": the file can't be written, it is read-only\n");
  }
  EXPECT_EQ(folder_.Read("lib.mdb"), bytes);
}

TEST_F(Snippets, ADamagedLibraryIsNamedAndNoStatementIsShown) {
  Run({"add", "-", "--name", "One"}, "x");
  const std::string whole = folder_.Read("lib.mdb");
  constexpr std::size_t Page = 4096;
  int told = 0;
  for (std::size_t at = Page; at < whole.size(); at += Page) {
    std::string bytes = whole;
    bytes.replace(at, Page, Page, '\x7f');
    for (const std::vector<std::string>& words : {std::vector<std::string>{"list"},
                                                  {"show", "One"},
                                                  {"find", "x"},
                                                  {"check"},
                                                  {"export", Path("out")},
                                                  {"add", "-", "--name", "Two"}}) {
      folder_.Write("lib.mdb", bytes);
      if (Run(words, "x") != Failed) continue;
      ++told;
      EXPECT_EQ(err_.str(),
                "tessel: " + Path("lib.mdb") + ": the file is damaged; take it from a copy\n")
          << words.front() << " with page " << at / Page;
    }
  }
  EXPECT_GE(told, 12);
}

TEST_F(Snippets, ANumberThatIsNoneIsToldWithTheFileAndTheRemedy) {
  Run({"add", "-", "--name", "One"}, "x");
  test::OpenDatabase(library_)->Execute(u"UPDATE Tree SET Root = 'many' WHERE ID = 71");
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"list"}, {"show", "One"}, {"find", "x"}}) {
    EXPECT_EQ(Run(words), Failed);
    EXPECT_EQ(err_.str(), "tessel: " + Path("lib.mdb") +
                              ": The numbers of the tree are damaged; \"tessel snippets check\" "
                              "mends them\n")
        << words.front();
  }
  EXPECT_EQ(Run({"check"}), Done);
  EXPECT_EQ(Run({"find", "x"}), Done);
  EXPECT_EQ(out_.str(), "71\tOne\n");
}

TEST_F(Snippets, ASchemaThatIsDamagedIsToldWithoutAStatement) {
  const auto library = test::OpenDatabase(library_);
  library->Execute(u"PRAGMA writable_schema = 1");
  library->Execute(
      u"UPDATE sqlite_master SET sql = 'CREATE INDEX oops' WHERE name = 'ListObjects'");
  library->Close();
  EXPECT_EQ(Run({"list"}), Failed);
  EXPECT_EQ(err_.str(),
            "tessel: " + Path("lib.mdb") + ": the file is damaged; take it from a copy\n");
}

TEST_F(Snippets, AFileThatIsNoLibraryIsToldWithoutAStatement) {
  test::OpenDatabase(library_)->Execute(u"ALTER TABLE List DROP COLUMN TextUserNotes");
  EXPECT_EQ(Run({"list"}), Failed);
  EXPECT_EQ(err_.str(), "tessel: " + Path("lib.mdb") +
                            ": is no snippet library; table List: there is no column "
                            "TextUserNotes\n");
  test::OpenDatabase(library_)->Execute(u"DROP TABLE List");
  EXPECT_EQ(Run({"list"}), Failed);
  EXPECT_EQ(err_.str(), "tessel: " + Path("lib.mdb") +
                            ": is no snippet library; table List: there is no table List\n");
}

TEST_F(Snippets, ASearchOfALibraryThatWasCutOffEnds) {
  for (int number = 0; number < 40; ++number) {
    Run({"add", "-", "--name", "Number " + std::to_string(number)}, std::string(3000, 'x'));
  }
  const std::string whole = folder_.Read("lib.mdb");
  constexpr std::size_t Page = 4096;
  int told = 0;
  for (std::size_t length = Page; length < whole.size(); length += 3 * Page) {
    folder_.Write("lib.mdb", whole.substr(0, length));
    for (const char* const word : {"xx", "nowhere"}) {
      if (Run({"find", word}) != Failed) continue;
      ++told;
      EXPECT_EQ(err_.str(),
                "tessel: " + Path("lib.mdb") + ": the file is damaged; take it from a copy\n");
    }
  }
  EXPECT_GE(told, 10);
}

TEST_F(Snippets, AFullDeviceOrAReadOnlyLibraryIsTold) {
  Run({"add", "-", "--name", "One"}, "x");
  EXPECT_EQ(Run({"export", "/dev/null/out"}), Failed);
  EXPECT_FALSE(err_.str().empty());
  if (geteuid() == 0) GTEST_SKIP() << "nothing is read-only for root";
  fs::permissions(library_, fs::perms::owner_read);
  EXPECT_EQ(Run({"add", "-", "--name", "Two"}, "x"), Failed);
  EXPECT_FALSE(err_.str().empty());
}

}  // namespace
}  // namespace tessel::batch
