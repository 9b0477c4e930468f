// What is active in the environment, and the row that stands for it.

#include "explorer/udProjectExplorer.h"
#include "projectmodel/ProjectTables.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel {

/// Its caption, which is its key here. Projects of one name are told apart by their files.
String udProjectExplorer::GetActiveVBProjectName() {
  String name;
  Routine(u"udProjectExplorer.GetActiveVBProjectName", [&] {
    name.clear();
    if (VBInstance) name = ProjectCaption(VBInstance->ActiveVBProject()).Caption;
  });
  return name;
}

String udProjectExplorer::GetSelectedVBComponent() {
  String name;
  Routine(u"udProjectExplorer.GetSelectedVBComponent", [&] {
    const auto component = VBInstance ? VBInstance->SelectedVBComponent() : nullptr;
    name = component ? component->Name() : String();
  });
  return name;
}

/// The component of the code pane in front, else the selected one.
udProjectExplorer::Component udProjectExplorer::ActiveComponent() {
  Component component;
  Routine(u"udProjectExplorer.ActiveComponent", [&] {
    const auto pane = Need(VBInstance).ActiveCodePane();
    const auto module = pane ? pane->CodeModule() : nullptr;
    component = module ? module->Parent() : VBInstance->SelectedVBComponent();
  });
  return component;
}

/// The caption of the project that has this component under its name; empty when none has, and for
/// one of several of a name that the project doesn't give.
String udProjectExplorer::ProjectOfComponent(const Component& component) {
  String caption;
  Routine(u"udProjectExplorer.ProjectOfComponent", [&] {
    caption.clear();
    const String name = component->Name();
    const auto has = [&](const std::shared_ptr<host::VBProject>& project) {
      Component found;  // a project may refuse its components, or have none of that name
      ResumeNext([&] { found = Need(Need(project).VBComponents()).Item(name); });
      if (found == component) caption = ProjectCaption(project).Caption;
      return found == component;
    };
    if (has(Need(VBInstance).ActiveVBProject())) return;
    const auto projects = VBInstance->VBProjects();
    for (int index = 1; projects && index <= projects->Count(); ++index) {
      if (has(projects->Item(index))) return;
    }
  });
  return caption;
}

/// Whether the notice at hand was started in another code window than the one in front, or the user
/// has been in a third one meanwhile.
bool udProjectExplorer::ActedElsewhere() {
  bool elsewhere = false;
  Routine(u"udProjectExplorer.ActedElsewhere", [&] {
    if (!cTreeVBA_) return;
    elsewhere = cTreeVBA_->TakeActedElsewhere() || elsewhere;
    if (elsewhere || cTreeVBA_->hwndCODE() == 0) return;
    const auto pane = Need(VBInstance).ActiveCodePane();
    elsewhere = !pane || Need(pane->Window()).HWnd() != cTreeVBA_->hwndCODE();
  });
  return elsewhere;
}

/// The caret's line in the pane in front, 0 without one.
int udProjectExplorer::GetStartLine() {
  int line = 0;
  Routine(u"udProjectExplorer.GetStartLine", [&] {
    const auto pane = Need(VBInstance).ActiveCodePane();
    line = pane ? pane->GetSelection().StartLine : 0;
  });
  return line;
}

/// Name and kind of the member at the caret; empty when the pane in front shows another component,
/// or its caret stands in no member.
String udProjectExplorer::MemberKeyAtCaret(StringView project, StringView component) {
  String key;
  Routine(u"udProjectExplorer.MemberKeyAtCaret", [&] {
    key.clear();
    const auto pane = Need(VBInstance).ActiveCodePane();
    const auto module = pane ? pane->CodeModule() : nullptr;
    if (!module || !vb::SameText(module->Name(), component)) return;
    if (!vb::SameText(ProjectOfComponent(module->Parent()), project)) return;
    const int line = GetStartLine();
    host::vbext_ProcKind unused{};
    const String name = module->ProcOfLine(line, unused);
    if (name.empty()) return;
    const int kind = mFunctions::MemberKindAtLine(module, name, line, true);
    key = name + String(mFunctions::MemberKindToken(kind));
  });
  return key;
}

