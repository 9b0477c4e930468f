// The rows of a query, one after the other.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "store/Connection.h"

struct sqlite3_stmt;

namespace tessel::store {

/// Shows each row once and keeps none, so that tables of any size can be read. Other processes wait
/// with what they want to write until the last row was shown or the stream is gone.
class RowStream {
 public:
  /// Stands ahead of the first row. Fails with `StoreFailure`; also for the listing of a nested
  /// set, whose rows need each other.
  RowStream(StringView statement, const std::shared_ptr<Connection>& connection);

  /// Goes to the next row; false behind the last one. Fails with `StoreFailure`.
  [[nodiscard]] bool Next();
  /// Only while there is a row. Columns count from 0. Text and Null read as 0.
  [[nodiscard]] std::int64_t Whole(int column) const;
  /// A text as it is stored, in UTF-8, empty for any other value. Holds until the next row.
  [[nodiscard]] std::string_view StoredText(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };

  std::shared_ptr<Connection> connection_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace tessel::store
