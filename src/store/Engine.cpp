#include "store/Engine.h"

#include <cstring>

namespace tessel::store::engine {
namespace {

bool IsTruthColumn(sqlite3_stmt* statement, int column) {
  const char* declared = sqlite3_column_decltype(statement, column);
  return declared != nullptr &&
         (sqlite3_stricmp(declared, "BOOLEAN") == 0 || sqlite3_stricmp(declared, "YESNO") == 0);
}

/// First byte of a lone surrogate, and how many bytes it has.
constexpr unsigned char HalfLead = 0xED;
constexpr std::size_t HalfBytes = 3;

bool IsHalf(char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }
bool IsPair(StringView text) {
  return text.size() > 1 && text[0] < 0xDC00 && text[1] >= 0xDC00 && text[1] <= 0xDFFF;
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

RowReader::RowReader(sqlite3_stmt* statement) : statement_(statement) {
  const int columns = sqlite3_column_count(statement);
  for (int column = 0; column < columns; ++column) {
    truth_.push_back(IsTruthColumn(statement, column));
  }
}

Value RowReader::Column(int column) const {
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
      return Null{};
    case SQLITE_INTEGER: {
      const std::int64_t number = sqlite3_column_int64(statement_, column);
      if (truth_[static_cast<std::size_t>(column)]) return number != 0;
      return number;
    }
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement_, column);
    default: {
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
      const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
      return bytes == nullptr ? String() : FromStored({bytes, length});
    }
  }
}

std::string ToStored(StringView text) {
  std::string bytes;
  std::size_t done = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!IsHalf(text[at])) continue;
    if (IsPair(text.substr(at))) {
      ++at;
      continue;
    }
    bytes += vb::ToUtf8(text.substr(done, at - done));
    bytes += {static_cast<char>(HalfLead), static_cast<char>(0x80U | (text[at] >> 6U & 0x3FU)),
              static_cast<char>(0x80U | (text[at] & 0x3FU))};
    done = at + 1;
  }
  return done == 0 ? vb::ToUtf8(text) : bytes + vb::ToUtf8(text.substr(done));
}

String FromStored(std::string_view bytes) {
  String text;
  std::size_t done = 0;
  for (std::size_t at = bytes.find(static_cast<char>(HalfLead)); at != std::string_view::npos;
       at = bytes.find(static_cast<char>(HalfLead), at + 1)) {
    if (bytes.size() - at < HalfBytes) break;
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    const auto third = static_cast<unsigned char>(bytes[at + 2]);
    if (second < 0xA0 || second > 0xBF || third < 0x80 || third > 0xBF) continue;
    text += vb::FromUtf8(bytes.substr(done, at - done));
    text += static_cast<char16_t>(0xD000U | (second & 0x3FU) << 6U | (third & 0x3FU));
    done = at + HalfBytes;
  }
  return done == 0 ? vb::FromUtf8(bytes) : text + vb::FromUtf8(bytes.substr(done));
}

void Bind(sqlite3* db, sqlite3_stmt* statement, int parameter, const Value& value) {
  if (std::visit(Binder{statement, parameter}, value) != SQLITE_OK) {
    throw Error(db, sqlite3_sql(statement));
  }
}

}  // namespace tessel::store::engine
