// Finds and mends a snippet tree whose numbers are damaged.
#pragma once

#include <memory>
#include <vector>

#include "store/Connection.h"

namespace tessel {

/// What an operation says that needs a sound tree.
inline constexpr StringView DamagedTree =
    u"The numbers of the tree are damaged; \"tessel snippets check\" mends them";

/// What was wrong with a database's tree, one line for each finding; empty when it is sound. With
/// `mend` all of it is put right in one transaction and nothing is deleted: nodes keep their order
/// and, where it can be told, their folder; what has no place goes to the end of the top. Fails
/// with what the store says.
[[nodiscard]] std::vector<String> CheckTree(const std::shared_ptr<store::Connection>& connection,
                                            bool mend);

/// Whether all nodes have their places, and all contents their nodes. A record that waits for its
/// first text has no contents yet. Fails with what the store says.
[[nodiscard]] bool IsTreeSound(const std::shared_ptr<store::Connection>& connection);

}  // namespace tessel
