// What the columns of a snippet library hold at most.
#pragma once

#include "snippets/ListFragment.h"

namespace tessel {

/// Characters in the caption of a node, and in name and class of a stored object.
inline constexpr std::size_t LongestNodeName = 255, LongestObjectName = 50, LongestClass = 3;

/// Fails with a text for the user when a caption is too long; nothing is ever cut.
void CheckNodeName(StringView name);
/// The same for what a record stores of an object.
void CheckObject(const ListFragment& fragment);

}  // namespace tessel
