#include "snippets/SnippetFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <set>

#include "hosts/files/AtomicFile.h"
#include "snippets/SnippetDatabase.h"
#include "snippets/SnippetFiles.h"
#include "snippets/SnippetSearch.h"
#include "support/MemoryPlatform.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

class Library : public testing::Test {
 protected:
  std::shared_ptr<CSQLTree> New(const std::string& name) {
    test::WriteEmptyDatabase(folder_.Path() / name);
    auto connection = test::OpenDatabase(folder_.Path() / name);
    connection->Execute(u"PRAGMA synchronous = 0");
    return test::OpenTree(connection);
  }
  int Record(CSQLTree& tree, int parent, StringView name, StringView text, StringView notes = u"") {
    const int id = tree.AddNode(name, parent, 0, 0, RecordKind);
    tree.UpdateListFragment(id, {String(text), u"", u"", u"", u"", u"", String(notes)});
    return id;
  }
  /// Paths, kinds and texts, in the order of the tree.
  static std::vector<std::string> Contents(CSQLTree& tree) {
    std::vector<std::string> all;
    for (const SnippetPath& one : PathsOf(tree)) {
      const ListFragment fragment = tree.GetRecordsetFromList(one.Node.ID);
      all.push_back(vb::ToUtf8(one.Path + (one.Node.Root == FolderKind ? u"/" : u"=") +
                               fragment.Text + fragment.CompObj + fragment.ClassObj));
    }
    return all;
  }

  ExportedSnippets Export(const fs::path& to) { return Export(*tree_, to); }
  static ExportedSnippets Export(CSQLTree& tree, const fs::path& to) {
    return ExportSnippets(tree, to, [](const fs::path& file, const std::string& bytes) {
      files::WriteFile(file, bytes);
    });
  }

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::TemporaryFolder folder_;
  std::shared_ptr<CSQLTree> tree_ = New("a.mdb");
};

TEST_F(Library, GoesIntoAFolderAndComesBackTheSame) {
  const int last = tree_->AddNode(u"z/last:", 1, 0, 0, FolderKind);
  const int first = tree_->AddNode(u"a", 1, 0, 0, FolderKind);
  tree_->AddNode(u"A", 1, 0, 0, FolderKind);
  Record(*tree_, first, u"twice", u"1");
  Record(*tree_, first, u"twice", u"2");
  Record(*tree_, last, u"..\\evil", u"3\r\n");
  Record(*tree_, 1, u"", u"no name");
  const int object = Record(*tree_, 1, u"Form", u"");
  tree_->UpdateListFragment(object, {u"", u"head", u"code", u"\u00ff\u0001", u"F", u"FRM", u""});
  const auto files = Export(folder_.Path() / "out");
  EXPECT_EQ(files.Written.size(), 5U);
  EXPECT_FALSE(fs::exists(folder_.Path() / "evil.snippet"));
  const auto copy = New("b.mdb");
  const auto imported = ImportSnippets(*copy, folder_.Path() / "out", 1);
  EXPECT_EQ(imported.size(), 5U);
  EXPECT_EQ(test::Unsound(test::RowsOf(copy->Connection())), "");
  EXPECT_EQ(Contents(*copy), Contents(*tree_));
}

TEST_F(Library, NamesOfFoldersComeBackToTheUnit) {
  const String names[] = {u"",          u"a\r\nb", u"a\\nb", u"\xD800",
                          u"tab\there", u"twice",  u"twice", u"Twice"};
  for (const String& name : names) {
    const int folder = tree_->AddNode(name, 1, 0, 0, FolderKind);
    Record(*tree_, folder, u"in", name);
  }
  Export(folder_.Path() / "out");
  const auto copy = New("b.mdb");
  ImportSnippets(*copy, folder_.Path() / "out", 1);
  const auto kept = PathsOf(*tree_), came = PathsOf(*copy);
  ASSERT_EQ(came.size(), kept.size());
  for (std::size_t at = 0; at < kept.size(); ++at) EXPECT_EQ(came[at].Path, kept[at].Path);
  // Each goes into its own once more.
  for (const ImportedSnippet& one : ImportSnippets(*tree_, folder_.Path() / "out", 1)) {
    EXPECT_TRUE(one.Replaced) << vb::ToUtf8(one.Path);
  }
  EXPECT_EQ(Contents(*tree_), Contents(*copy));
  EXPECT_EQ(test::Unsound(test::RowsOf(tree_->Connection())), "");
}

