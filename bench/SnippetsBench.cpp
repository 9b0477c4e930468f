// A snippet tree of 100,000 nodes in five levels: what the dialogs' operations cost beside the
// plainest statement of the same file.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "snippets/CSQLTree.h"
#include "snippets/SnippetDatabase.h"
#include "snippets/SnippetSearch.h"

namespace {

using namespace tessel;

constexpr int Nodes = 100000, Levels = 5, Fan = 10;

/// The database, made once: four levels of folders with ten children each, then records.
class Library {
 public:
  Library() {
    const auto file = folder_.Path() / "large.mdb";
    test::WriteEmptyDatabase(file);
    Connection = test::OpenDatabase(file);
    Connection->Execute(u"PRAGMA synchronous = 0");
    insert_.ActiveConnection = list_.ActiveConnection = Connection;
    Connection->Execute(u"DELETE FROM Tree");
    store::Transaction transaction(*Connection);
    Add(1);
    transaction.Commit();
    Tree = test::OpenTree(Connection);
  }
  std::shared_ptr<store::Connection> Connection;
  std::shared_ptr<CSQLTree> Tree;
  /// Somewhere in the front of the tree.
  int Record = 0, Folder = 0;

 private:
  void Add(int level) {
    const int id = ++count_;
    const bool record = level > Levels;
    if (record && Record == 0) Record = id;
    if (level == 4 && Folder == 0) Folder = id;
    const int left = ++number_;
    // The last level fills the tree up to its size.
    const int children = record ? 0 : level < Levels ? Fan : Nodes / 10000 - 1;
    for (int at = 0; at < children && count_ < Nodes; ++at) Add(level + 1);
    insert_.Execute({std::int64_t{id}, String(u"Node ") + vb::Str(id), std::int64_t{left},
                     std::int64_t{++number_}, std::int64_t{record ? RecordKind : FolderKind}});
    if (record) list_.Execute({std::int64_t{id}, String(1000, u'x')});
  }

  test::TemporaryFolder folder_;
  int count_ = 0, number_ = 0;
  store::Command insert_{
      nullptr, u"INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES (@a, @b, @c, @d, @e)"};
  store::Command list_{nullptr, u"INSERT INTO List (Id, Text) VALUES (@a, @b)"};
};

Library& Large() {
  static Library library;
  return library;
}

/// What everything else is measured by.
void ReadTreePlainly(benchmark::State& state) {
  for (auto _ : state) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(Large().Connection->Handle(),
                       "SELECT ID, Name, lft, rgt FROM Tree ORDER BY lft", -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      benchmark::DoNotOptimize(sqlite3_column_int64(statement, 0));
      benchmark::DoNotOptimize(sqlite3_column_text(statement, 1));
      benchmark::DoNotOptimize(sqlite3_column_int64(statement, 2));
      benchmark::DoNotOptimize(sqlite3_column_int64(statement, 3));
    }
    sqlite3_finalize(statement);
  }
}
BENCHMARK(ReadTreePlainly)->Unit(benchmark::kMillisecond);

/// As a dialog does: the recordset of the tree, then its listing. At most 6 times the plain read.
void LoadTree(benchmark::State& state) {
  for (auto _ : state) {
    const auto tree = test::OpenTree(Large().Connection);
    benchmark::DoNotOptimize(tree->GetNodesAndList());
  }
}
BENCHMARK(LoadTree)->Unit(benchmark::kMillisecond);

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
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(tree->Connection()->Handle(),
                       "SELECT Id, TextUserNotes, Text, TextObj, NameObj FROM List ORDER BY Id", -1,
                       &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      benchmark::DoNotOptimize(sqlite3_column_int64(statement, 0));
      for (const int column : {1, 2, 3, 4}) {
        benchmark::DoNotOptimize(sqlite3_column_text16(statement, column));
      }
    }
    sqlite3_finalize(statement);
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
