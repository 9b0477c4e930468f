// The four moves. The subtree that moves is parked far above all other numbers, the others are
// shifted, and the subtree comes back.

#include "snippets/TreeCommands.h"

namespace tessel {
namespace {

std::int32_t WidthOf(const NodeSpan& span) { return span.Rgt - span.Lft + 1; }

}  // namespace

/// A node that is still parked at the end would be lost to the tree: then all is undone.
template <class Body>
void CSQLTree::Move(Body&& body) {
  Operate([&] {
    body();
    store::Recordset parked;
    if (!Open(parked, u"SELECT ID FROM Tree WHERE lft >= " + vb::Str(Parking)).Eof()) {
      throw TreeService.Own(TreeService.Last, TreeService.General);
    }
  });
}

void CSQLTree::MoveDownNode(std::int32_t id, std::int32_t root) {
  Move([&] { MoveBeside(id, true, root); });
}

void CSQLTree::MoveUpNode(std::int32_t id, std::int32_t root) {
  Move([&] { MoveBeside(id, false, root); });
}

/// Changes places with the next or the previous sibling of the same kind.
void CSQLTree::MoveBeside(std::int32_t id, bool down, std::int32_t root) {
  const std::int32_t level = LevelNode(id);
  const NodeLevel beside = down ? LevelNodeDown(id, root) : LevelNodeUp(id, root);
  if (level != beside.LevelOut) return;
  const NodeSpan mine = GetNodeID(id), other = GetNodeID(beside.ReturnID);
  Run(commands_->cmdShiftSpan, {Parking, mine.Lft, mine.Rgt});
  Run(commands_->cmdShiftSpan, {down ? mine.Lft - other.Lft : WidthOf(mine), other.Lft, other.Rgt});
  Run(commands_->cmdShiftSpan, {(down ? WidthOf(other) : -WidthOf(other)) - Parking,
                                mine.Lft + Parking, mine.Rgt + Parking});
}

void CSQLTree::MoveLeftNode(std::int32_t id, std::int32_t root) {
  Move([&] { MoveLeft(id, root); });
}

/// Leaves the parent for the grandparent, where a record comes last and a folder first.
void CSQLTree::MoveLeft(std::int32_t id, std::int32_t root) {
  std::int32_t parent = GetParentID(id);
  std::int32_t grand = GetParentID(parent);
  // By falling number the node can stand behind an ancestor and so name itself. It can't go into
  // itself; then the true ancestors count.
  if (parent == id) {
    parent = TrueParentID(id);
    grand = TrueParentID(parent);
  }
  if (grand < 1) return;
  const NodeSpan mine = GetNodeID(id);
  const std::int32_t width = WidthOf(mine), end = GetNodeID(grand).Rgt;
  Run(commands_->cmdShiftSpan, {Parking, mine.Lft, mine.Rgt});
  Run(commands_->cmdShiftLeft, {-width, mine.Lft, end});
  Run(commands_->cmdShiftRight, {-width, mine.Lft, end});
  const NodeSpan target = GetNodeID(grand);
  if (root != FolderKind) {
    Run(commands_->cmdShiftRight, {2, target.Rgt, target.Rgt});
    Run(commands_->cmdSetPosition, {target.Rgt, target.Rgt + 1, id});
    return;
  }
  Run(commands_->cmdShiftLeft, {width, target.Lft + 1, target.Rgt});
  Run(commands_->cmdShiftRight, {width, target.Lft + 1, target.Rgt});
  Run(commands_->cmdShiftSpan,
      {(target.Lft + 1) - (mine.Lft + Parking), mine.Lft + Parking, mine.Rgt + Parking});
}

void CSQLTree::MoveRightNode(std::int32_t id, std::int32_t root) {
  Move([&] { MoveRight(id, root); });
}

/// Goes into the first folder below the parent, where a record comes last and a folder first.
void CSQLTree::MoveRight(std::int32_t id, std::int32_t root) {
  std::int32_t parent = GetParentID(id);
  std::int32_t first = GetChildrenID(parent);
  // As on the way left: a folder can't go into a folder of its own.
  if (parent == id && first >= 1) {
    parent = TrueParentID(id);
    first = GetChildrenID(parent);
  }
  if (first < 1 || first == id) return;
  const NodeSpan mine = GetNodeID(id);
  const std::int32_t width = WidthOf(mine), end = GetNodeID(parent).Rgt;
  Run(commands_->cmdShiftSpan, {Parking, mine.Lft, mine.Rgt});
  Run(commands_->cmdShiftLeft, {-width, mine.Lft, end});
  Run(commands_->cmdShiftRight, {-width, mine.Lft, end});
  const NodeSpan target = GetNodeID(first);
  const std::int32_t parentEnd = GetNodeID(parent).Rgt;
  if (root != FolderKind) {
    Run(commands_->cmdShiftLeft, {2, target.Rgt, parentEnd});
    Run(commands_->cmdShiftRight, {2, target.Rgt, parentEnd});
    Run(commands_->cmdSetPosition, {target.Rgt, target.Rgt + 1, id});
    return;
  }
  Run(commands_->cmdShiftLeft, {width, target.Lft + 1, parentEnd});
  Run(commands_->cmdShiftRight, {width, target.Lft + 1, parentEnd});
  Run(commands_->cmdShiftSpan,
      {(target.Lft + 1) - (mine.Lft + Parking), mine.Lft + Parking, mine.Rgt + Parking});
}

}  // namespace tessel
