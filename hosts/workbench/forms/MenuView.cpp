#include "hosts/workbench/forms/MenuView.h"

#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

void AddSubmenu(QMenu& menu, forms::MenuItem& item, const MenuChoice& chosen) {
  QMenu* const below = menu.addMenu(ToQt(item.Caption()));
  below->setEnabled(item.Enabled());
  // An empty submenu would not open, and so never be asked what it holds.
  FillMenu(*below, item, chosen);
  QObject::connect(below, &QMenu::aboutToShow, below, [below, &item, chosen] {
    item.RaiseClick();
    FillMenu(*below, item, chosen);
  });
}

void AddAction(QMenu& menu, forms::MenuItem& item, const MenuChoice& chosen) {
  QAction* const action = menu.addAction(ToQt(item.Caption()));
  action->setObjectName(ToQt(item.Name()));
  action->setEnabled(item.Enabled());
  action->setCheckable(item.Checked());
  action->setChecked(item.Checked());
  QObject::connect(action, &QAction::triggered, action, [&item, chosen] { chosen(item); });
}

}  // namespace

void FillMenu(QMenu& menu, forms::MenuItem& items, const MenuChoice& chosen) {
  menu.clear();
  for (forms::MenuItem* const item : items.Items()) {
    if (!item->Visible()) continue;
    if (item->IsSeparator()) {
      menu.addSeparator();
    } else if (item->Items().empty()) {
      AddAction(menu, *item, chosen);
    } else {
      AddSubmenu(menu, *item, chosen);
    }
  }
}

}  // namespace tessel::workbench
