#include "hosts/workbench/designer/Selection.h"

#include <algorithm>
#include <unordered_set>

namespace tessel::workbench {

std::vector<model::DesignerNode*> Selection::Nodes() const {
  std::vector<model::DesignerNode*> nodes;
  for (const auto& weak : nodes_) {
    if (const auto node = weak.lock()) nodes.push_back(node.get());
  }
  return nodes;
}

bool Selection::Holds(const model::DesignerNode& node) const {
  return std::any_of(nodes_.begin(), nodes_.end(),
                     [&](const auto& weak) { return weak.lock().get() == &node; });
}

bool Selection::Set(const std::vector<model::DesignerNode*>& nodes) {
  if (nodes == Nodes() && nodes.size() == nodes_.size()) return false;
  nodes_.clear();
  for (model::DesignerNode* node : nodes) nodes_.push_back(node->weak_from_this());
  return true;
}

std::vector<model::DesignerNode*> Selection::Toggled(model::DesignerNode& node) const {
  auto nodes = Nodes();
  const auto formOnly = [](const model::DesignerNode* one) { return one->Parent == nullptr; };
  std::erase_if(nodes, formOnly);
  if (std::erase(nodes, &node) == 0) nodes.push_back(&node);
  return nodes;
}

bool Selection::Prune(const std::function<bool(const model::DesignerNode&)>& accepted) {
  return std::erase_if(nodes_, [&](const auto& weak) {
           const auto node = weak.lock();
           return !node || !accepted(*node);
         }) > 0;
}

std::vector<model::DesignerNode*> Selection::Outermost() const { return OutermostOf(Nodes()); }

std::vector<model::DesignerNode*> OutermostOf(const std::vector<model::DesignerNode*>& nodes) {
  const std::unordered_set<const model::DesignerNode*> chosen(nodes.begin(), nodes.end());
  std::vector<model::DesignerNode*> outermost;
  for (model::DesignerNode* node : nodes) {
    const model::DesignerNode* up = node->Parent;
    while (up != nullptr && up->Parent != nullptr && !chosen.contains(up)) up = up->Parent;
    if (up != nullptr && up->Parent == nullptr) outermost.push_back(node);
  }
  return outermost;
}

}  // namespace tessel::workbench
