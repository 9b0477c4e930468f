// Files that somebody else changed while they were open.
#pragma once

#include <vector>

#include "hosts/workspace/LoadedProject.h"

namespace tessel::workspace {

/// Looks at each file that is to be written. Fails with ChangedOutside when one doesn't have the
/// bytes that are known of it any more, and names each of those with what became of it.
void CheckOutside(const std::vector<PendingFile>& pending);

}  // namespace tessel::workspace
