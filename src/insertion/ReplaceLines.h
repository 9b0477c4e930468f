// Gives lines of a module new text without ever losing the old one.
#pragma once

#include <memory>

#include "foundation/Routine.h"
#include "host/CodeModule.h"

namespace tessel {

/// Lines of a module and the text that they hold.
struct OldLines {
  int First = 1, Count = 0;
  StringView Text;
};

/// Deletes the lines and inserts `text` at `insertAt`, each a statement of the calling routine.
/// Where the deletion was ignored nothing is inserted; where the insertion fails the old lines are
/// put back before the failure is told, and when they can't be, that is told as well. True when
/// `text` has taken their place.
bool ReplaceLines(const Statements& run, const std::shared_ptr<host::CodeModule>& module,
                  const OldLines& old, int insertAt, StringView text);

}  // namespace tessel
