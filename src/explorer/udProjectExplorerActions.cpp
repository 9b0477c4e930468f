// What the user does with a row, a menu, and the line above the tree.

#include <utility>

#include "explorer/Conformity.h"
#include "explorer/udProjectExplorer.h"
#include "platform/Platform.h"
#include "projectmodel/ProjectTables.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

using forms::MenuItem;

constexpr int RightButton = 2;
constexpr int EnterKey = 13, EscapeKey = 27;

/// The commands of the environment's Project menu.
std::shared_ptr<host::CommandBarControls> ProjectMenu(const std::shared_ptr<host::VBE>& vbe) {
  const auto menus = Need(Need(vbe).CommandBars()).Item(u"Menu Bar")->Controls();
  return Need(menus).Item(u"Project")->Controls();
}

/// The hosts of documents; every other is a Visual Basic environment.
bool IsDocumentHost(StringView name) {
  return !name.empty() && name != u"VB6" && HostByName(name).Name == name;
}

}  // namespace

void udProjectExplorer::WireTree() {
  fgTree.MouseDown = [this](int button, int row) { fgTree_MouseDown(button, row); };
  fgTree.Click = [this] { fgTree_Click(); };
  fgTree.DblClick = [this] { fgTree_DblClick(); };
  fgTree.KeyPress = [this](int& key) {
    if (key == EnterKey) fgTree_DblClick();
  };
  txtFind.Change = [this] { txtFind_Change(); };
  txtFind.KeyPress = [this](int& key) { txtFind_KeyPress(key); };
}

void udProjectExplorer::WireMenus() {
  const auto jump = [this](StringView routine) {
    return [this, routine] { Routine(routine, [&] { fgTree_DblClick(); }); };
  };
  const auto call = [this](StringView routine, void (IConnect::*operation)()) {
    return [this, routine, operation] {
      Routine(routine, [&] { (*Connect.operator->().*operation)(); });
    };
  };
  const auto common = [&](explorer::CommonItems& items, explorer::BuilderItems& builders) {
    items.mnuObject.Click = [this] { btmObject_Click(); };
    items.mnuCode.Click = [this] { btmCode_Click(); };
    builders.mnuProcedureBuilder.Click =
        call(u"udProjectExplorer.mnuProcedureBuilder_Click", &IConnect::ShowProcedureBuilder);
    builders.mnuPropertyBuilder.Click =
        call(u"udProjectExplorer.mnuPropertyBuilder_Click", &IConnect::ShowPropertyBuilder);
    builders.mnuCollectionBuilder.Click =
        call(u"udProjectExplorer.mnuCollectionBuilder_Click", &IConnect::ShowClassBuilder);
    builders.mnuEnumBuilder.Click =
        call(u"udProjectExplorer.mnuEnumBuilder_Click", &IConnect::ShowEnum);
    builders.mnuHide.Click =
        call(u"udProjectExplorer.mnuHide_Click", &IConnect::HideProjectExplorer);
    builders.mnuProperties.Click = jump(u"udProjectExplorer.mnuProperties_Click");
  };
  common(MenuOfRows.Common, MenuOfRows.Builders);
  common(MenuOfDocuments.Common, MenuOfDocuments.Builders);
  for (std::size_t at = 0; at < MenuOfRows.Adding.size(); ++at) {
    MenuOfRows.Adding[at].Click = [this, &row = explorer::AddingTable()[at]] {
      AddByCommand(row.Routine, row.Command);
    };
  }
  MenuOfDocuments.mnuImport.Click = jump(u"udProjectExplorer.mnuImport_Click");
  MenuOfDocuments.mnuExport.Click = jump(u"udProjectExplorer.mnuExport_Click");
  MenuOfDocuments.mnuRemove.Click = jump(u"udProjectExplorer.mnuRemove_Click");
  MenuOfWindow.mnuWindowObject.Click = [this] { btmObject_Click(); };
  MenuOfWindow.mnuWindowCode.Click = [this] { btmCode_Click(); };
  MenuOfWindow.mnuWindowHide.Click =
      call(u"udProjectExplorer.mnuHide_Click", &IConnect::HideProjectExplorer);
}

// The jump

