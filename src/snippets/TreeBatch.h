// Many nodes that enter a snippet tree at once.
#pragma once

#include <deque>
#include <map>
#include <utility>
#include <vector>

#include "snippets/CSQLTree.h"

namespace tessel {

/// Reads the tree once and writes its numbers once, so that the work grows with the nodes and not
/// with their square. Lives inside one transaction, in which nobody else changes the tree.
class TreeBatch {
 public:
  /// Fails when the tree's numbers are damaged.
  explicit TreeBatch(const std::shared_ptr<store::Connection>& connection);

  /// A direct child of a folder by kind and name, `exact` or in any case, of several the oldest; 0
  /// for none. Each child is answered once, and nodes that were added here never are.
  [[nodiscard]] std::int32_t TakeChild(std::int32_t folder, StringView name, std::int32_t kind,
                                       bool exact);
  /// Adds a node as `CSQLTree::AddNode` would: a folder comes first below its parent, a record
  /// last. Fails when the parent is no folder.
  std::int32_t Add(StringView name, std::int32_t folder, std::int32_t kind);
  /// Brings children of a folder into the given order, folders and records each among themselves;
  /// other children keep their places.
  void Arrange(std::int32_t folder, const std::vector<std::int32_t>& children);
  /// Gives every node its numbers.
  void WriteNumbers();

 private:
  struct Node {
    std::int32_t ID = 0, Kind = FolderKind, Lft = 0, Rgt = 0;
    std::deque<std::size_t> Children{};
    /// By name in lower case and kind: the numbers of the children that have it, and their names.
    std::map<std::pair<String, std::int32_t>, std::map<std::int32_t, String>> ByName{};
  };

  void Read();

  std::shared_ptr<store::Connection> connection_;
  store::Recordset added_;
  std::vector<Node> nodes_;
  std::map<std::int32_t, std::size_t> places_;
};

}  // namespace tessel