TEST_F(Library, AFolderInTheSameCaseGoesAheadOfOneInAnother) {
  const int upper = tree_->AddNode(u"TEXTS", 1, 0, 0, FolderKind);
  const int lower = tree_->AddNode(u"texts", 1, 0, 0, FolderKind);
  folder_.Write("in/texts/a.snippet", "Name: a\nText:\n    1\n");
  ImportSnippets(*tree_, folder_.Path() / "in", 1);
  EXPECT_EQ(tree_->GetNodesForParent(lower)->size(), 1U);
  EXPECT_FALSE(tree_->GetNodesForParent(upper).has_value());
}

TEST_F(Library, AnOlderExportsNamesAreReadAsTheyStand) {
  folder_.Write("in/_order.txt", "F\tC:\\Documents\n");
  folder_.Write("in/F/a.snippet", "Name: a\nText:\n    1\n");
  ImportSnippets(*tree_, folder_.Path() / "in", 1);
  EXPECT_EQ(Contents(*tree_).front(), "C:\\Documents/");
}

TEST_F(Library, ALongNameInAnyScriptIsCutBetweenCharacters) {
  const String cyrillic(130, u'\x0431'), wide = vb::Repeat(60, u'\x3042') + u"\xD83D\xDE00";
  for (const String& name : {cyrillic, cyrillic + u"2", wide + wide}) {
    Record(*tree_, tree_->AddNode(name, 1, 0, 0, FolderKind), name, name);
  }
  for (const fs::path& file : Export(folder_.Path() / "out").Written) {
    for (const fs::path& part : file) {
      EXPECT_LT(part.string().size(), 120U);
      EXPECT_EQ(part.string().find("\xEF\xBF\xBD"), std::string::npos);
      EXPECT_EQ(vb::ToUtf8(vb::FromUtf8(part.string())), part.string());
    }
  }
  const auto copy = New("b.mdb");
  ImportSnippets(*copy, folder_.Path() / "out", 1);
  EXPECT_EQ(Contents(*copy), Contents(*tree_));
}

TEST_F(Library, AnExportOfTheSameLibraryChangesNoFileAndDropsWhatIsGone) {
  const int folder = tree_->AddNode(u"old", 1, 0, 0, FolderKind);
  Record(*tree_, folder, u"gone", u"1");
  Record(*tree_, 1, u"kept", u"2");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  folder_.Write("out/mine.snippet", "the user's own");
  folder_.Write("out/old/notes.txt", "the user's own");
  const auto before = fs::last_write_time(out / "kept.snippet");
  tree_->DeleteNode(folder);
  const ExportedSnippets done = Export(out);
  EXPECT_EQ(done.Written, std::vector<fs::path>{"kept.snippet"});
  EXPECT_EQ(done.Removed, std::vector<fs::path>{"old/gone.snippet"});
  EXPECT_EQ(done.Kept, std::vector<fs::path>{"mine.snippet"});
  EXPECT_EQ(fs::last_write_time(out / "kept.snippet"), before);
  EXPECT_FALSE(fs::exists(out / "old/gone.snippet"));
  EXPECT_EQ(folder_.Read("out/mine.snippet"), "the user's own");
  EXPECT_EQ(folder_.Read("out/old/notes.txt"), "the user's own");
}

TEST_F(Library, AnExportKeepsWhatSomebodyChangedOrWroteByHandAndTellsOfIt) {
  const int folder = tree_->AddNode(u"old", 1, 0, 0, FolderKind);
  for (const StringView name : {u"changed", u"checked out", u"unchanged"}) {
    Record(*tree_, folder, name, u"text\r\n");
  }
  const fs::path out = folder_.Path() / "out";
  Export(out);
  const std::string changed = folder_.Read("out/old/changed.snippet") + "    more\n";
  folder_.Write("out/old/changed.snippet", changed);
  std::string windows;
  for (const char unit : folder_.Read("out/old/checked out.snippet")) {
    windows += unit == '\n' ? "\r\n" : std::string(1, unit);
  }
  folder_.Write("out/old/checked out.snippet", windows);
  // Somebody else has added a record, and it is listed.
  folder_.Write("out/old/by hand.snippet", "Name: by hand\nText:\n    x\n");
  folder_.Write("out/old/_order.txt", folder_.Read("out/old/_order.txt") + "by hand.snippet\n");
  tree_->DeleteNode(folder);
  for (const std::vector<fs::path>& removed :
       {std::vector<fs::path>{"old/checked out.snippet", "old/unchanged.snippet"}, {}}) {
    const ExportedSnippets done = Export(out);
    EXPECT_TRUE(done.Written.empty());
    EXPECT_EQ(done.Removed, removed);
    EXPECT_EQ(done.Kept, (std::vector<fs::path>{"old/by hand.snippet", "old/changed.snippet"}));
  }
  EXPECT_EQ(folder_.Read("out/old/changed.snippet"), changed);
  const auto copy = New("b.mdb");
  EXPECT_EQ(ImportSnippets(*copy, out, 1).size(), 2U);
  fs::remove(out / "old/changed.snippet");
  fs::remove(out / "old/by hand.snippet");
  Export(out);
  EXPECT_FALSE(fs::exists(out / "old")) << "with nothing else in it";
}