void udProjectExplorer::fgTree_DblClick() {
  const auto self = weak_from_this().lock();
  const bool before = std::exchange(busy_, true);
  Routine(u"udProjectExplorer.fgTree_DblClick", [&] {
    const int row = fgTree.Row();
    if (row <= 0 || row >= fgTree.Rows()) return;
    const String project = fgTree.TextMatrix(row, explorer::ProjectColumn);
    const String component = fgTree.TextMatrix(row, explorer::GroupColumn);
    const String member = fgTree.TextMatrix(row, explorer::ComponentColumn);
    const String line = fgTree.TextMatrix(row, explorer::LineColumn);
    if (member.empty()) return;
    if (before_) chosen_ = IdentityOf(row);
    const bool outrun = WasOutrun();  // ahead of the windows that the jump opens
    PositionProcedure(project, component, member, line.empty() ? 0 : vb::CLng(line));
    outrun_ = outrun_ || outrun;
    ClearMarks();
  });
  busy_ = before;
}

void udProjectExplorer::PositionProcedure(StringView project, StringView component,
                                          StringView member, int line) {
  Routine(u"udProjectExplorer.PositionProcedure", [&](const Statements& run) {
    if (!projects_) return;
    std::shared_ptr<cProjectes> owner;
    String name;
    for (const auto& [key, one] : *projects_) {
      if (!vb::SameText(one->VBProjectName, project)) continue;
      for (const auto& [type, group] : *one) {
        if (!vb::SameText(explorer::GroupKey(group->TypeComponent, one->Name), component)) continue;
        if (const auto found = explorer::FindComponent(*group, member)) {
          owner = one;
          name = found->Name;
        }
      }
    }
    if (name.empty()) return;
    const auto found = run([&] { return FindProjectConponent(*owner, name); });
    if (!found) return;
    if (viewObject_) {
      run([&] { found->Activate(); });
      return;
    }
    const int top = std::max(1, line);
    const auto pane = run([&] { return Need(found->CodeModule()).CodePane(); });
    if (!pane) return;
    run([&] { pane->SetTopLine(top); });
    run([&] { pane->SetSelection({top, 1, top, 1}); });
    run([&] { Need(pane->Window()).SetVisible(true); });
    run([&] { pane->Show(); });
    run([] { platform::Current().Clock().DoEvents(); });
  });
}

void udProjectExplorer::btmCode_Click() {
  Routine(u"udProjectExplorer.btmCode_Click", [&] {
    viewObject_ = false;
    fgTree_DblClick();
  });
}

void udProjectExplorer::btmObject_Click() {
  Routine(u"udProjectExplorer.btmObject_Click", [&] {
    viewObject_ = true;
    fgTree_DblClick();
  });
  viewObject_ = false;
}

// Rows and menus

void udProjectExplorer::fgTree_Click() {
  Routine(u"udProjectExplorer.fgTree_Click", [&] {
    if (before_) chosen_ = IdentityOf(fgTree.Row());
    ButtonEnabled();
  });
}

/// As the buttons for the current row.
void udProjectExplorer::EnableItems(MenuItem& object, MenuItem& code) {
  ButtonEnabled();
  object.SetEnabled(btmObject.Enabled());
  code.SetEnabled(btmCode.Enabled());
}

/// Notices wait until the menu has closed and its item is done: the row stays the current one.
void udProjectExplorer::OpenMenu(MenuItem& menu) {
  Reading([&] { PopupMenu(menu); });
}

void udProjectExplorer::fgTree_MouseDown(int button, int row) {
  if (button != RightButton) return;
  const auto self = weak_from_this().lock();
  Routine(u"udProjectExplorer.fgTree_MouseDown", [&](const Statements& run) {
    if (row < 0) {
      EnableItems(MenuOfWindow.mnuWindowObject, MenuOfWindow.mnuWindowCode);
      return run([&] { OpenMenu(MenuOfWindow.mnuWindow); });
    }
    fgTree.Select(row, explorer::CaptionColumn);
    if (before_) chosen_ = IdentityOf(row);
    if (cTreeVBA_ && IsDocumentHost(cTreeVBA_->NameGlobalProcesses())) {
      EnableItems(MenuOfDocuments.Common.mnuObject, MenuOfDocuments.Common.mnuCode);
      if (btmObject.Enabled() && CheckObjEnable()) {
        MenuOfDocuments.Common.mnuObject.SetEnabled(false);
      }
      MenuOfDocuments.mnuRemove.SetCaption(nameRemoveComponent());
      return run([&] { OpenMenu(MenuOfDocuments.mnuExplorerVBA); });
    }
    EnableItems(MenuOfRows.Common.mnuObject, MenuOfRows.Common.mnuCode);
    for (std::size_t at = 0; at < MenuOfRows.Adding.size(); ++at) {
      MenuOfRows.Adding[at].SetEnabled(CheckEnableButtonADD(explorer::AddingTable()[at].Command));
    }
    run([&] { OpenMenu(MenuOfRows.mnuExplorerVB6); });
  });
}

