// Libraries of the old system. The files are made by tools/make-jet-files.py.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "batch/Tessel.h"
#include "hosts/batch/ChildProcess.h"
#include "hosts/batch/JetFile.h"
#include "snippets/SnippetDatabase.h"
#include "snippets/SnippetSearch.h"
#include "support/Fails.h"
#include "vb/CodePages.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

const fs::path Data = fs::path(TESSEL_SOURCE_DIR) / "tests/data/jet";

std::string BytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

class JetImport : public testing::Test {
 protected:
  JetImport() { test::WriteEmptyDatabase("lib.db"); }

  int Import(const fs::path& file, const std::vector<std::string>& more = {}) {
    std::vector<std::string> words{"snippets", "import", file.string(), "--library", "lib.db"};
    words.insert(words.end(), more.begin(), more.end());
    return tessel_.Run(words);
  }
  std::shared_ptr<CSQLTree> Library() { return test::OpenTree(test::OpenDatabase("lib.db")); }
  std::string List() {
    tessel_.Run({"snippets", "list", "--library", "lib.db"});
    return tessel_.Out;
  }
  ListFragment Fragment(StringView path) {
    const auto tree = Library();
    for (const SnippetPath& one : PathsOf(*tree)) {
      if (one.Path == path) return tree->GetRecordsetFromList(one.Node.ID);
    }
    ADD_FAILURE() << "no record " << vb::ToUtf8(path);
    return {};
  }
  /// A column of a record, null or not.
  store::Value Column(StringView column, StringView name) {
    store::Recordset rows;
    rows.Open(u"SELECT " + String(column) +
                  u" FROM List, Tree WHERE List.Id = Tree.ID AND Name = '" + String(name) + u"'",
              Library()->Connection());
    return rows.Cell(0, 0);
  }

  test::Tessel tessel_;
};

TEST_F(JetImport, BringsTheTreeOverAndPassesDeletedRowsOver) {
  const std::string before = BytesOf(Data / "library.mdb");
  EXPECT_EQ(Import(Data / "library.mdb"), Done) << tessel_.Err;
  EXPECT_EQ(tessel_.Out,
            "added Dateien, \"Texte\" & mehr/Größe Привет\n"
            "added Dateien, \"Texte\" & mehr/日本語 ??\n"
            "added It's; DROP TABLE Tree --\nadded Form1\nadded nothing in it\n");
  EXPECT_EQ(List(),
            "71\tDateien, \"Texte\" & mehr/\n72\t  Größe Привет\n73\t  日本語 ??\n"
            "74\tIt's; DROP TABLE Tree --\n75\tForm1 [FRM]\n76\tnothing in it\n");
  EXPECT_EQ(test::Unsound(test::RowsOf(Library()->Connection())), "");
  EXPECT_EQ(BytesOf(Data / "library.mdb"), before);
}

TEST_F(JetImport, TextsComeThroughToTheLastUnit) {
  ASSERT_EQ(Import(Data / "library.mdb"), Done) << tessel_.Err;
  const ListFragment first = Fragment(u"Dateien, \"Texte\" & mehr/Größe Привет");
  EXPECT_EQ(first.Text, u"Dim a\r\n\ta = \"x,y\"\r\n");
  EXPECT_EQ(first.TextUserNotes,
            u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Courier New;}}\r\n\\pard\\f0\\fs20 Dim s As "
            u"String\\par\r\ns = \"a \\'e4 \\{b\\}\"\\par\r\n}\r\n");
  const ListFragment odd = Fragment(u"Dateien, \"Texte\" & mehr/日本語 ??");
  String wanted = u"日本\r\nlone ? end\rmixed\nends\\ ";
  wanted[wanted.find(u'?')] = u'\xD800';
  wanted += u'\0';
  wanted += u" NUL";
  EXPECT_EQ(odd.Text, wanted) << "a zero, a single surrogate and line ends of every kind";
  String lines;
  for (int line = 0; line < 400; ++line) {
    lines += u"Line " + vb::Str(line) + u": äöü 'quoted' \"twice\"\r\n";
  }
  const ListFragment stored = Fragment(u"It's; DROP TABLE Tree --");
  EXPECT_EQ(stored.Text, lines) << "in the short form, over several pages";
  EXPECT_EQ(stored.TextUserNotes, u"Ж and a, ЖЖ and b") << "in turns of short and long form";
}