TEST_F(Library, ACopyOfAnExportedFileIsNoneOfTheExports) {
  Record(*tree_, 1, u"a", u"1");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  folder_.Write("out/copy.snippet", folder_.Read("out/a.snippet"));
  EXPECT_EQ(Export(out).Kept, std::vector<fs::path>{"copy.snippet"});
}

std::string FailureOf(const std::function<void()>& action) {
  try {
    action();
    return {};
  } catch (const vb::Failure& failure) {
    return vb::ToUtf8(failure.Description());
  }
}

TEST_F(Library, AnExportWritesOverNothingThatSomebodyChangedOrWroteUntilItIsImported) {
  for (const StringView name : {u"a", u"b", u"c"}) Record(*tree_, 1, name, u"text\r\n");
  const fs::path out = folder_.Path() / "out";
  const std::string hand = "Name: c\nText:\n    by hand\n";
  folder_.Write("out/c.snippet", hand);
  EXPECT_EQ(FailureOf([&] { Export(out); }),
            (out / "c.snippet").string() + " was changed by hand; import it or remove it first");
  EXPECT_FALSE(fs::exists(out / "a.snippet")) << "nothing is written";
  fs::remove(out / "c.snippet");
  Export(out);
  const std::string changed = folder_.Read("out/a.snippet") + "    more\n";
  folder_.Write("out/a.snippet", changed);
  folder_.Write("out/c.snippet", hand);
  Record(*tree_, 1, u"d", u"new");
  const std::string all = FailureOf([&] { Export(out); });
  EXPECT_NE(all.find("a.snippet was changed"), std::string::npos) << all;
  EXPECT_NE(all.find("c.snippet was changed"), std::string::npos) << all;
  EXPECT_EQ(all.find("b.snippet"), std::string::npos) << all;
  EXPECT_FALSE(fs::exists(out / "d.snippet"));
  EXPECT_EQ(folder_.Read("out/a.snippet"), changed);
  EXPECT_EQ(folder_.Read("out/c.snippet"), hand);
  ImportSnippets(*tree_, out, 1);
  EXPECT_EQ(FailureOf([&] { Export(out); }), "");
  EXPECT_NE(folder_.Read("out/a.snippet").find("    more\n"), std::string::npos);
  EXPECT_NE(folder_.Read("out/c.snippet").find("    by hand\n"), std::string::npos);
}

/// A file that was changed by hand, as an export names it.
std::string Refused(const fs::path& file) {
  return file.string() + " was changed by hand; import it or remove it first";
}

TEST_F(Library, AColleaguesExportIsNeverWrittenOverAheadOfItsImport) {
  for (const StringView name : {u"a", u"b"}) Record(*tree_, 1, name, u"old\r\n");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  // The colleague's library is of its own, and the folder comes and goes by version control.
  const auto other = New("b.mdb");
  ImportSnippets(*other, out, 1);
  const int known = PathsOf(*other).front().Node.ID;
  other->UpdateListFragment(known, {u"theirs\r\n", u"", u"", u"", u"", u"", u""});
  Record(*other, 1, u"c", u"new\r\n");
  other->DeleteNode(PathsOf(*other)[1].Node.ID);
  EXPECT_EQ(Export(*other, out).Removed, std::vector<fs::path>{"b.snippet"});
  const std::string theirs = folder_.Read("out/a.snippet"), order = folder_.Read("out/_order.txt");

  EXPECT_EQ(FailureOf([&] { Export(out); }),
            Refused(out / "_order.txt") + "\n" + Refused(out / "a.snippet"));
  EXPECT_EQ(folder_.Read("out/a.snippet"), theirs);
  EXPECT_EQ(folder_.Read("out/_order.txt"), order);
  EXPECT_TRUE(fs::exists(out / "c.snippet"));
  ImportSnippets(*tree_, out, 1);
  const ExportedSnippets done = Export(out);
  EXPECT_TRUE(done.Removed.empty() && done.Kept.empty());
  EXPECT_EQ(folder_.Read("out/a.snippet"), theirs);
  EXPECT_EQ(Contents(*tree_), (std::vector<std::string>{"a=theirs\r\n", "b=old\r\n", "c=new\r\n"}));
  // What this library has read and nobody changed since is its own to change.
  tree_->UpdateListFragment(PathsOf(*tree_)[2].Node.ID,
                            {u"mine\r\n", u"", u"", u"", u"", u"", u""});
  Export(out);
  EXPECT_EQ(folder_.Read("out/c.snippet"), "Name: c\nText:\n    mine\n");
}

