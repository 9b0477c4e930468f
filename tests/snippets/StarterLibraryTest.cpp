// Every record of the delivered library.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "formatter/mFormatText.h"
#include "hosts/workspace/Workspace.h"
#include "insertion/mGlobals.h"
#include "snippets/DeclaredNames.h"
#include "snippets/ObjectRecords.h"
#include "snippets/SnippetDatabase.h"
#include "snippets/SnippetFolder.h"
#include "snippets/SnippetSearch.h"
#include "snippets/TreeCheck.h"
#include "support/BlockChecker.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"
#include "vb/CodePages.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

struct Record {
  std::string Path;
  ListFragment Fragment;
  int ID = 0;
};

class StarterLibrary : public testing::Test {
 protected:
  void SetUp() override {
    store::WriteStandardDatabases(folder_.Path(), platform::Current().Files());
    connection_ = test::OpenDatabase(folder_.Path() / "VBCode.MDB");
    tree_ = test::OpenTree(connection_);
    for (const SnippetPath& one : PathsOf(*tree_)) {
      if (one.Node.Root == FolderKind) continue;
      records_.push_back(
          {vb::ToUtf8(one.Path), tree_->GetRecordsetFromList(one.Node.ID), one.Node.ID});
    }
  }

  test::World world_;
  test::TemporaryFolder folder_;
  std::shared_ptr<store::Connection> connection_;
  std::shared_ptr<CSQLTree> tree_;
  std::vector<Record> records_;
};

TEST_F(StarterLibrary, HasManyRecordsInASoundTreeWithFoldersAheadOfRecords) {
  EXPECT_GE(records_.size(), 100U);
  const auto rows = test::RowsOf(connection_);
  EXPECT_EQ(test::Unsound(rows), "");
  EXPECT_TRUE(CheckTree(connection_, false).empty());
  for (const test::TreeRow& row : rows) {
    const auto next = std::find_if(rows.begin(), rows.end(), [&](const test::TreeRow& other) {
      return other.Lft == row.Rgt + 1;
    });
    if (row.Root == 0 && next != rows.end()) {
      EXPECT_EQ(next->Root, 0) << next->Name.size();
    }
    EXPECT_TRUE(row.ID == 1 || row.Root == 0 || row.Rgt > row.Lft + 1) << row << " is empty";
  }
  EXPECT_EQ(tree_->GetNameRootTree(), u"VB Code");
}

TEST_F(StarterLibrary, IsTheSameBytesOnEveryStart) {
  store::WriteStandardDatabases(folder_.Path() / "again", platform::Current().Files());
  EXPECT_TRUE(folder_.Read("VBCode.MDB") == folder_.Read("again/VBCode.MDB"));
}

TEST_F(StarterLibrary, ComesFromTheFolderOfItsRecordsAndExportsToTheSameFiles) {
  const fs::path source = fs::path(TESSEL_SOURCE_DIR) / "resources/snippets";
  const fs::path out = folder_.Path() / "out";
  const auto done = ExportSnippets(*tree_, out, [](const fs::path& file, const std::string& bytes) {
    platform::Current().Files().Write(file, bytes);
  });
  EXPECT_EQ(done.Written.size(), records_.size());
  std::set<fs::path> wanted, found;
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    wanted.insert(entry.path().lexically_relative(source));
  }
  const auto read = [](const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(in), {}};
  };
  for (const auto& entry : fs::recursive_directory_iterator(out)) {
    const fs::path file = entry.path().lexically_relative(out);
    found.insert(file);
    if (entry.is_regular_file()) {
      EXPECT_EQ(read(entry.path()), read(source / file)) << file;
    }
  }
  EXPECT_EQ(found, wanted);
}

TEST_F(StarterLibrary, EveryRecordHasNotesAndANameOfItsOwnAndEitherATextOrAnObject) {
  std::set<std::string> paths;
  for (const Record& one : records_) {
    EXPECT_FALSE(one.Fragment.TextUserNotes.empty()) << one.Path;
    EXPECT_TRUE(paths.insert(vb::ToUtf8(vb::UCase(vb::FromUtf8(one.Path)))).second) << one.Path;
    EXPECT_NE(one.Fragment.Text.empty(), one.Fragment.ClassObj.empty()) << one.Path;
  }
}

TEST_F(StarterLibrary, HasObjectsOfManyKinds) {
  std::map<String, int> kinds;
  for (const Record& one : records_) ++kinds[one.Fragment.ClassObj];
  EXPECT_GE(kinds[u"BAS"], 2);
  EXPECT_GE(kinds[u"CLS"], 8);
  EXPECT_GE(kinds[u"FRM"], 3);
  EXPECT_GE(kinds[u"FRD"], 1);
  EXPECT_GE(kinds[u"CTL"], 1);
}

TEST_F(StarterLibrary, TheBlocksOfEveryRecordAreBalanced) {
  for (const Record& one : records_) {
    const test::BlockChecker checker(one.Fragment.Text + one.Fragment.TextObj);
    EXPECT_EQ(checker.Errors(), std::vector<std::string>{}) << one.Path;
  }
}

