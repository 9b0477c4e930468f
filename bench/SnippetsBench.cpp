// A snippet tree of 100,000 nodes in five levels: what the dialogs' operations cost beside the
// plainest statement of the same file.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "LargeLibrary.h"
#include "foundation/CErrorHandler.h"
#include "hosts/memory/UnattendedPlatform.h"
#include "hosts/workspace/Workspace.h"
#include "snippets/OpenLibraries.h"
#include "snippets/SnippetFolder.h"
#include "snippets/SnippetSearch.h"
#include "snippets/frmFragmentBuilder.h"
#include "snippets/frmGetFromVbCode.h"
#include "snippets/frmStoreToVbCode.h"

namespace {

using namespace tessel;

using bench::Library;
constexpr int Nodes = 100000;

/// What everything else is measured by: all rows of a statement, nothing kept.
void ReadPlainly(sqlite3* db, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
  const int columns = sqlite3_column_count(statement);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    for (int column = 0; column < columns; ++column) {
      if (sqlite3_column_type(statement, column) == SQLITE_INTEGER) {
        benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
      } else {
        benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
      }
    }
  }
  sqlite3_finalize(statement);
}

Library& Large() {
  static Library library(Nodes, Library::Age::New);
  return library;
}

/// A library that was made ahead of the index over the objects.
Library& LargeAndOlder() {
  static Library library(Nodes, Library::Age::Older);
  return library;
}

void ReadTreePlainly(benchmark::State& state) {
  Large();
  for (auto _ : state) {
    ReadPlainly(Large().Connection->Handle(), "SELECT ID, Name, lft, rgt FROM Tree ORDER BY lft");
  }
}
BENCHMARK(ReadTreePlainly)->Unit(benchmark::kMillisecond);

/// The add-in with one library, and no project.
class Desk {
 public:
  explicit Desk(const Library& library) {
    gErrorHandler = std::make_shared<CErrorHandler>();
    auto connection = std::make_shared<cConnectionMDB>();
    connection->NameConnect = u"Marlow";
    connection->mConnectMDB = library.Connection;
    gConnectionMDBs->Add(connection, connection->NameConnect);
  }
  ~Desk() { gErrorHandler.reset(); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  template <class Dialog>
  std::shared_ptr<Dialog> Make() {
    auto dialog = std::make_shared<Dialog>();
    dialog->VBInstance = workspace_.VBE();
    return dialog;
  }

 private:
  memory::UnattendedPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::OpenLibraries libraries_;
  workspace::Workspace workspace_{services_};
};

/// From the dialog's first line to its rows: the recordset of the tree, its listing, the grid. At
/// most 6 times the plain read.
template <class Dialog>
void LoadDialog(benchmark::State& state, const Library& library, forms::Grid Dialog::*grid) {
  Desk desk(library);
  for (auto _ : state) {
    state.PauseTiming();
    const auto dialog = desk.Make<Dialog>();
    state.ResumeTiming();
    dialog->Load();
    state.PauseTiming();
    if (((*dialog).*grid).Rows() < Nodes) state.SkipWithError("the tree is not in the dialog");
    dialog->Unload();
    state.ResumeTiming();
  }
}
void LoadSnippetManager(benchmark::State& state) {
  LoadDialog(state, Large(), &frmFragmentBuilder::fgTree);
}
BENCHMARK(LoadSnippetManager)->Unit(benchmark::kMillisecond);
void LoadInsertSnippet(benchmark::State& state) {
  LoadDialog(state, Large(), &frmGetFromVbCode::fgTree);
}
BENCHMARK(LoadInsertSnippet)->Unit(benchmark::kMillisecond);
void LoadStoreToSnippets(benchmark::State& state) {
  LoadDialog(state, Large(), &frmStoreToVbCode::fgTreeNext);
}
BENCHMARK(LoadStoreToSnippets)->Unit(benchmark::kMillisecond);
void LoadSnippetManagerOfOlderLibrary(benchmark::State& state) {
  LoadDialog(state, LargeAndOlder(), &frmFragmentBuilder::fgTree);
}
BENCHMARK(LoadSnippetManagerOfOlderLibrary)->Unit(benchmark::kMillisecond);

void ListNodes(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Large().Tree->GetNodes());
}
BENCHMARK(ListNodes)->Unit(benchmark::kMillisecond);

/// One of the statements that a move takes: half of the tree gets other numbers.
void OneUpdate(benchmark::State& state) {
  store::Command shift(Large().Connection,
                       u"UPDATE Tree SET lft = lft + @Con WHERE ( lft Between @Start And @End )");
  std::int64_t by = 1;
  for (auto _ : state) {
    shift.Execute({by, std::int64_t{Nodes}, std::int64_t{3 * Nodes}});
    by = -by;
  }
  if (by < 0) shift.Execute({by, std::int64_t{Nodes}, std::int64_t{3 * Nodes}});
}
BENCHMARK(OneUpdate)->Unit(benchmark::kMillisecond);