TEST_F(JetImport, AnObjectKeepsEveryByteOfItsCompanion) {
  ASSERT_EQ(Import(Data / "library.mdb"), Done) << tessel_.Err;
  const ListFragment form = Fragment(u"Form1");
  EXPECT_EQ(form.NameObj, u"Form1");
  EXPECT_EQ(form.ClassObj, u"FRM");
  EXPECT_TRUE(form.TitleObj.starts_with(u"VERSION 5.00\r\nBegin VB.Form Form1 \r\n"));
  EXPECT_TRUE(form.TitleObj.ends_with(u"Attribute VB_Exposed = False\r\n"));
  EXPECT_EQ(form.TextObj, u"Option Explicit\r\n");
  std::string all;
  for (int times = 0; times < 50; ++times) {
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  }
  EXPECT_EQ(form.CompObj, vb::TextOfBytes(all, 1252));
}

TEST_F(JetImport, AnEmptyTextIsNotNull) {
  ASSERT_EQ(Import(Data / "library.mdb"), Done) << tessel_.Err;
  EXPECT_EQ(Column(u"TextUserNotes", u"日本語 ??"), store::Value(String()));
  EXPECT_EQ(Column(u"TextUserNotes", u"Form1"), store::Value(store::Null()));
  EXPECT_EQ(Column(u"Text", u"nothing in it"), store::Value(store::Null()));
}

TEST_F(JetImport, StandsInAFolderWithFoldersFirstAndRecordsLast) {
  const auto tree = Library();
  const int old = tree->AddNode(u"Old", 1, 0, 0, FolderKind);
  tree->AddNode(u"inner", old, 0, 0, FolderKind);
  tree->AddNode(u"record", old, 0, 0, RecordKind);
  ASSERT_EQ(Import(Data / "jet3.mdb", {"--folder", "Old"}), Done) << tessel_.Err;
  EXPECT_EQ(List(), "71\tOld/\n74\t  Grüße/\n75\t    Euro €\n72\t  inner/\n73\t  record\n");
  EXPECT_EQ(test::Unsound(test::RowsOf(tree->Connection())), "");
}

TEST_F(JetImport, TheOlderFormatIsReadInItsCodePage) {
  ASSERT_EQ(Import(Data / "jet3.mdb"), Done) << tessel_.Err;
  String text;
  for (int line = 0; line < 300; ++line) text += u"' line " + vb::Str(line) + u" €\r\n";
  EXPECT_EQ(Fragment(u"Grüße/Euro €").Text, text);
  EXPECT_EQ(Fragment(u"Grüße/Euro €").TextUserNotes, u"notes");
}

TEST_F(JetImport, ADamagedTreeIsMendedInTheCopyAndNothingIsLost) {
  ASSERT_EQ(Import(Data / "damaged.mdb"), Done) << tessel_.Err;
  EXPECT_NE(tessel_.Out.find("mended in the copy: 4 \"crosses A\" overlapped 2 \"A\"\n"),
            std::string::npos)
      << tessel_.Out;
  EXPECT_NE(tessel_.Out.find("mended in the copy: The contents of record 9 had no node\n"),
            std::string::npos);
  EXPECT_NE(tessel_.Out.find("mended in the copy: 5 \"no place\" had no place\n"),
            std::string::npos);
  EXPECT_EQ(test::Unsound(test::RowsOf(Library()->Connection())), "");
  for (const auto& [path, text] : {std::pair{u"A/in A", u"three"},
                                   {u"A/crosses A", u"four"},
                                   {u"no place", u"five"},
                                   {u"Record 9", u"nine"}}) {
    EXPECT_EQ(Fragment(path).Text, text);
  }
}

