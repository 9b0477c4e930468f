// Puts the order of text behind the columns that a statement compares or sorts by.
#pragma once

#include "store/Pieces.h"
#include "store/Schema.h"

namespace tessel::store {

/// In WHERE, HAVING, ON, GROUP BY and ORDER BY each column that holds text is followed by the order
/// of text. Numbers are left alone, so that their indexes stay of use. Statements that make or
/// change tables stay as they are.
void CollateTextColumns(std::vector<Piece>& pieces, const Schema& schema);

}  // namespace tessel::store