TEST_F(StarterLibrary, EveryRecordDeclaresItsNamesOrItsNotesSayWhatItUses) {
  const std::set<String> shared{u"ReadTextFile", u"WriteTextFile", u"CsvField", u"OpenDocument",
                                u"CCustomer"};
  for (const Record& one : records_) {
    const test::DeclaredNames names(one.Fragment.Text + one.Fragment.TitleObj +
                                    one.Fragment.TextObj);
    std::string missing;
    for (const String& name : names.Undeclared()) {
      const bool told = shared.contains(name) && vb::InStr(one.Fragment.TextUserNotes, name) > 0;
      if (!told) missing += vb::ToUtf8(name) + " ";
    }
    EXPECT_EQ(missing, "") << one.Path;
  }
}

TEST(DeclaredNames, FindsWhatNothingDeclares) {
  const test::DeclaredNames names(
      u"Private Const Known As Long = 1\r\nPublic Sub A(ByVal b As Long, c() As String)\r\n"
      u"    Dim d As Unknown\r\n    d.Anything = b + c(Known) + Missing ' Comment\r\n"
      u"    Call A(b:=Lost, c:=\"Text\")\r\nEnd Sub\r\n");
  EXPECT_EQ(names.Undeclared(), (std::set<String>{u"Missing", u"Lost"}));
}

TEST_F(StarterLibrary, EveryObjectBeginsWithOptionExplicit) {
  for (const Record& one : records_) {
    if (one.Fragment.ClassObj.empty()) continue;
    EXPECT_TRUE(one.Fragment.TextObj.starts_with(u"Option Explicit\r\n")) << one.Path;
  }
}

TEST_F(StarterLibrary, EveryTextInsertedIntoAModulePassesTheFormatterUnchanged) {
  const test::SharedDatabase database;
  int number = 0, formatted = 0;
  for (const Record& one : records_) {
    if (one.Fragment.Text.empty()) continue;
    const auto module = world_.Module(u"Fragment" + vb::Str(++number), u"");
    module->InsertLines(1, one.Fragment.Text);
    const String before = module->Lines(1, module->CountOfLines());
    mFormatText::FormatRun run;
    mFormatText::Init_mRecord_FormatText(run);
    const auto bodies = mFormatText::ReadModuleBodies(Statements(), module);
    if (!bodies) continue;  // declarations alone
    mFormatText::WriteModuleBodies(Statements(), module, *bodies,
                                   mFormatText::FormatTextComponent(run, bodies->Text));
    EXPECT_EQ(vb::ToUtf8(module->Lines(1, module->CountOfLines())), vb::ToUtf8(before)) << one.Path;
    ++formatted;
  }
  EXPECT_GT(formatted, 100);
}

TEST_F(StarterLibrary, EveryObjectGoesIntoAProjectAndComesBackTheSame) {
  workspace::Workspace workspace(world_.Services, workspace::Options{1252});
  workspace.Open(folder_.Write("p/P.vbp", "Type=Exe\r\nName=\"P\"\r\n"));
  fs::create_directory(folder_.Path() / "out");
  CSQLTrees trees;
  trees.Add(tree_, u"Marlow");
  for (const Record& one : records_) {
    if (one.Fragment.ClassObj.empty()) continue;
    ASSERT_EQ(vb::ToUtf8(mFunctions::InsertObjectInUserProject(trees, u"Marlow", workspace.VBE(),
                                                               one.ID, false)),
              "")
        << one.Path;
    const auto components = workspace.VBE()->ActiveVBProject()->VBComponents();
    const auto component = components->Item(one.Fragment.NameObj);
    ASSERT_NE(component, nullptr) << one.Path;
    const ObjectClass& known = *ClassOfObject(one.Fragment.ClassObj);
    const std::string name =
        "out/" + vb::ToUtf8(one.Fragment.NameObj) + "." + vb::ToUtf8(vb::LCase(known.Extension));
    const fs::path file = folder_.Path() / name;
    component->SaveAs(file.u16string());
    EXPECT_EQ(folder_.Read(name),
              vb::BytesOfText(one.Fragment.TitleObj + one.Fragment.TextObj, 1252))
        << one.Path;
    const int id = tree_->AddNode(u"again", 1, 0, 0, RecordKind);
    const ListFragment stored =
        mFunctions::FragmentOfFile(file.u16string(), [&](StringView path, bool companion) {
          if (companion && !fs::exists(fs::path(path))) return String();
          const std::string bytes =
              folder_.Read(fs::path(path).lexically_relative(folder_.Path()).string());
          return vb::TextOfBytes(bytes, 1252);
        });
    tree_->UpdateListFragment(id, stored);
    ListFragment wanted = one.Fragment;
    wanted.TextUserNotes.clear();
    EXPECT_EQ(tree_->GetRecordsetFromList(id), wanted) << one.Path;
  }
}

}  // namespace
}  // namespace tessel
