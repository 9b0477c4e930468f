#include "store/Engine.h"

#include <cstring>

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
    const std::string bytes = vb::ToUtf8(value);
    return sqlite3_bind_text(Statement, Parameter, bytes.data(), static_cast<int>(bytes.size()),
                             SQLITE_TRANSIENT);
  }
};

}  // namespace

vb::Failure Error(sqlite3* db, const std::string& what) {
  return {StoreFailure, vb::FromUtf8(std::string(sqlite3_errmsg(db)) + ": " + what),
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

Value Column(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return Null{};
    case SQLITE_INTEGER: {
      const std::int64_t number = sqlite3_column_int64(statement, column);
      if (IsTruthColumn(statement, column)) return number != 0;
      return number;
    }
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    default: {
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
      const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      return bytes == nullptr ? String() : vb::FromUtf8({bytes, length});
    }
  }
}

void Bind(sqlite3* db, sqlite3_stmt* statement, int parameter, const Value& value) {
  if (std::visit(Binder{statement, parameter}, value) != SQLITE_OK) {
    throw Error(db, sqlite3_sql(statement));
  }
}

}  // namespace tessel::store::engine