bool udProjectExplorer::CheckEnableButtonADD(StringView caption) {
  bool enabled = false;
  Routine(u"udProjectExplorer.CheckEnableButtonADD",
          [&] { enabled = Need(ProjectMenu(VBInstance)).Item(caption)->Enabled(); });
  return enabled;
}

bool udProjectExplorer::CheckObjEnable() {
  return ResumeNext([&] {
    const auto selected = Need(VBInstance).SelectedVBComponent();
    static_cast<void>(Need(Need(selected).Properties()).Item(u"OnSheetActivate"));
  });
}

String udProjectExplorer::nameRemoveComponent() const {
  const int row = fgTree.Row();
  const String name = row >= 0 && row < fgTree.Rows()
                          ? fgTree.TextMatrix(row, explorer::ComponentColumn)
                          : String();
  return name.empty() ? String(u"Remove") : u"Remove " + name;
}

/// What comes of it is told by the watchers.
void udProjectExplorer::AddByCommand(StringView routine, StringView caption) {
  const auto self = weak_from_this().lock();
  Routine(routine, [&] { Need(ProjectMenu(VBInstance)).Item(caption)->Execute(); });
}

// The line above the tree

void udProjectExplorer::txtFind_Change() {
  Routine(u"udProjectExplorer.txtFind_Change", [&] {
    words_ = explorer::TreeWords(txtFind.Text());
    if (!projects_) return;
    // Blanks or the "-" that begins a word find nothing yet: the tree stays as it is.
    if (words_.IsEmpty() && !narrowed_) return;
    if (words_.IsEmpty()) {
      const auto look = std::exchange(before_, std::nullopt);
      PutRows(false);
      // What was typed ahead of the first reading has no tree to give back.
      if (look) PutLook(*look);
    } else {
      if (!before_) {
        before_ = PresentLook();
        chosen_.clear();
      }
      PutRows(false);
      if (firstFind_ >= 0) fgTree.Select(firstFind_, explorer::CaptionColumn);
    }
    ButtonEnabled();
  });
}

void udProjectExplorer::txtFind_KeyPress(int& key) {
  if (key == EscapeKey) {
    txtFind.SetText(u"");
    key = 0;
  } else if (key == EnterKey) {
    GoToFind();
    key = 0;
  }
}

/// To the current row, which is the first find as long as nobody chose another one.
void udProjectExplorer::GoToFind() {
  Routine(u"udProjectExplorer.GoToFind", [&] {
    if (before_ && fgTree.Row() >= 0) fgTree_DblClick();
  });
}

udProjectExplorer::Look udProjectExplorer::PresentLook() const {
  Look look;
  for (int row = 0; row < fgTree.Rows(); ++row) {
    if (fgTree.EndOf(row) > row + 1) {
      look.Collapsed.emplace(IdentityOf(row), fgTree.RowAt(row).Collapsed);
    }
  }
  look.Current = IdentityOf(fgTree.Row());
  look.Top = IdentityOf(fgTree.TopRow());
  return look;
}

/// A row that became current since is shown; else the tree is as it was.
void udProjectExplorer::PutLook(const Look& look) {
  int current = -1, top = -1;
  const String chosen = std::exchange(chosen_, {});
  const String& wanted = chosen.empty() ? look.Current : chosen;
  for (int row = 0; row < fgTree.Rows(); ++row) {
    const String identity = IdentityOf(row);
    const auto known = look.Collapsed.find(identity);
    if (known != look.Collapsed.end()) fgTree.SetCollapsed(row, known->second);
    if (identity == wanted) current = row;
    if (identity == look.Top) top = row;
  }
  fgTree.Select(current, explorer::CaptionColumn);
  if (top >= 0) fgTree.SetTopRow(top);
  if (!chosen.empty() && current >= 0) SelectRowTree(current);
}

}  // namespace tessel
