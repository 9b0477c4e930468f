// The pop-up menus of the Explorer.
#pragma once

#include <deque>
#include <span>

#include "forms/Menu.h"

namespace tessel::explorer {

/// An item that adds a component by pressing a command of the environment's Project menu.
struct AddingRow {
  std::string_view Name;
  StringView Caption;
  StringView Command;  ///< caption in the environment's menu
  StringView Routine;  ///< name of its handler
};
[[nodiscard]] std::span<const AddingRow> AddingTable();

/// What both menus of rows have: showing, the builders, hiding.
struct CommonItems {
  CommonItems(forms::MenuItem* menu, std::string_view suffix);
  forms::MenuItem mnuObject, mnuCode;
};
struct BuilderItems {
  BuilderItems(forms::MenuItem* menu, std::string_view suffix);
  forms::MenuItem mnuProcedureBuilder, mnuPropertyBuilder, mnuCollectionBuilder, mnuEnumBuilder,
      mnuHide, mnuProperties;
};

/// Menu of rows in the Visual Basic environment.
struct MenuVB6 {
  explicit MenuVB6(forms::Surface* owner);
  forms::MenuItem mnuExplorerVB6;
  CommonItems Common{&mnuExplorerVB6, "VB6"};
  forms::MenuItem mnuAddVB6{&mnuExplorerVB6, "mnuAddVB6", u"Add"};
  std::deque<forms::MenuItem> Adding;  ///< in the order of AddingTable
  BuilderItems Builders{&mnuExplorerVB6, "VB6"};
};

/// Menu of rows in the hosts of documents.
struct MenuVBA {
  explicit MenuVBA(forms::Surface* owner);
  forms::MenuItem mnuExplorerVBA;
  CommonItems Common{&mnuExplorerVBA, ""};
  BuilderItems Builders{&mnuExplorerVBA, ""};
  forms::MenuItem mnuInsert{&mnuExplorerVBA, "mnuInsert", u"Insert"};
  forms::MenuItem mnuForm{&mnuInsert, "mnuForm", u"UserForm"};
  forms::MenuItem mnuModule{&mnuInsert, "mnuModule", u"Module"};
  forms::MenuItem mnuClass{&mnuInsert, "mnuClass", u"Class"};
  forms::MenuItem mnuImport{&mnuExplorerVBA, "mnuImport", u"Import"};
  forms::MenuItem mnuExport{&mnuExplorerVBA, "mnuExport", u"Export"};
  forms::MenuItem mnuRemove{&mnuExplorerVBA, "mnuRemove", u"Remove"};
};

/// Menu of the window, beside its rows.
struct MenuWindow {
  explicit MenuWindow(forms::Surface* owner);
  forms::MenuItem mnuWindow;
  forms::MenuItem mnuWindowObject{&mnuWindow, "mnuWindowObject", u"View Object"};
  forms::MenuItem mnuWindowCode{&mnuWindow, "mnuWindowCode", u"View Code"};
  forms::MenuItem mnuWindowLine{&mnuWindow, "mnuWindowLine", u"-"};
  forms::MenuItem mnuWindowHide{&mnuWindow, "mnuWindowHide", u"Hide"};
};

}  // namespace tessel::explorer
