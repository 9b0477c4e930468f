// What the translation of statements has to know of a database's tables.
#pragma once

#include <set>

#include "vb/Text.h"

struct sqlite3;

namespace tessel::store {

/// Names of columns that hold text and of tables whose rows have numbers of their own. Without a
/// database both are empty, and statements keep the engine's own order and comparison.
class Schema {
 public:
  Schema() = default;
  /// Reads the tables of an open database. Fails with `StoreFailure`.
  explicit Schema(sqlite3* db);

  /// True when a column of that name holds text in any table.
  [[nodiscard]] bool IsText(StringView column) const;
  [[nodiscard]] bool HasRowNumbers(StringView table) const;

 private:
  std::set<String> textColumns_, tables_;
};

}  // namespace tessel::store
