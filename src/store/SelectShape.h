// The parts of a plain SELECT, found in its pieces.
#pragma once

#include <optional>

#include "store/Pieces.h"

namespace tessel::store {

/// A SELECT whose rows are rows of one table: unjoined, ungrouped, no union, no aggregate, not
/// distinct.
struct SelectShape {
  /// Index of FROM, and of what stands behind the last clause that may precede LIMIT.
  std::size_t From = 0, End = 0;
  /// The table as written in the statement, and the name that its columns go by.
  Piece Table, Alias;
  bool Ordered = false;
  /// Only a few of the rows are wanted.
  bool Limited = false;
};

/// Nothing for any other statement.
[[nodiscard]] std::optional<SelectShape> ShapeOf(const std::vector<Piece>& pieces);

}  // namespace tessel::store
