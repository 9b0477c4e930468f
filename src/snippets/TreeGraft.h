// The whole of one snippet database below a node of another.
#pragma once

#include <memory>
#include <vector>

#include "store/Connection.h"

namespace tessel {

/// Copies all nodes below the top of `source`, with their rows of List as they are (null stays
/// null), into the folder `parent` of `target`: its folders come first there and its records last,
/// as new nodes do. Takes as many statements as there are rows. Answers the paths of the records.
/// The source's tree must be sound. Fails with a text when `parent` is no folder of the target.
[[nodiscard]] std::vector<String> GraftTree(const std::shared_ptr<store::Connection>& target,
                                            std::int32_t parent,
                                            const std::shared_ptr<store::Connection>& source);

}  // namespace tessel
