// Empty snippet databases for tests, and what stands in them.
#pragma once

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "snippets/CSQLTree.h"
#include "store/Seeds.h"
#include "support/TemporaryFolder.h"

namespace tessel::test {

/// Writes an empty snippet database.
inline void WriteEmptyDatabase(const std::filesystem::path& file) {
  const auto bytes = store::EmptySnippetDatabase();
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

inline std::shared_ptr<store::Connection> OpenDatabase(const std::filesystem::path& file) {
  auto connection = std::make_shared<store::Connection>();
  connection->DataSource = file.u16string();
  connection->Open();
  return connection;
}

/// Another process that reads a library for as long as it lives: what is changed meanwhile can't be
/// committed. `waiting` gives up at once then.
class Reader {
 public:
  explicit Reader(store::Connection& waiting)
      : connection_(OpenDatabase(std::filesystem::path(waiting.DataSource))) {
    waiting.Execute(u"PRAGMA busy_timeout = 1");
    connection_->Execute(u"BEGIN");
    rows_.Open(u"SELECT ID FROM Tree", connection_);
  }

 private:
  std::shared_ptr<store::Connection> connection_;
  store::Recordset rows_;
};

inline std::shared_ptr<CSQLTree> OpenTree(const std::shared_ptr<store::Connection>& connection) {
  auto tree = std::make_shared<CSQLTree>();
  tree->SetConnection(connection);
  tree->SetTableName(u"Tree");
  return tree;
}

/// A row of Tree.
struct TreeRow {
  int ID, Lft, Rgt, Root;
  String Name;
  bool operator==(const TreeRow&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const TreeRow& row) {
    return out << row.ID << " '" << vb::ToUtf8(row.Name) << "' " << row.Lft << "-" << row.Rgt << " "
               << row.Root;
  }
};

inline std::vector<TreeRow> RowsOf(const std::shared_ptr<store::Connection>& connection) {
  store::Recordset records;
  records.Open(u"SELECT ID, lft, rgt, Root, Name FROM Tree ORDER BY lft", connection);
  std::vector<TreeRow> rows;
  for (std::size_t row = 0; row < records.RecordCount(); ++row) {
    const auto number = [&](std::size_t column) {
      return static_cast<int>(store::ToLong(records.Cell(row, column)));
    };
    rows.push_back(
        {number(0), number(1), number(2), number(3), store::ToText(records.Cell(row, 4))});
  }
  return rows;
}

/// Numbers of the rows of List.
inline std::vector<int> ListIdsOf(const std::shared_ptr<store::Connection>& connection) {
  store::Recordset records;
  records.Open(u"SELECT Id FROM List ORDER BY Id", connection);
  std::vector<int> ids;
  for (std::size_t row = 0; row < records.RecordCount(); ++row) {
    ids.push_back(store::ToLong(records.Cell(row, 0)));
  }
  return ids;
}

/// What is wrong with the numbers of a tree, in the order of its left numbers; empty when sound.
inline std::string Unsound(const std::vector<TreeRow>& rows) {
  std::vector<bool> used(rows.size() * 2 + 1);
  std::vector<const TreeRow*> open;
  for (const TreeRow& row : rows) {
    for (const int number : {row.Lft, row.Rgt}) {
      if (number < 1 || number >= static_cast<int>(used.size())) return "a number out of bounds";
      if (used[static_cast<std::size_t>(number)]) return "a number that is used twice";
      used[static_cast<std::size_t>(number)] = true;
    }
    if (row.Lft >= row.Rgt) return "a span without width";
    while (!open.empty() && open.back()->Rgt < row.Lft) open.pop_back();
    if (open.empty() != (row.ID == 1)) return "a node outside the top";
    if (!open.empty() && row.Rgt > open.back()->Rgt) return "spans that cross";
    if (!open.empty() && open.back()->Root != 1) return "a record with nodes below it";
    open.push_back(&row);
  }
  return {};
}

}  // namespace tessel::test