TEST_F(Library, ARecordThatAColleagueAddedStaysWhereTheOrderIsTheSame) {
  Record(*tree_, 1, u"a", u"1");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  folder_.Write("out/c.snippet", "Name: c\nText:\n    theirs\n");
  EXPECT_EQ(Export(out).Kept, std::vector<fs::path>{"c.snippet"});
  ImportSnippets(*tree_, out, 1);
  EXPECT_TRUE(Export(out).Kept.empty());
  // It is gone when its record is, and only where nobody changed it.
  tree_->DeleteNode(PathsOf(*tree_)[1].Node.ID);
  EXPECT_EQ(Export(out).Removed, std::vector<fs::path>{"c.snippet"});
}

TEST_F(Library, ALibraryThatKnowsNothingOfAFolderTakesWhatSaysTheSame) {
  Record(*tree_, 1, u"a", u"1\r\n");
  Record(*tree_, 1, u"b", u"2\r\n");
  // As an older export wrote it, and as a checkout has it.
  folder_.Write("out/a.snippet", "Name: a\nExport: 0123456789abcdef\nText:\n    1\n");
  folder_.Write("out/b.snippet", "Name: b\r\nText:\r\n    2\r\n");
  folder_.Write("out/_order.txt", "a.snippet\r\nb.snippet\r\n");
  const fs::path out = folder_.Path() / "out";
  EXPECT_EQ(FailureOf([&] { Export(out); }), "");
  EXPECT_EQ(folder_.Read("out/a.snippet"), "Name: a\nText:\n    1\n");
  tree_->UpdateListFragment(PathsOf(*tree_)[0].Node.ID, {u"3", u"", u"", u"", u"", u"", u""});
  EXPECT_EQ(FailureOf([&] { Export(out); }), "");
}

TEST_F(Library, AFolderIsTheSameByWhateverNameItIsCalled) {
  const int record = Record(*tree_, 1, u"a", u"1");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  fs::create_directory_symlink(out, folder_.Path() / "link");
  for (const fs::path& name :
       {out / "", out / ".." / "out", folder_.Path() / "link", fs::proximate(out)}) {
    tree_->UpdateListFragment(record, {String(name.u16string()), u"", u"", u"", u"", u"", u""});
    EXPECT_EQ(FailureOf([&] { Export(name); }), "") << name;
  }
}

TEST_F(Library, AnotherNameInAFileIsAnotherRecord) {
  Record(*tree_, 1, u"a", u"1\r\n");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  folder_.Write("out/a.snippet", "Name: other\nText:\n    1\n");
  EXPECT_FALSE(ImportSnippets(*tree_, out, 1).at(0).Replaced);
  const ExportedSnippets done = Export(out);
  EXPECT_EQ(done.Written, (std::vector<fs::path>{"a.snippet", "other.snippet"}));
  EXPECT_TRUE(done.Kept.empty());
  EXPECT_EQ(folder_.Read("out/a.snippet"), "Name: a\nText:\n    1\n");
  for (const ImportedSnippet& one : ImportSnippets(*tree_, out, 1)) EXPECT_TRUE(one.Replaced);
}

TEST_F(Library, TheSameNameInAnotherCaseRenamesTheRecordAndTheFolder) {
  const int folder = tree_->AddNode(u"files", 1, 0, 0, FolderKind);
  Record(*tree_, folder, u"read", u"1\r\n");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  folder_.Write("out/_order.txt", "files\tFiles\n");
  folder_.Write("out/files/read.snippet", "Name: Read\nText:\n    1\n");
  EXPECT_TRUE(ImportSnippets(*tree_, out, 1).at(0).Replaced);
  EXPECT_EQ(Contents(*tree_), (std::vector<std::string>{"Files/", "Files/Read=1\r\n"}));
  EXPECT_EQ(Export(out).Removed, std::vector<fs::path>{"files/read.snippet"});
  EXPECT_FALSE(fs::exists(out / "files"));
  EXPECT_EQ(folder_.Read("out/Files/Read.snippet"), "Name: Read\nText:\n    1\n");
  EXPECT_EQ(ImportSnippets(*tree_, out, 1).size(), 1U);
}

