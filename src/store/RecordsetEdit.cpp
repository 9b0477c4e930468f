// What writes: Update, AddNew, Delete.

#include <algorithm>

#include "store/RecordsetSource.h"
#include "store/StoredText.h"

namespace tessel::store {
namespace {

std::string QuotedName(const std::string& name) {
  return vb::ToUtf8(u"\"" + vb::Replace(vb::FromUtf8(name), u"\"", u"\"\"") + u"\"");
}

void AppendTo(std::string& list, const char* separator, const std::string& item) {
  if (!list.empty()) list += separator;
  list += item;
}

/// The condition that a column still has a value: any number but 0 is the truth value true.
std::string StillHas(const std::string& column, const Value& value) {
  const std::string name = QuotedName(column);
  return " AND " + (std::holds_alternative<bool>(value) ? "(" + name + " <> 0)" : name) + " IS ?";
}

}  // namespace

void Recordset::NeedTable() const {
  if (origins_.empty()) FailRecordset(StoreFailure, u"The records of this query can't be changed");
}

void Recordset::SetField(StringView name, const Value& value) {
  const std::size_t column = ColumnOf(name);
  const std::size_t row = CurrentRow();
  NeedTable();
  if (origins_[column].empty()) {
    FailRecordset(StoreFailure,
                  u"The field " + names_[column] + u" is worked out and can't be changed");
  }
  const bool known = std::any_of(pending_.begin(), pending_.end(),
                                 [&](const Pending& one) { return one.Column == column; });
  if (!known) pending_.push_back({column, CellOf(row, column)});
  cells_.Set(PlaceOf(row, column), value);
}

void Recordset::Update() {
  if (!IsPending()) return;
  Transaction transaction(*source_->From);
  if (adding_) {
    InsertRow();
  } else {
    UpdateRow();
  }
  transaction.Commit();
  pending_.clear();
  adding_ = false;
}

void Recordset::UpdateRow() {
  sqlite3* const db = source_->Db();
  const std::size_t row = CurrentRow();
  std::string set, where = " WHERE _rowid_ = ?";
  for (const Pending& one : pending_) {
    AppendTo(set, ", ", QuotedName(origins_[one.Column]) + " = ?");
    // The value that was read must still be there: that is what optimistic locking means.
    where += StillHas(origins_[one.Column], one.Before);
  }
  const auto statement =
      engine::Prepare(db, "UPDATE " + source_->Translation.Table + " SET " + set + where);
  int parameter = 1;
  for (const Pending& one : pending_) {
    engine::Bind(db, statement.get(), parameter++, CellOf(row, one.Column));
  }
  engine::Bind(db, statement.get(), parameter++, rowIds_[row]);
  for (const Pending& one : pending_) {
    engine::Bind(db, statement.get(), parameter++, one.Before);
  }
  static_cast<void>(engine::Step(db, statement.get()));
  if (sqlite3_changes(db) > 0) return;
  CancelUpdate();
  FailRecordset(StoreFailure,
                u"The record was changed or deleted by another user since it was read: " +
                    FromStored(source_->Translation.Table));
}

void Recordset::AddNew() {
  NeedTable();
  Leave();
  left_ = position_;
  shown_.push_back(rowIds_.size());
  rowIds_.push_back(0);
  deleted_.push_back(false);
  for (std::size_t column = 0; column < names_.size(); ++column) cells_.AddNull();
  position_ = shown_.size() - 1;
  before_ = gone_ = false;
  adding_ = true;
}

void Recordset::InsertRow() {
  sqlite3* const db = source_->Db();
  const std::size_t row = CurrentRow();
  std::string columns, values;
  for (const Pending& one : pending_) {
    AppendTo(columns, ", ", QuotedName(origins_[one.Column]));
    AppendTo(values, ", ", "?");
  }
  const auto statement = engine::Prepare(
      db, "INSERT INTO " + source_->Translation.Table +
              (columns.empty() ? " DEFAULT VALUES" : " (" + columns + ") VALUES (" + values + ")"));
  int parameter = 1;
  for (const Pending& one : pending_) {
    engine::Bind(db, statement.get(), parameter++, CellOf(row, one.Column));
  }
  static_cast<void>(engine::Step(db, statement.get()));
  rowIds_[row] = sqlite3_last_insert_rowid(db);
  ReadRowAgain(row);
}

/// The table may have given a new row values of its own.
void Recordset::ReadRowAgain(std::size_t row) {
  sqlite3* const db = source_->Db();
  std::string columns;
  for (const std::string& origin : origins_) {
    AppendTo(columns, ", ", origin.empty() ? "NULL" : QuotedName(origin));
  }
  const auto statement = engine::Prepare(
      db, "SELECT " + columns + " FROM " + source_->Translation.Table + " WHERE _rowid_ = ?");
  engine::Bind(db, statement.get(), 1, rowIds_[row]);
  if (!engine::Step(db, statement.get())) return;
  const engine::RowReader reader(statement.get());
  for (int column = 0; column < reader.Count(); ++column) {
    cells_.Set(PlaceOf(row, static_cast<std::size_t>(column)), reader.Column(column));
  }
}

void Recordset::CancelUpdate() {
  if (!IsPending()) return;
  const std::size_t row = CurrentRow();
  for (const Pending& one : pending_) cells_.Set(PlaceOf(row, one.Column), one.Before);
  pending_.clear();
  if (!adding_) return;
  RemoveCurrent();
  position_ = left_;
  adding_ = gone_ = false;
}

void Recordset::RemoveCurrent() {
  deleted_[shown_[position_]] = true;
  shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(position_));
  gone_ = true;
}

void Recordset::Delete() {
  NeedTable();
  const std::size_t row = CurrentRow();
  const bool unwritten = adding_;
  CancelUpdate();
  if (unwritten) return;
  sqlite3* const db = source_->Db();
  std::string where = " WHERE _rowid_ = ?";
  for (std::size_t column = 0; column < origins_.size(); ++column) {
    if (!origins_[column].empty()) where += StillHas(origins_[column], CellOf(row, column));
  }
  Transaction transaction(*source_->From);
  const auto statement = engine::Prepare(db, "DELETE FROM " + source_->Translation.Table + where);
  int parameter = 1;
  engine::Bind(db, statement.get(), parameter++, rowIds_[row]);
  for (std::size_t column = 0; column < origins_.size(); ++column) {
    if (!origins_[column].empty()) {
      engine::Bind(db, statement.get(), parameter++, CellOf(row, column));
    }
  }
  static_cast<void>(engine::Step(db, statement.get()));
  if (sqlite3_changes(db) == 0) {
    FailRecordset(StoreFailure,
                  u"The record was changed or deleted by another user since it was read: " +
                      FromStored(source_->Translation.Table));
  }
  transaction.Commit();
  RemoveCurrent();
}

}  // namespace tessel::store