TEST_F(JetImport, WhatIsNoLibraryIsRefusedAndNothingIsAdded) {
  EXPECT_EQ(Import(Data / "without-column.mdb", {"--folder", "New"}), Failed);
  EXPECT_EQ(tessel_.Err, "tessel: " + (Data / "without-column.mdb").string() +
                             ": is no snippet library; the table List has no column "
                             "TextUserNotes\n");
  EXPECT_EQ(Import(Data / "other.mdb", {"--folder", "New"}), Failed);
  EXPECT_EQ(tessel_.Err, "tessel: " + (Data / "other.mdb").string() +
                             ": is no snippet library; there is no table Tree\n");
  EXPECT_EQ(Import("lib.db", {"--folder", "New"}), Failed);
  fs::copy_file("lib.db", "copy.MDB");
  EXPECT_EQ(Import("copy.MDB", {"--folder", "New"}), Failed);
  EXPECT_EQ(tessel_.Err,
            "tessel: copy.MDB: is no Jet database; a library of this program is brought over by "
            "export and import\n");
  EXPECT_EQ(List(), "");
}

TEST_F(JetImport, ACutFileAddsNothingOrAllThatItTellsOf) {
  const std::string whole = BytesOf(Data / "library.mdb");
  for (std::size_t size = 200; size < whole.size(); size += 8009) {
    tessel_.Folder.Write("cut.mdb", whole.substr(0, size));
    const std::string before = List();
    const int exit = Import("cut.mdb", {"--folder", "Cut " + std::to_string(size)});
    if (exit == Failed) {
      EXPECT_NE(tessel_.Err.find("cut.mdb: "), std::string::npos) << tessel_.Err;
      EXPECT_EQ(List(), before);
    } else {
      EXPECT_NE(tessel_.Out.find("could be read"), std::string::npos) << size << tessel_.Out;
    }
    EXPECT_EQ(test::Unsound(test::RowsOf(Library()->Connection())), "");
  }
}

TEST_F(JetImport, AFileOnWhichTheReaderDoesNotEndIsNamedAndNothingIsLeft) {
  // One that writes without end stands in for it.
  const fs::path tools = tessel_.Folder.Path() / "tools", rest = tessel_.Folder.Path() / "rest";
  fs::create_directories(tools);
  fs::create_directories(rest);
  tessel_.Folder.Write("tools/mdb-export", "#!/bin/sh\nexec yes\n");
  fs::permissions(tools / "mdb-export", fs::perms::owner_all);
  const std::string path = std::getenv("PATH");
  setenv("PATH", (tools.string() + ":" + path).c_str(), 1);
  setenv("TMPDIR", rest.c_str(), 1);
  EXPECT_EQ(Import(Data / "library.mdb"), Failed);
  unsetenv("TMPDIR");
  setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(tessel_.Err, "tessel: " + (Data / "library.mdb").string() +
                             ": the file is damaged; mdb-export doesn't come to an end with the "
                             "table Tree\n");
  EXPECT_TRUE(fs::is_empty(rest));
  EXPECT_EQ(List(), "");
}

TEST_F(JetImport, TheCopyThatIsReadHasNoName) {
  const fs::path rest = tessel_.Folder.Path() / "rest";
  fs::create_directories(rest);
  setenv("TMPDIR", rest.c_str(), 1);
  const JetFile file(Data / "library.mdb");
  EXPECT_TRUE(fs::is_empty(rest)) << "a process that is killed leaves nothing";
  unsetenv("TMPDIR");
  EXPECT_FALSE(file.Read("Tree", {u"ID"}).Rows.empty());
}

TEST_F(JetImport, AMissingReaderIsNamedWithItsPackage) {
  const std::string path = std::getenv("PATH");
  setenv("PATH", "/nowhere", 1);
  EXPECT_EQ(Import(Data / "library.mdb"), Failed);
  setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(tessel_.Err,
            "tessel: " + (Data / "library.mdb").string() +
                ": a Jet database is read by mdb-export, which isn't here; install the "
                "package mdbtools\n");
  EXPECT_EQ(List(), "");
}

TEST_F(JetImport, AFileNameIsNeverReadByAShell) {
  const fs::path odd = "$(touch evil); `touch evil` 'x' \"y\".mdb";
  fs::copy_file(Data / "jet3.mdb", odd);
  EXPECT_EQ(Import(odd), Done) << tessel_.Err;
  EXPECT_FALSE(fs::exists("evil"));
}