TEST_F(Library, ARenamedFileIsTheSameRecord) {
  Record(*tree_, 1, u"a", u"1\r\n");
  const fs::path out = folder_.Path() / "out";
  for (const bool imported : {true, false}) {
    Export(out);
    fs::rename(out / "a.snippet", out / "b.snippet");
    if (imported) {
      EXPECT_TRUE(ImportSnippets(*tree_, out, 1).at(0).Replaced);
    }
    const ExportedSnippets done = Export(out);
    EXPECT_EQ(done.Written, std::vector<fs::path>{"a.snippet"});
    EXPECT_EQ(done.Removed, std::vector<fs::path>{"b.snippet"});
    const auto again = ImportSnippets(*tree_, out, 1);
    ASSERT_EQ(again.size(), 1U);
    EXPECT_TRUE(again.front().Replaced);
  }
}

TEST_F(Library, AnOrderThatWasChangedByHandIsRefusedAndImported) {
  const int folder = tree_->AddNode(u"F", 1, 0, 0, FolderKind);
  for (const StringView name : {u"G", u"H"}) {
    Record(*tree_, tree_->AddNode(name, folder, 0, 0, FolderKind), u"in", name);
  }
  for (const StringView name : {u"a", u"b", u"c", u"d"}) Record(*tree_, folder, name, name);
  const fs::path out = folder_.Path() / "out";
  Export(out);
  EXPECT_EQ(folder_.Read("out/F/_order.txt"),
            "H\tH\nG\tG\na.snippet\nb.snippet\nc.snippet\nd.snippet\n");
  // What it doesn't name keeps its place.
  const std::string order = "d.snippet\nG\tG\nb.snippet\nH\tH\na.snippet\n";
  folder_.Write("out/F/_order.txt", order);
  EXPECT_EQ(FailureOf([&] { Export(out); }), Refused(out / "F/_order.txt"));
  EXPECT_EQ(folder_.Read("out/F/_order.txt"), order);
  ImportSnippets(*tree_, out, 1);
  EXPECT_EQ(Contents(*tree_),
            (std::vector<std::string>{"F/", "F/G/", "F/G/in=G", "F/H/", "F/H/in=H", "F/d=d",
                                      "F/b=b", "F/c=c", "F/a=a"}));
  EXPECT_EQ(test::Unsound(test::RowsOf(tree_->Connection())), "");
  EXPECT_EQ(FailureOf([&] { Export(out); }), "");
  EXPECT_EQ(folder_.Read("out/F/_order.txt"),
            "G\tG\nH\tH\nd.snippet\nb.snippet\nc.snippet\na.snippet\n");
}

TEST_F(Library, ANewRecordComesWhereTheOrderNamesIt) {
  for (const StringView name : {u"a", u"b"}) Record(*tree_, 1, name, name);
  const fs::path out = folder_.Path() / "out";
  Export(out);
  folder_.Write("out/new.snippet", "Name: new\nText open:\n    n\n");
  folder_.Write("out/_order.txt", "a.snippet\nnew.snippet\nb.snippet\n");
  ImportSnippets(*tree_, out, 1);
  EXPECT_EQ(Contents(*tree_), (std::vector<std::string>{"a=a", "new=n", "b=b"}));
}

TEST_F(Library, NamesOfDevicesGetFilesThatWindowsCanMake) {
  for (const StringView name : {u"CON", u"nul.txt", u"Lpt1", u"COM1 .a", u"CONSOLE", u"COM0"}) {
    Record(*tree_, tree_->AddNode(name, 1, 0, 0, FolderKind), name, name);
  }
  const fs::path out = folder_.Path() / "out";
  std::set<std::string> files;
  for (const fs::path& file : Export(out).Written) files.insert(file.string());
  EXPECT_EQ(files, (std::set<std::string>{"%43ON/%43ON.snippet", "%6Eul.txt/%6Eul.txt.snippet",
                                          "%4Cpt1/%4Cpt1.snippet", "%43OM1 .a/%43OM1 .a.snippet",
                                          "CONSOLE/CONSOLE.snippet", "COM0/COM0.snippet"}));
  const auto copy = New("b.mdb");
  ImportSnippets(*copy, out, 1);
  EXPECT_EQ(Contents(*copy), Contents(*tree_));
}

TEST_F(Library, ALibraryThatCanOnlyBeReadIsExportedAllTheSame) {
  Record(*tree_, 1, u"a", u"1");
  tree_->Connection()->Execute(u"PRAGMA query_only = 1");
  const fs::path out = folder_.Path() / "out";
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Export(out).Written, std::vector<fs::path>{"a.snippet"});
  }
  folder_.Write("out/a.snippet", "Name: a\nText:\n    by hand\n");
  EXPECT_EQ(FailureOf([&] { Export(out); }), Refused(out / "a.snippet"));
}

