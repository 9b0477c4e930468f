// A form's menus, opened to be looked at.
#pragma once

#include <QMenu>
#include <functional>

#include "hosts/model/DesignerTree.h"

namespace tessel::workbench {

/// Fills `menu` with what a menu block holds; choosing an item tells its block.
void FillMenu(QMenu& menu, const model::DesignerNode& block,
              const std::function<void(model::DesignerNode&)>& chosen);

}  // namespace tessel::workbench
