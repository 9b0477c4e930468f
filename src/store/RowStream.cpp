#include "store/RowStream.h"

#include "store/Engine.h"

namespace tessel::store {

void RowStream::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

RowStream::RowStream(StringView statement, const std::shared_ptr<Connection>& connection)
    : connection_(connection) {
  sqlite3* const db = engine::Need(connection_.get());
  const Translation translation = connection_->Translate(statement);
  if (translation.SpanCount) {
    throw vb::Failure(StoreFailure, u"The rows of a listing can't be read one by one",
                      u"Tessel.store");
  }
  statement_.reset(engine::Prepare(db, translation.Sql).release());
}

bool RowStream::Next() {
  if (!statement_) return false;
  if (engine::Step(engine::Need(connection_.get()), statement_.get())) return true;
  // A further step would begin anew.
  statement_.reset();
  return false;
}

std::int64_t RowStream::Whole(int column) const {
  const bool whole = sqlite3_column_type(statement_.get(), column) == SQLITE_INTEGER;
  return whole ? sqlite3_column_int64(statement_.get(), column) : 0;
}

std::string_view RowStream::StoredText(int column) const {
  sqlite3_value* const value = sqlite3_column_value(statement_.get(), column);
  const int type = sqlite3_value_type(value);
  if (type != SQLITE_TEXT && type != SQLITE_BLOB) return {};
  return engine::TextOf(value);
}

}  // namespace tessel::store