TEST_F(Library, AnExportThatEndedEarlyLocksNobodyOutAndTakesNobodysWork) {
  const int a = Record(*tree_, 1, u"a", u"1"), b = Record(*tree_, 1, u"b", u"1");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  const auto text = [&](int id, StringView now) {
    tree_->UpdateListFragment(id, {String(now), u"", u"", u"", u"", u"", u""});
  };
  text(a, u"2");
  text(b, u"2");
  const auto killed = [](const fs::path& file, const std::string& bytes) {
    if (file.filename() == "b.snippet") throw vb::Failure(vb::PathFileAccess, u"", u"");
    files::WriteFile(file, bytes);
  };
  EXPECT_THROW(ExportSnippets(*tree_, out, killed), vb::Failure);
  text(a, u"3");
  text(b, u"3");
  const std::string hand = "Name: b\nText:\n    by hand\n", before = folder_.Read("out/b.snippet");
  folder_.Write("out/b.snippet", hand);
  EXPECT_EQ(FailureOf([&] { Export(out); }), Refused(out / "b.snippet"));
  EXPECT_EQ(folder_.Read("out/b.snippet"), hand);
  folder_.Write("out/b.snippet", before);
  EXPECT_EQ(FailureOf([&] { Export(out); }), "");
  EXPECT_EQ(folder_.Read("out/a.snippet"), "Name: a\nText open:\n    3\n");
}

TEST_F(Library, AnExportLeavesAnotherLibrarysBelowItAlone) {
  Record(*tree_, tree_->AddNode(u"F", 1, 0, 0, FolderKind), u"theirs", u"1");
  const fs::path out = folder_.Path() / "out";
  Export(out / "lib");
  const std::string order = folder_.Read("out/lib/F/_order.txt");
  tree_ = New("b.mdb");
  Record(*tree_, 1, u"mine", u"2");
  for (int round = 0; round < 2; ++round) {
    const ExportedSnippets done = Export(out);
    EXPECT_TRUE(done.Removed.empty());
    EXPECT_EQ(done.Kept, std::vector<fs::path>{"lib/F/theirs.snippet"});
  }
  EXPECT_EQ(folder_.Read("out/lib/F/_order.txt"), order);
}

TEST_F(Library, WhatAnEndedExportLeftIsItsOwnToTheNextOne) {
  const int old = tree_->AddNode(u"old", 1, 0, 0, FolderKind);
  Record(*tree_, old, u"older", u"0");
  const fs::path out = folder_.Path() / "out";
  Export(out);
  tree_->DeleteNode(old);
  const int folder = tree_->AddNode(u"new", 1, 0, 0, FolderKind);
  Record(*tree_, folder, u"first", u"1");
  Record(*tree_, folder, u"second", u"2");
  const auto killed = [](const fs::path& file, const std::string& bytes) {
    if (file.filename() == "second.snippet") throw vb::Failure(vb::PathFileAccess, u"", u"");
    files::WriteFile(file, bytes);
  };
  EXPECT_THROW(ExportSnippets(*tree_, out, killed), vb::Failure);
  EXPECT_TRUE(fs::exists(out / "new/first.snippet"));
  tree_->DeleteNode(folder);
  const ExportedSnippets done = Export(out);
  EXPECT_EQ(done.Removed, (std::vector<fs::path>{"new/first.snippet", "old/older.snippet"}));
  EXPECT_FALSE(fs::exists(out / "new"));
  EXPECT_FALSE(fs::exists(out / "old"));
}

TEST_F(Library, AnExportFollowsNoLinkAndReadsNoPipe) {
  const fs::path out = folder_.Path() / "out", other = folder_.Path() / "other";
  fs::create_directories(other);
  fs::create_directories(out);
  folder_.Write("other/target.snippet", "theirs");
  Record(*tree_, tree_->AddNode(u"F", 1, 0, 0, FolderKind), u"in", u"1");
  Record(*tree_, 1, u"linked", u"2");
  Record(*tree_, 1, u"pipe", u"3");
  fs::create_directory_symlink(other, out / "F");
  fs::create_symlink(other / "target.snippet", out / "linked.snippet");
  fs::create_symlink(other / "order", out / "_order.txt");
  ASSERT_EQ(mkfifo((out / "pipe.snippet").c_str(), 0600), 0);
  const std::string told = FailureOf([&] { Export(out); });
  for (const char* const one :
       {"/F is a link", "/linked.snippet is a link", "/pipe.snippet is no regular file",
        "/_order.txt is no regular file"}) {
    EXPECT_NE(told.find(one), std::string::npos) << told;
  }
  EXPECT_FALSE(fs::exists(other / "in.snippet"));
  EXPECT_FALSE(fs::exists(other / "order"));
  EXPECT_EQ(folder_.Read("other/target.snippet"), "theirs");
  // Where the library has nothing of that name the pipe is none of its business.
  tree_ = New("b.mdb");
  fs::remove(out / "_order.txt");
  EXPECT_EQ(FailureOf([&] { Export(out); }), "");
  fs::remove(out / "linked.snippet");
  EXPECT_TRUE(ImportSnippets(*tree_, out, 1).empty());
}

