// Comparison and order of text in the databases: without regard to case.
#pragma once

#include <string_view>

struct sqlite3;

namespace tessel::store {

/// Name of the order in statements. No database file names it, so that files stay readable for
/// any other program.
inline constexpr std::u16string_view TextOrderName = u"TesselText";

/// Makes the order known to an open database: texts stand as `vb::StrComp` puts them. Fails with
/// `StoreFailure`.
void RegisterTextOrder(sqlite3* db);

}  // namespace tessel::store
