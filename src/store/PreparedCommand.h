// What a command keeps of its text, for Command and Recordset.
#pragma once

#include "store/Command.h"
#include "store/Engine.h"

namespace tessel::store {

struct Command::Prepared {
  String Text;
  store::Translation Translation;
  engine::Statement Statement;

  /// Gives the parameters their values. Fails with `StoreFailure` when the numbers differ.
  void Bind(sqlite3* db, const std::vector<Value>& values) const;
};

}  // namespace tessel::store
