// Reading the environment into the model, and the model's rows in the tree.

#include <utility>

#include "explorer/Conformity.h"
#include "explorer/udProjectExplorer.h"
#include "platform/Platform.h"
#include "projectmodel/ProjectTables.h"
#include "scanning/ModuleOf.h"

namespace tessel {
namespace {

using forms::GridRow;

void DoEvents() { platform::Current().Clock().DoEvents(); }

/// Shows nothing of a grid's changes until all are made.
class RedrawOff {
 public:
  explicit RedrawOff(forms::Grid& grid) : grid_(grid) { grid_.SetRedraw(false); }
  ~RedrawOff() { grid_.SetRedraw(true); }
  RedrawOff(const RedrawOff&) = delete;
  RedrawOff& operator=(const RedrawOff&) = delete;

 private:
  forms::Grid& grid_;
};

/// Rows that look alike; their lines may have moved.
bool IsSameMember(const GridRow& left, const GridRow& right) {
  return left.Cells[explorer::CaptionColumn] == right.Cells[explorer::CaptionColumn] &&
         left.Cells[explorer::KeyColumn] == right.Cells[explorer::KeyColumn] &&
         left.Picture == right.Picture;
}

}  // namespace

void udProjectExplorer::ProjectTree() {
  Reading([this] {
    ReadProjects();
    LoadTree(0);
  });
}

/// Each project is read as a routine of its own: one that refuses is reported and stands there
/// without components, and the next one is read.
void udProjectExplorer::ReadProjects() {
  Routine(u"udProjectExplorer.ProjectTree", [&](const Statements& run) {
    const auto projects = VBInstance ? run([&] { return VBInstance->VBProjects(); }) : nullptr;
    if (!projects) return;
    const String host = cTreeVBA_ ? cTreeVBA_->NameGlobalProcesses() : String();
    const ProjectFiller filler(host.empty() ? StringView(u"VB6") : StringView(host));
    const auto model = std::make_shared<cProjecteses>();
    for (int index = 1; index <= run([&] { return projects->Count(); }); ++index) {
      const auto project = run([&] { return projects->Item(index); });
      if (project) ProjectTree_Project(filler, model, project);
    }
    projects_ = model;
  });
}

void udProjectExplorer::ProjectTree_Project(const ProjectFiller& filler,
                                            const std::shared_ptr<cProjecteses>& model,
                                            const std::shared_ptr<host::VBProject>& project) {
  Routine(u"udProjectExplorer.ProjectTree_Project", [&](const Statements& run) {
    const String caption = run([&] { return ProjectFiller::EnterProject(*model, project); });
    if (!caption.empty()) ProjectTree_TypeComponent(filler, *model, caption, project);
  });
}

void udProjectExplorer::ProjectTree_TypeComponent(const ProjectFiller& filler, cProjecteses& model,
                                                  StringView caption,
                                                  const std::shared_ptr<host::VBProject>& project) {
  const bool failed = failed_;
  bool refuses = true;
  Routine(u"udProjectExplorer.ProjectTree_TypeComponent", [&](const Statements& run) {
    const auto components = run([&] { return project->VBComponents(); });
    if (!components) return;
    refuses = false;
    for (int index = 1; index <= run([&] { return components->Count(); }); ++index) {
      run([&] { filler.EnterComponent(model, caption, components->Item(index)); });
      run(DoEvents);
    }
  });
  // Reading it anew would be refused as well.
  if (refuses) failed_ = failed;
}

void udProjectExplorer::LoadTree(int) {
  Reading([this] {
    Routine(u"udProjectExplorer.LoadTree", [&] {
      PutRows(true);
      ButtonEnabled();
    });
  });
}

void udProjectExplorer::PutRows(bool letEventsRun) {
  const RedrawOff off(fgTree);
  fgTree.ClearRows();
  if (letEventsRun) {
    DoEvents();
    fgTree.ClearRows();
  }
  std::vector<GridRow> rows;
  if (projects_) rows = explorer::RowsOf(*projects_, filter_);
  narrowed_ = !words_.IsEmpty();
  firstFind_ = narrowed_ ? words_.Narrow(rows) : -1;
  fgTree.AddRows(std::move(rows));
  if (firstFind_ < 0) fgTree.SetOutline(explorer::ComponentLevel);
}

void udProjectExplorer::SaveCollapsedExpanded() {
  collapsed_.clear();
  collapsed_.reserve(static_cast<std::size_t>(fgTree.Rows()));
  for (int row = 0; row < fgTree.Rows(); ++row) {
    collapsed_.push_back(fgTree.RowAt(row).Collapsed ? 1 : 0);
  }
}

void udProjectExplorer::RestoreCollapsedExpanded() {
  if (collapsed_.size() != static_cast<std::size_t>(fgTree.Rows())) return;
  for (int row = 0; row < fgTree.Rows(); ++row) {
    fgTree.SetCollapsed(row, collapsed_[static_cast<std::size_t>(row)] != 0);
  }
}

bool udProjectExplorer::ConformityAllProject() {
  bool differs = false;
  Routine(u"udProjectExplorer.ConformityAllProject", [&] {
    const auto projects = Need(VBInstance).VBProjects();
    differs = projects && explorer::ProjectsDiffer(*projects_, *projects);
  });
  return differs;
}

/// The components of all projects: those that aren't active have rows as well. The selected one
/// needs no look of its own.
bool udProjectExplorer::ConformityComponent(StringView, StringView) {
  bool differs = false;
  Routine(u"udProjectExplorer.ConformityComponent", [&] {
    const auto projects = Need(VBInstance).VBProjects();
    differs = false;
    for (int index = 1; projects && !differs && index <= projects->Count(); ++index) {
      const auto project = projects->Item(index);
      const String caption = ProjectCaption(project).Caption;
      const auto known = explorer::FindProject(*projects_, caption);
      differs = known ? explorer::ComponentsDiffer(*known, *project) : !caption.empty();
    }
  });
  return differs;
}

udProjectExplorer::Conformity udProjectExplorer::ConformityActiveComponent(
    StringView project, const Component& component) {
  Conformity result = Conformity::Same;
  Routine(u"udProjectExplorer.ConformityActiveComponent", [&] {
    const auto known = explorer::FindProject(*projects_, project);
    const auto group = known ? explorer::FindGroup(*known, component->Type()) : nullptr;
    const auto entry = group ? explorer::FindComponent(*group, component->Name()) : nullptr;
    const auto module = ModuleOf(component);
    if (!entry) {
      // One that refuses its components has none here, and is no reason to ask it again.
      const auto owner = known ? ProjectOfCaption(project) : nullptr;
      const bool refuses = owner && !explorer::ComponentsDiffer(*known, *owner);
      result = refuses ? Conformity::Same : Conformity::Unknown;
    } else if (explorer::MembersDiffer(*entry, module)) {
      result = Conformity::OtherMembers;
    } else {
      result = Conformity::Same;
      // Lines that move no member are no reason for a reload later on.
      if (explorer::LinesDiffer(*entry, module)) RefreshMyComponent(project, component);
    }
  });
  return result;
}

/// Reads one component into the model again.
void udProjectExplorer::RefreshMyComponent(StringView project, const Component& component) {
  Routine(u"udProjectExplorer.RefreshMyComponent", [&] {
    const auto known = explorer::FindProject(*projects_, project);
    const auto group = known ? explorer::FindGroup(*known, component->Type()) : nullptr;
    const String name = component->Name();
    if (!group) return;
    group->item(name)->Clear();
    ProjectFiller::ProjectTree_Component(*projects_, known->Name, component);
  });
}

void udProjectExplorer::LoadParticleTree(StringView project, const Component& component) {
  Routine(u"udProjectExplorer.LoadParticleTree", [&](const Statements& run) {
    // Behind the reading nothing is asked that could keep its result from the rows.
    const String name = run([&] { return component->Name(); });
    const auto type = run([&] { return component->Type(); });
    if (name.empty() || type == 0) return;
    RefreshMyComponent(project, component);
    // What was typed above the tree may find other rows now.
    if (!words_.IsEmpty()) return PutRows(false);
    const auto known = explorer::FindProject(*projects_, project);
    const auto group = known ? explorer::FindGroup(*known, type) : nullptr;
    const auto entry = group ? explorer::FindComponent(*group, name) : nullptr;
    const int row = RowOfComponent(project, name);
    if (!entry || row < 0) return;
    const RedrawOff off(fgTree);
    PutMembers(row, explorer::MemberRows({*known, *group, *entry}, filter_));
  });
}

/// Gives a component's row other members. Those at both ends that are still the same keep their
/// rows.
void udProjectExplorer::PutMembers(int row, std::vector<GridRow> members) {
  const int first = row + 1;
  const auto shown = static_cast<std::size_t>(fgTree.EndOf(row) - first);
  const auto shownRow = [&](std::size_t at) -> const GridRow& {
    return fgTree.RowAt(first + static_cast<int>(at));
  };
  const std::size_t shorter = std::min(shown, members.size());
  std::size_t ahead = 0, behind = 0;
  while (ahead < shorter && IsSameMember(shownRow(ahead), members[ahead])) ++ahead;
  while (behind < shorter - ahead &&
         IsSameMember(shownRow(shown - 1 - behind), members[members.size() - 1 - behind])) {
    ++behind;
  }
  const auto place = static_cast<std::ptrdiff_t>(ahead);
  const auto end = static_cast<std::ptrdiff_t>(members.size() - behind);
  if (shown > ahead + behind) {
    fgTree.RemoveItems(first + static_cast<int>(ahead), static_cast<int>(shown - ahead - behind));
  }
  std::vector<GridRow> fresh(members.begin() + place, members.begin() + end);
  if (!fresh.empty()) fgTree.AddRows(std::move(fresh), first + static_cast<int>(ahead));
  ChangeColFgTree(first, members, 0, ahead);
  ChangeColFgTree(first, members, members.size() - behind, members.size());
}

/// Writes the first lines of members that have moved.
void udProjectExplorer::ChangeColFgTree(int first, const std::vector<GridRow>& members,
                                        std::size_t from, std::size_t to) {
  for (std::size_t at = from; at < to; ++at) {
    const int row = first + static_cast<int>(at);
    const vb::SharedText& line = members[at].Cells[explorer::LineColumn];
    if (fgTree.CellAt(row, explorer::LineColumn) != line) {
      fgTree.SetTextMatrix(row, explorer::LineColumn, line);
    }
  }
}

}  // namespace tessel
