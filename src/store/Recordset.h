// The rows of a query, shaped after ADO: a static cursor on the client's side with optimistic
// locking.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "store/CellTable.h"
#include "store/Command.h"

namespace tessel::store {

/// Holds a copy of all rows, sixteen bytes for each field and the texts as they are stored. Changed
/// fields of the current row are pending until `Update` or until the row is left; `Update` writes
/// them to the row's table, and fails when another writer has changed or deleted that row since it
/// was read. A query over one table can be updated, unless it is distinct, grouped, limited, a
/// union or has aggregates.
///
/// The current row can be missing: at both ends, and where it was deleted. Reading or changing
/// fails with 3021 then.
class Recordset {
 public:
  /// A place in an open recordset; it outlives Filter, Delete and AddNew, but not Open and Requery.
  struct Bookmark {
    std::size_t Row = 0;
    int Opening = 0;
    bool operator==(const Bookmark&) const = default;
  };

  Recordset();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  /// Runs the statement and stands on the first row. Fails with `StoreFailure`.
  void Open(StringView statement, const std::shared_ptr<Connection>& connection);
  /// Runs a command that gives rows, with its values in the order of its parameters.
  void Open(Command& command, const std::vector<Value>& values);
  /// Runs the same statement with the same values again and stands on the first row; a filter stays
  /// in force, pending changes are dropped.
  void Requery();
  /// Drops rows and pending changes. No effect when it isn't open.
  void Close();
  [[nodiscard]] bool IsOpen() const { return open_; }

  /// Rows that the filter lets through.
  [[nodiscard]] std::size_t RecordCount() const { return shown_.size(); }
  [[nodiscard]] bool Bof() const { return shown_.empty() || before_; }
  [[nodiscard]] bool Eof() const { return !before_ && position_ >= shown_.size(); }
  /// Each of these writes pending changes of the row that is left. On an empty recordset MoveFirst
  /// and MoveLast fail with 3021, and so does a move beyond either end.
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  /// Makes row `index` (from 0) current.
  void MoveTo(std::size_t index);
  [[nodiscard]] std::size_t Position() const { return position_; }
  [[nodiscard]] Bookmark Mark() const;
  /// Fails with 3021 when the row is gone or hidden by the filter.
  void MoveTo(const Bookmark& bookmark);

  /// Goes to the first row that fits `criterion`, `skip` rows on from the current one, or to the
  /// end in that direction.
  void Find(StringView criterion, std::size_t skip = 0, bool forward = true);
  /// Hides the rows that don't fit, and stands on the first that does; empty text shows all again.
  void SetFilter(StringView criterion);
  [[nodiscard]] const String& Filter() const { return filter_; }

  [[nodiscard]] const std::vector<String>& FieldNames() const { return names_; }
  /// Field of the current row, by name without regard to case. Fails with 3265 (no such field) or
  /// 3021 (no current row).
  [[nodiscard]] Value Field(StringView name) const;
  /// Field `column` (from 0) of row `row`, pending changes included.
  [[nodiscard]] Value Cell(std::size_t row, std::size_t column) const;
  /// The same for a text, as it is stored; empty for any other value. Holds until the recordset
  /// changes.
  [[nodiscard]] std::string_view StoredText(std::size_t row, std::size_t column) const;
  void SetField(StringView name, const Value& value);
  [[nodiscard]] bool IsPending() const { return adding_ || !pending_.empty(); }
  /// Writes the pending changes of the current row. A new row then has its number and the table's
  /// own values.
  void Update();
  /// Drops them; a new row is gone, and the row that was current ahead of `AddNew` is so again.
  void CancelUpdate();
  /// Adds an empty row at the end and makes it current; it is pending until `Update`.
  void AddNew();
  /// Deletes the current row; no row is current until the next move. Fails with `StoreFailure` when
  /// another writer changed or deleted it.
  void Delete();

 private:
  struct Pending {
    std::size_t Column;
    Value Before;
  };
  struct Source;

  void Load(std::unique_ptr<Source> source, sqlite3_stmt* statement);
  void Clear();
  void ReadColumns(sqlite3_stmt* statement);
  void CountSpans(std::size_t column);
  void ShowRows();
  [[nodiscard]] std::size_t ColumnOf(StringView name) const;
  [[nodiscard]] std::size_t CurrentRow() const;
  [[nodiscard]] std::size_t PlaceOf(std::size_t row, std::size_t column) const {
    return row * names_.size() + column;
  }
  [[nodiscard]] std::size_t ShownPlace(std::size_t row, std::size_t column) const;
  [[nodiscard]] Value CellOf(std::size_t row, std::size_t column) const {
    return cells_.At(PlaceOf(row, column));
  }
  void Leave();
  void NeedTable() const;
  void UpdateRow();
  void InsertRow();
  void ReadRowAgain(std::size_t row);
  void RemoveCurrent();

  bool open_ = false;
  int opening_ = 0;
  std::unique_ptr<Source> source_;
  std::vector<String> names_;
  /// The columns' names in their table; empty for a column that is worked out.
  std::vector<std::string> origins_;
  /// All rows one behind the other; deleted ones keep their place.
  CellTable cells_;
  std::vector<std::int64_t> rowIds_;
  std::vector<bool> deleted_;
  /// Rows that the filter lets through.
  std::vector<std::size_t> shown_;
  String filter_;
  std::vector<Pending> pending_;
  std::size_t position_ = 0;
  /// Where AddNew was called.
  std::size_t left_ = 0;
  bool before_ = false, gone_ = false, adding_ = false;
};

}  // namespace tessel::store
