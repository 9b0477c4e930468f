#include "store/Connection.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "store/Engine.h"
#include "store/PlainCause.h"
#include "store/SpanCount.h"
#include "store/TextOrder.h"

namespace tessel::store {
namespace {

/// How long a lock of another process is waited for, and between two looks. The engine's own wait
/// grows to a tenth of a second, in which a busy neighbour can take each turn.
constexpr int BusyTimeoutMs = 15000, BusyLookMs = 5;

int WaitForTurn(void*, int looks) noexcept {
  if (looks >= BusyTimeoutMs / BusyLookMs) return 0;
  sqlite3_sleep(BusyLookMs);
  return 1;
}

[[noreturn]] void Fail(const std::filesystem::path& file, StringView why) {
  throw vb::Failure(StoreFailure, file.u16string() + u": " + String(why), u"Tessel.store");
}

/// A genuine Jet file says so behind its first four bytes.
bool IsJet(std::string_view head) {
  const std::string_view mark = head.substr(4);
  return mark.rfind("Standard Jet DB", 0) == 0 || mark.rfind("Standard ACE DB", 0) == 0;
}

/// Looks at the file before the engine does, so that nothing foreign is touched and the message
/// fits.
void CheckFile(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) Fail(file, u"the file does not exist");
  if (std::filesystem::is_directory(file, error)) Fail(file, u"is a folder, not a database");
  std::ifstream in(file, std::ios::binary);
  if (!in) Fail(file, u"the file cannot be read");
  std::array<char, 20> head{};
  in.read(head.data(), static_cast<std::streamsize>(head.size()));
  const std::string_view read(head.data(), static_cast<std::size_t>(in.gcount()));
  if (read.size() == head.size() && IsJet(read)) {
    Fail(
        file,
        u"is a genuine Microsoft Jet database, which isn't opened here; it was left as it is. This "
        u"command brings its content into your library:\r\ntessel snippets import \"" +
            file.u16string() + u"\"");
  }
  if (read.rfind("SQLite format 3", 0) != 0) Fail(file, u"the file is damaged or is no database");
}

}  // namespace

Connection::~Connection() { Close(); }

void Connection::Open() {
  Close();
  const std::filesystem::path file(DataSource);
  CheckFile(file);
  sqlite3* opened = nullptr;
  const std::string name = vb::ToUtf8(file.u16string());
  const int result =
      sqlite3_open_v2(name.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  db_ = opened;
  try {
    if (result != SQLITE_OK) throw engine::Error(db_, name);
    Prepare();
    // The first real look at the file: damage and locks show here and not in some later tool.
    engine::Run(db_, "SELECT count(*) FROM sqlite_master");
  } catch (const vb::Failure& failure) {
    const String plain = PlainCause(failure.Description());
    Close();
    Fail(file, plain.empty() ? failure.Description() : plain);
  }
}

void Connection::OpenMemory(std::string_view statements) {
  Close();
  constexpr int Flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(":memory:", &db_, Flags, nullptr) != SQLITE_OK) {
    throw engine::Error(db_, "in memory");
  }
  Prepare();
  engine::Run(db_, std::string(statements));
}

void Connection::Prepare() {
  sqlite3_busy_handler(db_, WaitForTurn, nullptr);
  engine::Run(db_, "PRAGMA foreign_keys = ON");
  RegisterTextOrder(db_);
  RegisterSpanCount(db_);
}

void Connection::Close() {
  if (db_ != nullptr) sqlite3_close_v2(db_);
  db_ = nullptr;
  schemaVersion_ = -1;
}

/// Read again when some writer changed the tables.
const Schema& Connection::CurrentSchema() {
  const auto asked = engine::Prepare(db_, "PRAGMA schema_version");
  const std::int64_t version =
      engine::Step(db_, asked.get()) ? sqlite3_column_int64(asked.get(), 0) : -1;
  if (version != schemaVersion_) {
    schema_ = Schema(db_);
    schemaVersion_ = version;
  }
  return schema_;
}

Translation Connection::Translate(StringView statement) {
  static_cast<void>(engine::Need(this));
  return TranslateStatement(statement, CurrentSchema());
}

void Connection::Execute(StringView statement) {
  sqlite3* const db = engine::Need(this);
  const auto prepared = engine::Prepare(db, Translate(statement).Sql);
  while (engine::Step(db, prepared.get())) {
  }
}

Transaction::Transaction(Connection& connection) : connection_(&connection) {
  sqlite3* const db = engine::Need(connection_);
  inner_ = sqlite3_get_autocommit(db) == 0;
  engine::Run(db, inner_ ? "SAVEPOINT part" : "BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (connection_ != nullptr && connection_->IsOpen()) {
    sqlite3_exec(connection_->Handle(), inner_ ? "ROLLBACK TO part; RELEASE part" : "ROLLBACK",
                 nullptr, nullptr, nullptr);
  }
}

void Transaction::Commit() {
  engine::Run(engine::Need(connection_), inner_ ? "RELEASE part" : "COMMIT");
  connection_ = nullptr;
}

}  // namespace tessel::store
