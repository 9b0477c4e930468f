// A surface's menus as menus of Qt.
#pragma once

#include <QMenu>
#include <functional>

#include "forms/Menu.h"

namespace tessel::workbench {

/// What is called with the item that the user chose.
using MenuChoice = std::function<void(forms::MenuItem& item)>;

/// Puts the items of a menu in place of what a menu of Qt has. Submenus are made ready when they
/// open. Hidden items aren't there.
void FillMenu(QMenu& menu, forms::MenuItem& items, const MenuChoice& chosen);

}  // namespace tessel::workbench
