// An open database, shaped after ADO.
#pragma once

#include <memory>
#include <string_view>

#include "store/Statements.h"
#include "store/Value.h"
#include "vb/Failure.h"

struct sqlite3;

namespace tessel::store {

/// Number of every failure that the store raises by itself; the description says file and cause.
inline constexpr std::int32_t StoreFailure = vb::FailureNumber(0x80004005);

enum class CursorLocation { Server = 2, Client = 3 };

/// A connection to one SQLite file. Foreign keys are on; a lock of another process is waited for up
/// to 15 s. The statements of the system go through `TranslateStatement` first, and text compares
/// and sorts without regard to case. One thread at a time uses a connection and what stands on it.
class Connection {
 public:
  Connection() = default;
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Kept for callers that set it; the store has one provider.
  String Provider;
  /// Native path of the file.
  String DataSource;
  store::CursorLocation CursorLocation = store::CursorLocation::Client;

  /// Opens `DataSource`, which must exist. Fails with `StoreFailure` and a description that names
  /// the file when it is missing, unreadable, damaged, no database, or a genuine Jet file
  /// (recognised by its header, never touched).
  void Open();
  /// Opens a database in memory, made by plain statements of the engine in UTF-8. Fails with
  /// `StoreFailure`.
  void OpenMemory(std::string_view statements);
  /// No effect when it isn't open.
  void Close();
  [[nodiscard]] bool IsOpen() const { return db_ != nullptr; }

  /// Runs a statement without a result. Fails with `StoreFailure`, the engine's text and the
  /// statement.
  void Execute(StringView statement);

  /// The statement in the engine's words. Fails with 3709 when the connection isn't open.
  [[nodiscard]] Translation Translate(StringView statement);

  /// The engine's handle, for Recordset, Command and Transaction.
  [[nodiscard]] sqlite3* Handle() const { return db_; }

 private:
  void Prepare();
  [[nodiscard]] const Schema& CurrentSchema();

  sqlite3* db_ = nullptr;
  Schema schema_;
  std::int64_t schemaVersion_ = -1;
};

/// An immediate transaction: rolled back on destruction unless committed. Inside another one it is
/// a part of that, which can be rolled back by itself.
class Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit();

 private:
  Connection* connection_;
  bool inner_ = false;
};

}  // namespace tessel::store
