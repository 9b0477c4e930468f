// Looks for records of a snippet library by words.
#pragma once

#include <memory>
#include <vector>

#include "snippets/CSQLTree.h"

namespace tessel {

struct SnippetHit {
  std::int32_t ID = 0;
  /// The names of its folders and its own, joined by "/".
  String Path;
  /// The higher the better.
  int Score = 0;
};

/// Each node with its path, in the order of the tree.
struct SnippetPath {
  TreeNode Node;
  String Path;
};
[[nodiscard]] std::vector<SnippetPath> PathsOf(CSQLTree& tree);

/// The records that hold every word, in any case, in name, folders, notes, text or code: the best
/// first, those alike in the order of the tree. A name counts most, then notes, then the rest.
/// Fails with what the store says.
[[nodiscard]] std::vector<SnippetHit> FindSnippets(CSQLTree& tree,
                                                   const std::vector<String>& words);

}  // namespace tessel
