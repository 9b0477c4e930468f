// The test that Find and Filter apply to the rows of a recordset.
#pragma once

#include <functional>
#include <vector>

#include "store/Value.h"

namespace tessel::store {

/// Comparisons "field operator value" joined by AND and OR (AND binds first). A field may stand in
/// square brackets; a value is a number, a text in quotes or NULL; the operators are =, <>, <, <=,
/// >, >= and LIKE with "*" or "%" at either end. Texts compare without regard to case.
class Criterion {
 public:
  /// Answers the column of a field and fails when there is none.
  using ColumnOf = std::function<std::size_t(StringView)>;

  /// Fails with `StoreFailure` and the text when it can't be read.
  Criterion(StringView text, const ColumnOf& columnOf);

  /// `cellOf` answers the cell of a column.
  [[nodiscard]] bool Fits(const std::function<Value(std::size_t)>& cellOf) const;

 private:
  enum class Operator { Equal, Unequal, Less, LessEqual, Greater, GreaterEqual, Like };
  struct Comparison {
    std::size_t Column;
    Operator Test;
    Value Wanted;
  };
  class Parser;

  [[nodiscard]] static bool Compare(const Comparison& one, const Value& cell);

  /// Any of these holds when all of its comparisons hold.
  std::vector<std::vector<Comparison>> any_;
};

}  // namespace tessel::store
