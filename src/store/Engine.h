// The engine's statements, for the store's own use.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/CellTable.h"
#include "store/Connection.h"

namespace tessel::store::engine {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

/// The failure for the engine's present error: with the file where that can't be used as it should,
/// else with what was being done.
[[nodiscard]] vb::Failure Error(sqlite3* db, const std::string& what);
/// Fails when the connection isn't open.
[[nodiscard]] sqlite3* Need(const Connection* connection);
[[nodiscard]] Statement Prepare(sqlite3* db, const std::string& sql);
/// True while there is a row.
[[nodiscard]] bool Step(sqlite3* db, sqlite3_stmt* statement);
/// Runs plain statements of the engine.
void Run(sqlite3* db, const std::string& sql);

/// The bytes of a text in UTF-8, whatever the database writes its texts in; of a blob as they are.
/// Points into the value.
[[nodiscard]] std::string_view TextOf(sqlite3_value* value);

/// Reads the columns of a statement's present row; whole numbers of columns declared as truth
/// values become bool.
class RowReader {
 public:
  explicit RowReader(sqlite3_stmt* statement);
  [[nodiscard]] int Count() const { return static_cast<int>(truth_.size()); }
  [[nodiscard]] Value Column(int column) const;
  /// Adds the first `columns` cells of the row.
  void AddTo(CellTable& cells, int columns) const;

 private:
  void Add(CellTable& cells, int column) const;

  sqlite3_stmt* statement_;
  std::vector<bool> truth_;
};

/// Makes a statement ready for its next run when the scope ends, so that it holds no lock.
class Resetting {
 public:
  explicit Resetting(sqlite3_stmt* statement) : statement_(statement) {}
  ~Resetting() { sqlite3_reset(statement_); }
  Resetting(const Resetting&) = delete;
  Resetting& operator=(const Resetting&) = delete;

 private:
  sqlite3_stmt* statement_;
};

/// Binds a parameter, counted from 1.
void Bind(sqlite3* db, sqlite3_stmt* statement, int parameter, const Value& value);

}  // namespace tessel::store::engine
