// How many spans cover a point, for the listings of nested sets.
#pragma once

struct sqlite3;

namespace tessel::store {

/// Makes the window function `SpanCount(lft, rgt) OVER (ORDER BY lft)` known to an open database:
/// the number of rows whose span from lft to rgt holds the lft of the present row. It takes one
/// walk over the rows, whatever numbers they hold; a row without numbers covers nothing. Fails with
/// `StoreFailure`.
void RegisterSpanCount(sqlite3* db);

}  // namespace tessel::store