TEST_F(Library, AFolderThatCannotBeMadeIsNamedWithTheCause) {
  folder_.Write("file", "x");
  const std::string told = FailureOf([&] { Export(folder_.Path() / "file" / "out"); });
  EXPECT_NE(told.find("/file/out: the folder can't be made: "), std::string::npos) << told;
}

TEST_F(Library, AnImportTakesNoTextThatIsNoUtf8AndNamesItsLine) {
  folder_.Write("in/a.snippet", "Name: a\nText:\n    x\n");
  folder_.Write("in/b.snippet",
                "Name: b\nText:\n    Gr\xFC\xDF"
                "e\n");
  const std::string told = FailureOf([&] { ImportSnippets(*tree_, folder_.Path() / "in", 1); });
  EXPECT_NE(told.find("b.snippet:3: the text is no UTF-8"), std::string::npos) << told;
  EXPECT_TRUE(Contents(*tree_).empty());
  folder_.Write("in/b.snippet", "Name: b\nText:\n    \xEF\xBF\xBD\n");
  folder_.Write("in/_order.txt", "a.snippet\nF\tGr\xFC\n");
  EXPECT_NE(FailureOf([&] {
              ImportSnippets(*tree_, folder_.Path() / "in", 1);
            }).find("_order.txt:2: the text is no UTF-8"),
            std::string::npos);
}

TEST_F(Library, ARecordsFileEndsInAnyCase) {
  folder_.Write("in/a.SNIPPET", "Name: a\nText:\n    x\n");
  EXPECT_EQ(ImportSnippets(*tree_, folder_.Path() / "in", 1).size(), 1U);
}

TEST_F(Library, AnImportReplacesRecordsOfTheSameNameWhole) {
  const int folder = tree_->AddNode(u"Files", 1, 0, 0, FolderKind);
  const int record = Record(*tree_, folder, u"Read", u"old", u"old notes");
  folder_.Write("in/files/read.snippet", "Name: READ\nText:\n    new\n");
  folder_.Write("in/files/more.snippet", "Name: More\nText:\n    more\n");
  folder_.Write("in/readme.md", "not a record");
  const auto done = ImportSnippets(*tree_, folder_.Path() / "in", 1);
  ASSERT_EQ(done.size(), 2U);
  EXPECT_EQ(done[0].Path, u"files/More");
  EXPECT_FALSE(done[0].Replaced);
  EXPECT_TRUE(done[1].Replaced);
  EXPECT_EQ(tree_->GetRecordsetFromList(record).Text, u"new\r\n");
  EXPECT_EQ(tree_->GetRecordsetFromList(record).TextUserNotes, u"");
}

TEST_F(Library, AnImportWithABadFileChangesNothing) {
  folder_.Write("in/a.snippet", "Name: a\n");
  folder_.Write("in/b/c.snippet", "rubbish");
  const auto before = Contents(*tree_);
  try {
    ImportSnippets(*tree_, folder_.Path() / "in", 1);
    FAIL();
  } catch (const vb::Failure& failure) {
    EXPECT_NE(failure.Description().find(u"c.snippet:1: "), String::npos);
  }
  EXPECT_EQ(Contents(*tree_), before);
}

TEST_F(Library, AnImportPlacesFoldersFirstAndRecordsLastBesideWhatIsThere) {
  tree_->AddNode(u"Old", 1, 0, 0, FolderKind);
  Record(*tree_, 1, u"old", u"0");
  for (const char* const name : {"A/one", "B/two", "old/three"}) {
    folder_.Write("in/" + std::string(name) + ".snippet", "Name: x\nText:\n    1\n");
  }
  folder_.Write("in/new.snippet", "Name: new\nText:\n    2\n");
  ImportSnippets(*tree_, folder_.Path() / "in", 1);
  EXPECT_EQ(Contents(*tree_),
            (std::vector<std::string>{"A/", "A/x=1\r\n", "B/", "B/x=1\r\n", "Old/", "Old/x=1\r\n",
                                      "old=0", "new=2\r\n"}));
  EXPECT_EQ(test::Unsound(test::RowsOf(tree_->Connection())), "");
}

