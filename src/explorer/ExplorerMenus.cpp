#include "explorer/ExplorerMenus.h"

#include <array>
#include <string>

namespace tessel::explorer {
namespace {

std::string Named(std::string_view name, std::string_view suffix) {
  return std::string(name) + std::string(suffix);
}

}  // namespace

std::span<const AddingRow> AddingTable() {
  static constexpr std::array<AddingRow, 12> table{{
      {"mnuAddFormVB6", u"Form", u"Add Form", u"udProjectExplorer.mnuAddFormVB6_Click"},
      {"mnuMDIFormVB6", u"MDI Form", u"Add MDI Form", u"udProjectExplorer.mnuMDIFormVB6_Click"},
      {"mnuModuleVB6", u"Module", u"Add Module", u"udProjectExplorer.mnuModuleVB6_Click"},
      {"mnuClassModuleVB6", u"Class Module", u"Add Class Module",
       u"udProjectExplorer.mnuClassModuleVB6_Click"},
      {"mnuUserControlsVB6", u"User Controls", u"Add User Control",
       u"udProjectExplorer.mnuUserControlsVB6_Click"},
      {"mnuPropertyPageVB6", u"Property Page", u"Add Property Page",
       u"udProjectExplorer.mnuPropertyPageVB6_Click"},
      {"mnuUserDocumentVB6", u"User Document", u"Add User Document",
       u"udProjectExplorer.mnuUserDocumentVB6_Click"},
      {"mnuWebClassVB6", u"WebClass", u"Add WebClass", u"udProjectExplorer.mnuWebClassVB6_Click"},
      {"mnuDataReportVB6", u"Data Report", u"Add Data Report",
       u"udProjectExplorer.mnuDataReportVB6_Click"},
      {"mnuDHTMLPageVB6", u"DHTML Page", u"Add HTML Page",
       u"udProjectExplorer.mnuDHTMLPageVB6_Click"},
      {"mnuDataEnvironmentVB6", u"Data Environment", u"Add Data Environment",
       u"udProjectExplorer.mnuDataEnvironmentVB6_Click"},
      {"mnuFileVB6", u"File ...", u"Add File...", u"udProjectExplorer.mnuFileVB6_Click"},
  }};
  return table;
}

CommonItems::CommonItems(forms::MenuItem* menu, std::string_view suffix)
    : mnuObject(menu, Named("mnuObject", suffix), u"View Object"),
      mnuCode(menu, Named("mnuCode", suffix), u"View Code") {}

// "Properties..." bears one name in both menus.
BuilderItems::BuilderItems(forms::MenuItem* menu, std::string_view suffix)
    : mnuProcedureBuilder(menu, Named("mnuProcedureBuilder", suffix), u"Procedure Builder"),
      mnuPropertyBuilder(menu, Named("mnuPropertyBuilder", suffix), u"Property Builder"),
      mnuCollectionBuilder(menu, Named("mnuCollectionBuilder", suffix), u"Collection Builder"),
      mnuEnumBuilder(menu, Named("mnuEnumBuilder", suffix), u"Enum Builder"),
      mnuHide(menu, Named("mnuHide", suffix), u"Hide"),
      mnuProperties(menu, "mnuProperties", u"Properties...") {}

MenuVB6::MenuVB6(forms::Surface* owner) : mnuExplorerVB6(owner, "mnuExplorerVB6", u"ExplorerVB6") {
  mnuExplorerVB6.SetVisible(false);
  for (const AddingRow& row : AddingTable()) {
    Adding.emplace_back(&mnuAddVB6, row.Name, row.Caption);
  }
}

MenuVBA::MenuVBA(forms::Surface* owner) : mnuExplorerVBA(owner, "mnuExplorerVBA", u"Explorer") {
  mnuExplorerVBA.SetVisible(false);
}

MenuWindow::MenuWindow(forms::Surface* owner) : mnuWindow(owner, "mnuWindow", u"Window") {
  mnuWindow.SetVisible(false);
}

}  // namespace tessel::explorer
