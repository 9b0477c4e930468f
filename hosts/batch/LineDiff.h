// Unified differences between two texts.
#pragma once

#include <string>
#include <string_view>

namespace tessel::batch {

/// The difference in the unified format, with three lines of context and the two names at its head;
/// empty when the texts are equal. Lines are compared with their line ends; a last line without one
/// is marked as usual. Algorithm: Myers' greedy shortest edit script, given up for one replaced
/// block where it grows too costly.
[[nodiscard]] std::string UnifiedDiff(std::string_view before, std::string_view after,
                                      const std::string& nameBefore, const std::string& nameAfter);

}  // namespace tessel::batch
