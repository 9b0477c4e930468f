#include "hosts/workbench/designer/MenuPreview.h"

#include "hosts/workbench/designer/Values.h"

namespace tessel::workbench {
namespace {

bool HoldsBlocks(const model::DesignerNode& block) {
  for (const auto& item : block.Items) {
    if (item.Child) return true;
  }
  return false;
}

void AddItem(QMenu& menu, model::DesignerNode& block,
             const std::function<void(model::DesignerNode&)>& chosen) {
  const QString caption = TextOf(block, u"Caption");
  if (caption == u"-") {
    menu.addSeparator();
    return;
  }
  if (HoldsBlocks(block)) return FillMenu(*menu.addMenu(caption), block, chosen);
  QAction* const action = menu.addAction(caption);
  action->setCheckable(FlagOf(block, u"Checked", false));
  action->setChecked(action->isCheckable());
  // The block may leave the form while the menu is open.
  QObject::connect(action, &QAction::triggered, &menu, [weak = block.weak_from_this(), chosen] {
    if (const auto node = weak.lock()) chosen(*node);
  });
}

}  // namespace

void FillMenu(QMenu& menu, const model::DesignerNode& block,
              const std::function<void(model::DesignerNode&)>& chosen) {
  for (const auto& item : block.Items) {
    if (item.Child) AddItem(menu, *item.Child, chosen);
  }
}

}  // namespace tessel::workbench