TEST_F(Library, AnImportIntoADamagedTreeSaysSoAndChangesNothing) {
  Record(*tree_, 1, u"a", u"1");
  tree_->Connection()->Execute(u"UPDATE Tree SET rgt = 9 WHERE ID > 1");
  const auto before = test::RowsOf(tree_->Connection());
  folder_.Write("in/new.snippet", "Name: new\nText:\n    2\n");
  try {
    ImportSnippets(*tree_, folder_.Path() / "in", 1);
    FAIL();
  } catch (const vb::Failure& failure) {
    EXPECT_NE(failure.Description().find(u"tessel snippets check"), String::npos);
  }
  EXPECT_EQ(test::RowsOf(tree_->Connection()), before);
}

TEST_F(Library, FindsRecordsThatHoldEveryWordTheBestFirst) {
  const int folder = tree_->AddNode(u"Strings", 1, 0, 0, FolderKind);
  Record(*tree_, folder, u"Split", u"x = Split(a, b)", u"cuts");
  Record(*tree_, folder, u"Join and split", u"");
  Record(*tree_, 1, u"Other", u"uses SPLIT and cuts");
  Record(*tree_, 1, u"Nothing", u"");
  const auto paths = [&](const std::vector<String>& words) {
    std::vector<String> found;
    for (const SnippetHit& hit : FindSnippets(*tree_, words)) found.push_back(hit.Path);
    return found;
  };
  EXPECT_EQ(paths({u"split"}),
            (std::vector<String>{u"Strings/Split", u"Strings/Join and split", u"Other"}));
  EXPECT_EQ(paths({u"cuts", u"SPLIT"}), (std::vector<String>{u"Strings/Split", u"Other"}));
  EXPECT_EQ(paths({u"strings"}),
            (std::vector<String>{u"Strings/Split", u"Strings/Join and split"}));
  EXPECT_TRUE(paths({u"split", u"absent"}).empty());
}

TEST_F(Library, FindsInTheFoldersOnTheWayAndAcrossTheirNames) {
  const int outer = tree_->AddNode(u"Outer", 1, 0, 0, FolderKind);
  const int inner = tree_->AddNode(u"Inner", outer, 0, 0, FolderKind);
  Record(*tree_, inner, u"Deep", u"");
  Record(*tree_, outer, u"Flat", u"the text says Inner");
  Record(*tree_, 1, u"Top", u"outer/inner, too");
  const auto found = [&](const String& word) {
    std::vector<std::pair<String, int>> hits;
    for (const SnippetHit& hit : FindSnippets(*tree_, {word})) {
      hits.emplace_back(hit.Path, hit.Score);
    }
    return hits;
  };
  using Hits = std::vector<std::pair<String, int>>;
  EXPECT_EQ(found(u"inner"), (Hits{{u"Outer/Inner/Deep", 15}, {u"Outer/Flat", 4}, {u"Top", 4}}));
  EXPECT_EQ(found(u"outer"), (Hits{{u"Outer/Inner/Deep", 15}, {u"Outer/Flat", 15}, {u"Top", 4}}));
  EXPECT_EQ(found(u"ER/in"), (Hits{{u"Outer/Inner/Deep", 15}, {u"Top", 4}}));
  EXPECT_EQ(found(u"r/d"), (Hits{{u"Outer/Inner/Deep", 15}}));
  EXPECT_EQ(found(u"/Flat"), (Hits{{u"Outer/Flat", 15}}));
}

TEST_F(Library, FindsThroughALibraryOfMoreThanOneBatch) {
  store::Transaction transaction(*tree_->Connection());
  for (int at = 0; at < 1100; ++at) Record(*tree_, 1, u"r" + vb::Str(at), u"needle");
  transaction.Commit();
  EXPECT_EQ(FindSnippets(*tree_, {u"NEEDLE"}).size(), 1100U);
}

TEST_F(Library, AFolderIsFoundOrMadeByItsPath) {
  const int files = FolderAt(*tree_, u"Files");
  EXPECT_EQ(FolderAt(*tree_, u"/files/"), files);
  const int inner = FolderAt(*tree_, u"FILES/Text");
  EXPECT_NE(inner, files);
  EXPECT_EQ(FolderAt(*tree_, u""), 1);
  EXPECT_EQ(Contents(*tree_), (std::vector<std::string>{"Files/", "Files/Text/"}));
}

}  // namespace
}  // namespace tessel
