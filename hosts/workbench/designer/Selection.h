// Which controls of a form are chosen.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "hosts/model/DesignerTree.h"

namespace tessel::workbench {

/// Chosen blocks, the leading one last. Holds none of them alive; either the form's own block or
/// controls are chosen, never both.
class Selection {
 public:
  /// The chosen blocks that still exist.
  [[nodiscard]] std::vector<model::DesignerNode*> Nodes() const;
  [[nodiscard]] bool Holds(const model::DesignerNode& node) const;
  /// Chooses these, in this order; answers whether anything changed.
  bool Set(const std::vector<model::DesignerNode*>& nodes);
  /// Nodes() with a control put in as the leading one, or taken out.
  [[nodiscard]] std::vector<model::DesignerNode*> Toggled(model::DesignerNode& node) const;
  /// Lets go of what is gone or not accepted; answers whether anything was.
  bool Prune(const std::function<bool(const model::DesignerNode&)>& accepted);
  /// The chosen controls that stand in no other chosen one.
  [[nodiscard]] std::vector<model::DesignerNode*> Outermost() const;

 private:
  std::vector<std::weak_ptr<model::DesignerNode>> nodes_;
};

/// The controls of a list that stand in no other one of it; the form's own block is left out.
[[nodiscard]] std::vector<model::DesignerNode*> OutermostOf(
    const std::vector<model::DesignerNode*>& nodes);

}  // namespace tessel::workbench