TEST_F(JetImport, AnEncryptedFileIsRefused) {
  std::string bytes = BytesOf(Data / "jet3.mdb");
  bytes[0x3E] = static_cast<char>(bytes[0x3E] ^ 1);
  tessel_.Folder.Write("secret.mdb", bytes);
  EXPECT_EQ(Import("secret.mdb"), Failed);
  EXPECT_EQ(tessel_.Err,
            "tessel: secret.mdb: the database is encrypted; take the encryption off it first\n");
}

TEST(ChildProcess, HandsOverArgumentsAndBothOutputsAndTheExitCode) {
  const ChildResult result = RunChild(
      "sh",
      {"-c", "printf '%s|%s' \"$1\" \"$ONE\"; echo bad >&2; cat; exit 3", "sh", "a b\n\"c\" $HOME"},
      {"ONE=1"});
  EXPECT_EQ(result.Out, "a b\n\"c\" $HOME|1");
  EXPECT_EQ(result.Err, "bad\n");
  EXPECT_EQ(result.Exit, 3);
  EXPECT_EQ(RunChild("sh", {"-c", "kill -9 $$"}).Exit, -9);
}

TEST(ChildProcess, ReadsOutputsThatAreLongerThanAPipeHolds) {
  const ChildResult result = RunChild(
      "sh",
      {"-c", "head -c 1000000 /dev/zero >&2; head -c 1000000 /dev/zero; head -c 9 /dev/zero >&2"});
  EXPECT_EQ(result.Out.size(), 1000000U);
  EXPECT_EQ(result.Err.size(), 1000009U);
}

TEST(ChildProcess, AProgramThatDoesNotEndIsEnded) {
  const ChildResult writes = RunChild("yes", {}, {}, {0, 100000, 0});
  EXPECT_TRUE(writes.WroteTooMuch);
  EXPECT_EQ(writes.Exit, -SIGKILL);
  EXPECT_LT(writes.Out.size(), 200000U);
  EXPECT_TRUE(RunChild("sh", {"-c", "yes >&2"}, {}, {0, 100000, 0}).WroteTooMuch);
  const ChildResult runs = RunChild("sh", {"-c", "while :; do :; done"}, {}, {0, 0, 1});
  EXPECT_EQ(runs.Exit, -SIGKILL);
  EXPECT_FALSE(runs.WroteTooMuch);
  constexpr std::uint64_t Memory = 64U << 20U;
  EXPECT_EQ(RunChild("sh", {"-c", "ulimit -v"}, {}, {Memory, 0, 0}).Out, "65536\n");
}

TEST(ChildProcess, EndsWithTheProcessThatRanIt) {
  test::TemporaryFolder folder;
  const fs::path number = folder.Path() / "number";
  const pid_t parent = fork();
  if (parent == 0) {
    static_cast<void>(
        RunChild("sh", {"-c", "echo $$ > \"$1.new\"; mv \"$1.new\" \"$1\"; exec sleep 60", "sh",
                        number.string()}));
    _exit(0);
  }
  const auto waitFor = [](const std::function<bool()>& done) {
    for (int looks = 0; looks < 3000 && !done(); ++looks) usleep(10000);
    return done();
  };
  ASSERT_TRUE(waitFor([&] { return fs::exists(number); }));
  const pid_t child = std::stoi(BytesOf(number));
  kill(parent, SIGKILL);
  waitpid(parent, nullptr, 0);
  EXPECT_TRUE(waitFor([&] {
    // One that nobody waited for is gone too.
    const std::string about = BytesOf("/proc/" + std::to_string(child) + "/stat");
    return about.empty() || about.find(") Z ") != std::string::npos;
  }));
}

TEST(ChildProcess, AProgramThatIsNotThereIsNamed) {
  try {
    static_cast<void>(RunChild("no-such-program-anywhere", {}));
    FAIL();
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(failure.Number(), vb::FileNotFound);
    EXPECT_NE(failure.Description().find(u"no-such-program-anywhere: "), String::npos);
  }
}

}  // namespace
}  // namespace tessel::batch
