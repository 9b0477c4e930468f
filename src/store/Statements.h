// The system's statements in the words of the engine.
#pragma once

#include <optional>
#include <string>

#include "store/Schema.h"
#include "vb/Text.h"

namespace tessel::store {

struct Translation {
  /// In UTF-8.
  std::string Sql;
  /// The table, as the engine writes its name, whose rows the result shows; empty when they can't
  /// be written back. Otherwise the result has one column more than was asked for, the last: the
  /// row's number.
  std::string Table;
  /// Of the listing of a nested set: the column that the reader of the rows has to fill with the
  /// number of rows that cover each row. Till then it has the right numbers; the left ones, by
  /// which the rows are sorted, are one column more, the last. Rows that nothing covers are none.
  std::optional<std::size_t> SpanCount;
};

/// Translates what the engine reads otherwise than the statements mean it: "SELECT TOP n" (also
/// PERCENT-free DISTINCT forms), the constants Yes, No, True, False, On, Off outside names,
/// "DELETE Table.Column FROM Table" and "DELETE * FROM", "UPDATE t SET t.c =", text in double
/// quotes, names in square brackets, `&` between texts. Texts compare and sort without regard to
/// case, and rows of one table come in the order of their entry. The table of cases stands in the
/// tests.
[[nodiscard]] Translation TranslateStatement(StringView statement, const Schema& schema);

}  // namespace tessel::store