/// `member` 1 goes down to the member at the caret, 0 no further than the component. The argument
/// of a notice makes no difference here.
void udProjectExplorer::SelectItemTree(StringView project, StringView component, int member,
                                       std::int32_t) {
  Routine(u"udProjectExplorer.SelectItemTree", [&] {
    int row = RowOfComponent(project, component);
    if (row < 0) return;
    if (member == 1) {
      const String key = MemberKeyAtCaret(project, component);
      const int found = key.empty() ? -1 : ReturnRowItemTreeProcedure(row, key);
      if (found >= 0) row = found;
    }
    SelectRowTree(row);
    if (before_) chosen_ = IdentityOf(row);
  });
}

int udProjectExplorer::ReturnRowItemTreeProcedure(int component, StringView key) const {
  for (int row = component + 1; row < fgTree.EndOf(component); ++row) {
    if (CellIs(row, explorer::KeyColumn, key)) return row;
  }
  return -1;
}

/// Whether a cell holds a text, in any case.
bool udProjectExplorer::CellIs(int row, int col, StringView text) const {
  return fgTree.CellAt(row, col).Read([&](StringView cell) { return vb::SameText(cell, text); });
}

int udProjectExplorer::RowOfComponent(StringView project, StringView component) const {
  int row = 0;
  while (row < fgTree.Rows() && !CellIs(row, explorer::KeyColumn, project)) row = fgTree.EndOf(row);
  if (row >= fgTree.Rows()) return -1;
  const int end = fgTree.EndOf(row);
  for (++row; row < end;) {
    const int level = fgTree.RowAt(row).Level;
    if (level == explorer::ComponentLevel && CellIs(row, explorer::ComponentColumn, component)) {
      return row;
    }
    row = level == explorer::GroupLevel ? row + 1 : fgTree.EndOf(row);
  }
  return -1;
}

/// Opens what stands above the row, scrolls to it, and makes it current.
void udProjectExplorer::SelectRowTree(int row) {
  Routine(u"udProjectExplorer.SelectRowTree", [&] {
    if (row < 0 || row >= fgTree.Rows()) return;
    fgTree.ShowCell(row, explorer::CaptionColumn);
    fgTree.Select(row, explorer::CaptionColumn);
    ButtonEnabled();
  });
}

std::shared_ptr<host::VBProject> udProjectExplorer::ProjectOfCaption(StringView caption) {
  const auto projects = Need(VBInstance).VBProjects();
  for (int index = 1; projects && index <= projects->Count(); ++index) {
    auto project = projects->Item(index);
    if (vb::SameText(ProjectCaption(project).Caption, caption)) return project;
  }
  return nullptr;
}

/// The component by its project and its own name. A project that was saved since the last reading
/// has another caption, and is found by its name. Fails, as the environment does, when either isn't
/// there any more.
udProjectExplorer::Component udProjectExplorer::FindProjectConponent(const cProjectes& project,
                                                                     StringView component) {
  auto found = ProjectOfCaption(project.Name);
  if (!found) found = Need(Need(VBInstance).VBProjects()).Item(project.VBProjectName);
  return Need(Need(found).VBComponents()).Item(component);
}

void udProjectExplorer::ButtonEnabled() {
  const int row = fgTree.Row();
  const vb::SharedText view = row >= 0 && row < fgTree.Rows()
                                  ? fgTree.CellAt(row, explorer::ViewColumn)
                                  : explorer::NothingToView;
  btmCode.SetEnabled(view != explorer::NothingToView);
  btmObject.SetEnabled(view == explorer::CodeAndObject);
}

/// What a row stands for, as no other row does.
String udProjectExplorer::IdentityOf(int row) const {
  if (row < 0 || row >= fgTree.Rows()) return {};
  const forms::GridRow& one = fgTree.RowAt(row);
  String key = one.Cells[explorer::KeyColumn];
  if (one.Level != explorer::MemberLevel) return key;
  return String(one.Cells[explorer::GroupColumn]) + u"\n" +
         String(one.Cells[explorer::ComponentColumn]) + u"\n" + key;
}

}  // namespace tessel
