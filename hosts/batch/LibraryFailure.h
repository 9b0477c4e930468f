// What went wrong with the file of a library, in words for its user.
#pragma once

#include "snippets/CSQLTree.h"
#include "vb/Failure.h"

namespace tessel::batch {

/// Fails, naming the file and the cause, when the library can't be written. Must run inside the
/// transaction that is about to write.
void CheckLibraryWritable(CSQLTree& tree);

/// Fails when the file of the library or its tree is damaged, so that nothing is made from half of
/// it.
void CheckLibrarySound(CSQLTree& tree);

/// The failure of an operation on a library with the file and the cause, where the store or the
/// tree says less: no statement of the store, and no "component failure".
[[nodiscard]] vb::Failure Explained(const vb::Failure& failure, CSQLTree& tree);

}  // namespace tessel::batch
