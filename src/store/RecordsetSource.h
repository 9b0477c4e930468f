// Where the rows of a recordset come from, for its own files.
#pragma once

#include "store/Engine.h"
#include "store/Recordset.h"

namespace tessel::store {

inline constexpr std::int32_t NoSuchField = 3265, NoCurrentRow = 3021;

struct Recordset::Source {
  std::shared_ptr<Connection> From;
  store::Translation Translation;
  std::vector<Value> Values;

  [[nodiscard]] sqlite3* Db() const { return engine::Need(From.get()); }
};

[[noreturn]] inline void FailRecordset(std::int32_t number, String text) {
  throw vb::Failure(number, std::move(text), u"Tessel.store");
}

}  // namespace tessel::store
