#include "store/Recordset.h"

#include <algorithm>
#include <string_view>

#include "store/Engine.h"
#include "store/Statements.h"

namespace tessel::store {
namespace {

[[noreturn]] void Fail(std::int32_t number, String text) {
  throw vb::Failure(number, std::move(text), u"Tessel.store");
}

constexpr std::int32_t NoSuchField = 3265, NoCurrentRow = 3021;

std::string QuotedName(const String& name) {
  return "\"" + vb::ToUtf8(vb::Replace(name, u"\"", u"\"\"")) + "\"";
}

/// Keeps what is read in one state of the database.
class Snapshot {
 public:
  explicit Snapshot(sqlite3* db) : db_(db) { engine::Run(db_, "SAVEPOINT reading"); }
  ~Snapshot() { sqlite3_exec(db_, "RELEASE reading", nullptr, nullptr, nullptr); }
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

 private:
  sqlite3* db_;
};

}  // namespace

Recordset::~Recordset() = default;

void Recordset::Open(StringView statement, const std::shared_ptr<Connection>& connection) {
  Close();
  sqlite3* const db = engine::Need(connection.get());
  const Snapshot snapshot(db);
  const std::string sql = TranslateStatement(statement);
  const auto prepared = engine::Prepare(db, sql);
  const int columns = sqlite3_column_count(prepared.get());
  for (int column = 0; column < columns; ++column) {
    names_.push_back(vb::FromUtf8(sqlite3_column_name(prepared.get(), column)));
  }
  while (engine::Step(db, prepared.get())) {
    std::vector<Value>& row = rows_.emplace_back();
    for (int column = 0; column < columns; ++column) {
      row.push_back(engine::Column(prepared.get(), column));
    }
  }
  connection_ = connection;
  open_ = true;
  FindTable(sql);
  if (!table_.empty()) ReadRowIds();
}

void Recordset::Close() {
  open_ = false;
  connection_.reset();
  tail_.clear();
  table_.clear();
  names_.clear();
  rows_.clear();
  rowIds_.clear();
  pending_.clear();
  position_ = 0;
}

/// Rows can be written back when they come from one table, unjoined and ungrouped.
void Recordset::FindTable(const std::string& sql) {
  std::string upper = sql;
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char unit) {
    return unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - 32) : unit == '\n' ? ' ' : unit;
  });
  for (const char* other : {" JOIN ", " DISTINCT ", " GROUP BY ", " UNION ", " LIMIT ", "COUNT("}) {
    if (upper.find(other) != std::string::npos) return;
  }
  constexpr std::string_view From = " FROM ";
  const std::size_t from = upper.find(From);
  if (from == std::string::npos || upper.find(From, from + 1) != std::string::npos) return;
  const std::size_t start = upper.find_first_not_of(' ', from + From.size());
  if (start == std::string::npos) return;
  const std::size_t end = std::min(upper.size(), upper.find_first_of(" ;", start));
  const std::string behind =
      upper.substr(std::min(upper.size(), upper.find_first_not_of(' ', end)));
  const bool plain = behind.empty() || behind.rfind("WHERE ", 0) == 0 ||
                     behind.rfind("ORDER ", 0) == 0 || behind.front() == ';';
  if (!plain || upper.substr(start, end - start).find(',') != std::string::npos) return;
  table_ = sql.substr(start, end - start);
  tail_ = sql.substr(from);
}

/// The row numbers, in the order of the rows.
void Recordset::ReadRowIds() {
  if (!rowIds_.empty()) return;
  sqlite3* const db = engine::Need(connection_.get());
  const auto prepared = engine::Prepare(db, "SELECT rowid" + tail_);
  while (engine::Step(db, prepared.get())) {
    rowIds_.push_back(sqlite3_column_int64(prepared.get(), 0));
  }
}

void Recordset::MoveFirst() { MoveTo(0); }

void Recordset::MoveNext() { MoveTo(position_ + 1); }

void Recordset::MoveTo(std::size_t index) {
  if (index == position_) return;
  if (IsPending()) Update();
  position_ = std::min(index, rows_.size());
}

std::size_t Recordset::ColumnOf(StringView name) const {
  const auto found = std::find_if(names_.begin(), names_.end(),
                                  [&](const String& one) { return vb::SameText(one, name); });
  if (found == names_.end()) Fail(NoSuchField, u"There is no field " + String(name));
  return static_cast<std::size_t>(found - names_.begin());
}

const Value& Recordset::Field(StringView name) const {
  const std::size_t column = ColumnOf(name);
  if (Eof()) Fail(NoCurrentRow, u"There is no current record");
  return rows_[position_][column];
}

const Value& Recordset::Cell(std::size_t row, std::size_t column) const {
  if (row >= rows_.size() || column >= names_.size()) {
    Fail(NoCurrentRow, u"There is no such record or field");
  }
  return rows_[row][column];
}

void Recordset::SetField(StringView name, Value value) {
  const std::size_t column = ColumnOf(name);
  if (Eof()) Fail(NoCurrentRow, u"There is no current record");
  if (table_.empty()) Fail(StoreFailure, u"The records of this query can't be changed");
  Value& cell = rows_[position_][column];
  const bool known = std::any_of(pending_.begin(), pending_.end(),
                                 [&](const Pending& one) { return one.Column == column; });
  if (!known) pending_.push_back({column, cell});
  cell = std::move(value);
}

void Recordset::Update() {
  if (pending_.empty()) return;
  sqlite3* const db = engine::Need(connection_.get());
  std::string set, where = " WHERE rowid = ?";
  for (const Pending& one : pending_) {
    const std::string name = QuotedName(names_[one.Column]);
    set += (set.empty() ? "" : ", ") + name + " = ?";
    // The value that was read must still be there: that is what optimistic locking means.
    where += " AND " + name + " IS ?";
  }
  Transaction transaction(*connection_);
  const auto statement = engine::Prepare(db, "UPDATE " + table_ + " SET " + set + where);
  int parameter = 1;
  for (const Pending& one : pending_) {
    engine::Bind(db, statement.get(), parameter++, rows_[position_][one.Column]);
  }
  engine::Bind(db, statement.get(), parameter++,
               position_ < rowIds_.size() ? Value(rowIds_[position_]) : Value(Null{}));
  for (const Pending& one : pending_) {
    engine::Bind(db, statement.get(), parameter++, one.Before);
  }
  while (engine::Step(db, statement.get())) {
  }
  const int changed = sqlite3_changes(db);
  if (changed == 0) {
    for (const Pending& one : pending_) rows_[position_][one.Column] = one.Before;
    pending_.clear();
    Fail(StoreFailure, u"The record was changed or deleted by another user since it was read: " +
                           vb::FromUtf8(table_));
  }
  transaction.Commit();
  pending_.clear();
}

}  // namespace tessel::store
