#include "store/Engine.h"

#include <algorithm>
#include <iterator>

#include "store/StoredText.h"

namespace tessel::store::engine {
namespace {

bool IsTruthColumn(sqlite3_stmt* statement, int column) {
  const char* declared = sqlite3_column_decltype(statement, column);
  return declared != nullptr &&
         (sqlite3_stricmp(declared, "BOOLEAN") == 0 || sqlite3_stricmp(declared, "YESNO") == 0);
}

struct Binder {
  sqlite3_stmt* Statement;
  int Parameter;

  int operator()(Null) const { return sqlite3_bind_null(Statement, Parameter); }
  int operator()(bool value) const { return sqlite3_bind_int(Statement, Parameter, value ? 1 : 0); }
  int operator()(std::int64_t value) const {
    return sqlite3_bind_int64(Statement, Parameter, value);
  }
  int operator()(double value) const { return sqlite3_bind_double(Statement, Parameter, value); }
  int operator()(const String& value) const {
    const std::string bytes = ToStored(value);
    return sqlite3_bind_text(Statement, Parameter, bytes.data(), static_cast<int>(bytes.size()),
                             SQLITE_TRANSIENT);
  }
};

/// Failures of the file, whatever was to be done with it.
bool IsOfTheFile(int code) {
  constexpr int Codes[] = {SQLITE_BUSY,    SQLITE_LOCKED, SQLITE_FULL, SQLITE_READONLY,
                           SQLITE_CORRUPT, SQLITE_NOTADB, SQLITE_IOERR};
  return std::find(std::begin(Codes), std::end(Codes), code & 0xFF) != std::end(Codes);
}

}  // namespace

vb::Failure Error(sqlite3* db, const std::string& what) {
  const bool ofFile = IsOfTheFile(sqlite3_errcode(db));
  const char* const file = ofFile ? sqlite3_db_filename(db, "main") : nullptr;
  const bool named = file != nullptr && *file != '\0';
  return {StoreFailure,
          vb::FromUtf8(std::string(sqlite3_errmsg(db)) + ": " + (named ? file : what)),
          u"Tessel.store"};
}

sqlite3* Need(const Connection* connection) {
  if (connection == nullptr || !connection->IsOpen()) {
    throw vb::Failure(3709, u"The connection is closed", u"Tessel.store");
  }
  return connection->Handle();
}

Statement Prepare(sqlite3* db, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr) !=
      SQLITE_OK) {
    throw Error(db, sql);
  }
  if (statement == nullptr) {
    throw vb::Failure(StoreFailure, u"The statement is empty", u"Tessel.store");
  }
  return Statement(statement);
}

bool Step(sqlite3* db, sqlite3_stmt* statement) {
  switch (sqlite3_step(statement)) {
    case SQLITE_ROW:
      return true;
    case SQLITE_DONE:
      return false;
    default:
      throw Error(db, sqlite3_sql(statement));
  }
}

void Run(sqlite3* db, const std::string& sql) {
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) throw Error(db, sql);
}

std::string_view TextOf(sqlite3_value* value) {
  // As text the engine gives what a database in UTF-16 holds in UTF-8; in one of UTF-8 it copies
  // nothing. A blob as text would be read in the database's own way.
  const void* const bytes = sqlite3_value_type(value) == SQLITE_BLOB ? sqlite3_value_blob(value)
                                                                     : sqlite3_value_text(value);
  if (bytes == nullptr) return {};
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

RowReader::RowReader(sqlite3_stmt* statement) : statement_(statement) {
  const int columns = sqlite3_column_count(statement);
  for (int column = 0; column < columns; ++column) {
    truth_.push_back(IsTruthColumn(statement, column));
  }
}

Value RowReader::Column(int column) const {
  CellTable cells;
  Add(cells, column);
  return cells.At(0);
}

void RowReader::AddTo(CellTable& cells, int columns) const {
  for (int column = 0; column < columns; ++column) Add(cells, column);
}

/// One look-up of the cell answers all that is asked about it.
void RowReader::Add(CellTable& cells, int column) const {
  sqlite3_value* const value = sqlite3_column_value(statement_, column);
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return cells.AddNull();
    case SQLITE_INTEGER: {
      const std::int64_t number = sqlite3_value_int64(value);
      if (truth_[static_cast<std::size_t>(column)]) return cells.AddTruth(number != 0);
      return cells.AddWhole(number);
    }
    case SQLITE_FLOAT:
      return cells.AddNumber(sqlite3_value_double(value));
    default:
      return cells.AddText(TextOf(value));
  }
}

void Bind(sqlite3* db, sqlite3_stmt* statement, int parameter, const Value& value) {
  if (std::visit(Binder{statement, parameter}, value) != SQLITE_OK) {
    throw Error(db, sqlite3_sql(statement));
  }
}

}  // namespace tessel::store::engine
