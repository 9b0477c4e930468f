// Gives lines of a module new text without ever losing the old one.
#pragma once

#include <memory>

#include "host/CodeModule.h"

namespace tessel {

/// Deletes `count` lines from `first` and inserts `text` at `insertAt`. When the insertion fails,
/// the old lines are put back and the failure goes on to the caller.
void ReplaceLines(host::CodeModule& module, int first, int count, int insertAt, StringView text);

}  // namespace tessel
