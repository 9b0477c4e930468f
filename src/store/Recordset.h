// The rows of a query, shaped after ADO: a static cursor with optimistic locking.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "store/Connection.h"

namespace tessel::store {

/// Holds a copy of all rows. Changed fields of the current row are pending until `Update` or until
/// the row is left; `Update` writes them to the row's table, and fails when another writer has
/// changed or deleted that row since it was read. Only a query over one table can be updated.
class Recordset {
 public:
  Recordset() = default;
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// Runs the statement and stands on the first row. Fails with `StoreFailure`.
  void Open(StringView statement, const std::shared_ptr<Connection>& connection);
  /// Drops rows and pending changes. No effect when it isn't open.
  void Close();
  [[nodiscard]] bool IsOpen() const { return open_; }

  [[nodiscard]] std::size_t RecordCount() const { return rows_.size(); }
  [[nodiscard]] bool Eof() const { return position_ >= rows_.size(); }
  void MoveFirst();
  void MoveNext();
  /// Makes row `index` (from 0) current, writing pending changes of the row that is left.
  void MoveTo(std::size_t index);
  [[nodiscard]] std::size_t Position() const { return position_; }

  [[nodiscard]] const std::vector<String>& FieldNames() const { return names_; }
  /// Field of the current row, by name without regard to case. Fails with 3265 (no such field) or
  /// 3021 (no current row).
  [[nodiscard]] const Value& Field(StringView name) const;
  /// Field `column` (from 0) of row `row`, pending changes included.
  [[nodiscard]] const Value& Cell(std::size_t row, std::size_t column) const;
  void SetField(StringView name, Value value);
  [[nodiscard]] bool IsPending() const { return !pending_.empty(); }
  /// Writes the pending changes of the current row.
  void Update();

 private:
  struct Pending {
    std::size_t Column;
    Value Before;
  };
  [[nodiscard]] std::size_t ColumnOf(StringView name) const;
  void FindTable(const std::string& sql);
  void ReadRowIds();

  bool open_ = false;
  std::shared_ptr<Connection> connection_;
  std::string tail_;   // "FROM table ..." of a query over one table
  std::string table_;  // empty for any other query
  std::vector<String> names_;
  std::vector<std::vector<Value>> rows_;
  std::vector<std::int64_t> rowIds_;
  std::vector<Pending> pending_;
  std::size_t position_ = 0;
};

}  // namespace tessel::store
