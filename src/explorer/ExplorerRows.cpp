#include "explorer/ExplorerRows.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "projectmodel/ProjectTables.h"
#include "vb/Numbers.h"

namespace tessel::explorer {
namespace {

using forms::GridRow;

/// Component type of a document module, which only other hosts than this one have.
constexpr std::int32_t DocumentType = 100;

struct KindRow {
  int Kind, Picture;
  bool MemberFilter::*Shown;
};
constexpr KindRow Kinds[] = {
    {host::vbext_pk_Proc, 123, &MemberFilter::Method},
    {host::vbext_pk_Let, 121, &MemberFilter::Property},
    {host::vbext_pk_Set, 120, &MemberFilter::Property},
    {host::vbext_pk_Get, 122, &MemberFilter::Property},
    {MemberKindControlEvent, 129, &MemberFilter::Control},
};

const KindRow* KindOf(int kind) {
  const auto* const found = std::find_if(std::begin(Kinds), std::end(Kinds),
                                         [&](const KindRow& row) { return row.Kind == kind; });
  return found == std::end(Kinds) ? nullptr : found;
}

struct DocumentRow {
  std::int32_t HostCode;
  StringView Special;  ///< head of the names, or the name, that have a picture of their own
  bool IsHead;
  int SpecialPicture, Picture;
};
constexpr DocumentRow Documents[] = {
    {1, u"ThisWorkbook", false, 137, 141},
    {2, u"Form_", true, 139, 138},
    {5, u"", false, 140, 140},
    {6, u"", false, 136, 136},
    {7, u"", false, 142, 142},
    {8, u"ThisDrawing", false, 125, 143},
};
constexpr int OtherDocumentPicture = 125;

GridRow RowFor(Level level, int picture, StringView caption, StringView key,
               const cProjectes& project) {
  GridRow row;
  row.Level = level;
  row.Picture = picture;
  row.Cells.resize(ComponentColumn + 1);
  row.Cells[CaptionColumn] = caption;
  row.Cells[KeyColumn] = key;
  row.Cells[ProjectColumn] = project.VBProjectName;
  row.Cells[ViewColumn] = NothingToView;
  return row;
}

/// How the components of a type look; nothing for a type without rows.
struct Look {
  StringView Title;  ///< empty: the components stand below no group
  int Picture;
  bool HasObject;
};
std::optional<Look> LookOf(std::int32_t type) {
  if (const GroupRow* const group = GroupOfType(type)) {
    return Look{group->Title, group->Picture, group->HasDesigner};
  }
  if (type == DocumentType) return Look{u"", 0, true};
  return std::nullopt;
}

GridRow ComponentRow(const ComponentPlace& place, const Look& look) {
  const String group = GroupKey(place.Group.TypeComponent, place.Project.Name);
  const StringView name = place.Component.Name;
  const int picture =
      look.Picture != 0 ? look.Picture : DocumentPicture(place.Group.TypeExtendProject, name);
  GridRow row = RowFor(ComponentLevel, picture, name, group + u"." + String(name), place.Project);
  row.Cells[GroupColumn] = group;
  row.Cells[ViewColumn] = look.HasObject ? CodeAndObject : CodeOnly;
  row.Cells[ComponentColumn] = name;
  return row;
}

void AddMembers(std::vector<GridRow>& rows, const GridRow& component, const cComponentes& members,
                const MemberFilter& filter) {
  for (const auto& [key, member] : members) {
    const KindRow* const kind = KindOf(member->vbext);
    if (kind == nullptr || !(filter.*kind->Shown)) continue;
    GridRow row;
    row.Level = MemberLevel;
    row.Picture = kind->Picture;
    row.Cells.reserve(LineColumn + 1);
    row.Cells = component.Cells;
    row.Cells.resize(LineColumn + 1);
    row.Cells[CaptionColumn] = member->Name;
    row.Cells[KeyColumn] = member->NameAndType;
    row.Cells[LineColumn] = vb::Str(member->ProcStartLine);
    rows.push_back(std::move(row));
  }
}

void AddGroup(std::vector<GridRow>& rows, const cProjectes& project, const cTypeComponentes& group,
              const MemberFilter& filter) {
  const auto look = LookOf(group.TypeComponent);
  if (!look) return;
  if (!look->Title.empty()) {
    rows.push_back(RowFor(GroupLevel, look->Picture, look->Title,
                          GroupKey(group.TypeComponent, project.Name), project));
  }
  for (const auto& [key, component] : group) {
    const std::size_t at = rows.size();
    rows.push_back(ComponentRow({project, group, *component}, *look));
    const GridRow own = rows[at];
    AddMembers(rows, own, *component, filter);
  }
}

/// How many rows there are when each member has one.
std::size_t MostRowsOf(const cProjecteses& model) {
  std::size_t count = model.Count();
  for (const auto& [key, project] : model) {
    count += project->Count();
    for (const auto& [type, group] : *project) {
      count += group->Count();
      for (const auto& [name, component] : *group) count += component->Count();
    }
  }
  return count;
}

}  // namespace

bool MemberFilter::Shows(int kind) const {
  const KindRow* const row = KindOf(kind);
  return row != nullptr && this->*row->Shown;
}

String GroupKey(std::int32_t type, StringView project) {
  return vb::Str(type) + u"." + String(project);
}

int DocumentPicture(std::int32_t hostCode, StringView name) {
  for (const DocumentRow& row : Documents) {
    if (row.HostCode != hostCode) continue;
    const bool special = row.IsHead ? name.starts_with(row.Special) : name == row.Special;
    return special ? row.SpecialPicture : row.Picture;
  }
  return OtherDocumentPicture;
}

std::vector<GridRow> RowsOf(const cProjecteses& model, const MemberFilter& filter) {
  std::vector<GridRow> rows;
  rows.reserve(MostRowsOf(model));
  for (const auto& [key, project] : model) {
    rows.push_back(
        RowFor(ProjectLevel, project->IcoProject, project->Name, project->Name, *project));
    for (const auto& [type, group] : *project) AddGroup(rows, *project, *group, filter);
  }
  return rows;
}

std::vector<GridRow> MemberRows(const ComponentPlace& place, const MemberFilter& filter) {
  std::vector<GridRow> rows;
  rows.reserve(place.Component.Count());
  if (const auto look = LookOf(place.Group.TypeComponent)) {
    AddMembers(rows, ComponentRow(place, *look), place.Component, filter);
  }
  return rows;
}

}  // namespace tessel::explorer
