// The rows of the Explorer's tree, made from the model of what is open.
#pragma once

#include <vector>

#include "forms/Grid.h"
#include "projectmodel/cProjecteses.h"

namespace tessel::explorer {

/// Levels of the outline.
enum Level : int { ProjectLevel = 0, GroupLevel = 1, ComponentLevel = 2, MemberLevel = 3 };

/// Columns of the tree; all but the caption are hidden.
enum Column : int {
  CaptionColumn = 0,
  /// A project's caption; type number, dot and project key of a group; that, a dot and the
  /// component's name; name and kind of a member.
  KeyColumn = 1,
  ProjectColumn = 2,  ///< the project's name
  GroupColumn = 3,    ///< key of the group, on components and members
  /// "0": only code can be shown, "1": an object as well, "2": nothing.
  ViewColumn = 4,
  ComponentColumn = 5,  ///< on components and members
  LineColumn = 8,       ///< first line of a member
  Columns = 12,
};
inline constexpr StringView CodeOnly = u"0", CodeAndObject = u"1", NothingToView = u"2";

/// Which members have rows.
struct MemberFilter {
  bool Property = true, Method = true, Control = true;
  [[nodiscard]] bool Shows(int kind) const;
};

/// Key of a group of one type within a project of that caption.
[[nodiscard]] String GroupKey(std::int32_t type, StringView project);

/// What the rows of one component are made of. A component whose type makes no group has no rows,
/// but for the documents of other hosts.
struct ComponentPlace {
  const cProjectes& Project;
  const cTypeComponentes& Group;
  const cComponentes& Component;
};

/// The rows of everything, projects first.
[[nodiscard]] std::vector<forms::GridRow> RowsOf(const cProjecteses& model,
                                                 const MemberFilter& filter);
/// The rows below a component's own.
[[nodiscard]] std::vector<forms::GridRow> MemberRows(const ComponentPlace& place,
                                                     const MemberFilter& filter);
/// Picture of a document by the code of the host that it belongs to.
[[nodiscard]] int DocumentPicture(std::int32_t hostCode, StringView name);

}  // namespace tessel::explorer
