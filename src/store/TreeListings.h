// The listings of nested sets in a form whose work grows with the rows and not with their square.
#pragma once

#include <optional>

#include "store/Pieces.h"

namespace tessel::store {

/// Puts another statement with the same rows in the same order in the place of a listing that joins
/// a tree with itself to count what covers each node. The callers' statements stay as they are
/// known; any other statement stays as it is. Where the covering is left to the reader of the rows,
/// answers the column for it, as `Translation::SpanCount` has it.
std::optional<std::size_t> ReplaceTreeListing(std::vector<Piece>& pieces);

}  // namespace tessel::store
