// The engine's statements, for the store's own use.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "store/Connection.h"

namespace tessel::store::engine {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

/// The failure for the engine's present error, with what was being done.
[[nodiscard]] vb::Failure Error(sqlite3* db, const std::string& what);
/// Fails when the connection isn't open.
[[nodiscard]] sqlite3* Need(const Connection* connection);
[[nodiscard]] Statement Prepare(sqlite3* db, const std::string& sql);
/// True while there is a row.
[[nodiscard]] bool Step(sqlite3* db, sqlite3_stmt* statement);
/// Runs plain statements of the engine.
void Run(sqlite3* db, const std::string& sql);

/// A column of the present row; whole numbers of columns declared as truth values become bool.
[[nodiscard]] Value Column(sqlite3_stmt* statement, int column);
/// Binds a parameter, counted from 1.
void Bind(sqlite3* db, sqlite3_stmt* statement, int parameter, const Value& value);

}  // namespace tessel::store::engine