/// Out of its folder; into the first one beside it. At most 20 times one update each.
void MoveANodeLeftAndRight(benchmark::State& state) {
  Library& large = Large();
  for (auto _ : state) {
    large.Tree->MoveLeftNode(large.Record, RecordKind);
    large.Tree->MoveRightNode(large.Record, RecordKind);
  }
}
BENCHMARK(MoveANodeLeftAndRight)->Unit(benchmark::kMillisecond);

/// At most 20 times one update.
void AddANode(benchmark::State& state) {
  Library& large = Large();
  for (auto _ : state) {
    const int id = large.Tree->AddNode(u"New", large.Folder, 0, 0, RecordKind);
    state.PauseTiming();
    large.Tree->DeleteNode(id);
    state.ResumeTiming();
  }
}
BENCHMARK(AddANode)->Unit(benchmark::kMillisecond);

/// A folder of snippet files, a hundred in each subfolder, into an empty library: linear.
void ImportAFolder(benchmark::State& state) {
  const test::TemporaryFolder folder;
  for (int at = 0; at < state.range(0); ++at) {
    folder.Write("in/" + std::to_string(at / 100) + "/" + std::to_string(at) + ".snippet",
                 "Name: record " + std::to_string(at) + "\nText:\n    x = 1\n");
  }
  for (auto _ : state) {
    state.PauseTiming();
    test::WriteEmptyDatabase(folder.Path() / "library.mdb");
    const auto tree = test::OpenTree(test::OpenDatabase(folder.Path() / "library.mdb"));
    tree->Connection()->Execute(u"PRAGMA synchronous = 0");
    state.ResumeTiming();
    benchmark::DoNotOptimize(ImportSnippets(*tree, folder.Path() / "in", TopID));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(ImportAFolder)
    ->RangeMultiplier(4)
    ->Range(1000, 64000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

/// 100,000 records of 1 KB in folders of 1,000; one in a thousand holds the word that is looked
/// for.
std::shared_ptr<CSQLTree> Records() {
  constexpr int Folders = 100, Each = 1000, Length = 1000;
  static const test::TemporaryFolder folder;
  static std::shared_ptr<CSQLTree> tree;
  if (tree) return tree;
  const auto file = folder.Path() / "records.mdb";
  test::WriteEmptyDatabase(file);
  const auto connection = test::OpenDatabase(file);
  connection->Execute(u"PRAGMA synchronous = 0");
  store::Command node(connection,
                      u"INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES (@a, @b, @c, @d, @e)");
  store::Command row(connection, u"INSERT INTO List (Id, Text) VALUES (@a, @b)");
  const StringView line = u"    Print #FileNumber, Left$(Text, Length) & vbTab & Format$(Now)\r\n";
  store::Transaction transaction(*connection);
  connection->Execute(u"UPDATE Tree SET rgt = " + vb::Str(2 * Folders * (Each + 1) + 2));
  std::int64_t id = 1, number = 1;
  for (int at = 0; at < Folders; ++at) {
    const std::int64_t left = ++number;
    node.Execute(
        {++id, u"Folder " + vb::Str(at), left, left + 2 * Each + 1, std::int64_t{FolderKind}});
    for (int record = 0; record < Each; ++record, number += 2) {
      node.Execute(
          {++id, u"Record " + vb::Str(id), number + 1, number + 2, std::int64_t{RecordKind}});
      String text = record == 0 ? u"' The needle\r\n" : u"";
      while (text.size() < Length) text += line;
      row.Execute({id, text});
    }
    ++number;
  }
  transaction.Commit();
  tree = test::OpenTree(connection);
  return tree;
}

void ReadRecordsPlainly(benchmark::State& state) {
  const auto tree = Records();
  for (auto _ : state) {
    ReadPlainly(tree->Connection()->Handle(),
                "SELECT Id, TextUserNotes, Text, TextObj, NameObj FROM List ORDER BY Id");
  }
}
BENCHMARK(ReadRecordsPlainly)->Unit(benchmark::kMillisecond);

/// At most 3 times the plain read.
void FindAWord(benchmark::State& state) {
  const auto tree = Records();
  for (auto _ : state) benchmark::DoNotOptimize(FindSnippets(*tree, {u"NEEDLE"}));
}
BENCHMARK(FindAWord)->Unit(benchmark::kMillisecond);

}  // namespace
