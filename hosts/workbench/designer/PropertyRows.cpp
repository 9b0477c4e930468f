#include "hosts/workbench/designer/PropertyRows.h"

#include <algorithm>
#include <unordered_set>

#include "host/Designer.h"
#include "hosts/workbench/designer/Placement.h"
#include "hosts/workbench/designer/Values.h"
#include "hosts/workbench/designer/WindowPlace.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr StringView BeginWord = u"BeginProperty";

PropertyRow NameRow(StringView name) {
  PropertyRow row;
  row.Name = NameProperty;
  row.Kind = ValueKind::Text;
  row.Raw = row.Shown = name;
  row.InFile = row.IsName = true;
  return row;
}

PropertyRow FileRow(const model::DesignerNode& node, StringView property) {
  PropertyRow row;
  row.Name = property;
  row.Raw = node.RawValue(property).value_or(String());
  row.Kind = KindOf(node, property, row.Raw);
  row.List = ChoicesOf(node.Class, property);
  row.Shown = ShownValue(row.Kind, row.List, row.Raw);
  row.InFile = true;
  return row;
}

/// The window's place in the stead of the body's, which the file keeps.
PropertyRow WindowPlaceRow(const model::DesignerNode& root, StringView property) {
  PropertyRow row;
  row.Name = property;
  row.Kind = ValueKind::Number;
  if (const auto twips = WindowPlace(root, property)) {
    row.Raw = row.Shown = TwipsText(*twips);
    row.InFile = true;
  }
  return row;
}

PropertyRow MissingRow(const model::DesignerNode& node, StringView property) {
  PropertyRow row;
  row.Name = property;
  row.Kind = KnownKind(node.Class, property);
  row.List = ChoicesOf(node.Class, property);
  row.Shown = DefaultValue(node.Class, property);
  return row;
}

/// "BeginProperty Font {...}" as an object that is shown only; empty name for another line.
PropertyRow ObjectRow(const model::DesignerNode& node, StringView line) {
  PropertyRow row;
  row.Kind = ValueKind::Object;
  row.InFile = true;
  const QString text = ToQt(line).trimmed();
  if (!text.startsWith(ToQt(BeginWord), Qt::CaseInsensitive)) return row;
  row.Name = FromQt(text.section(u' ', 1, 1, QString::SectionSkipEmpty));
  row.Shown = u"(Object)";
  if (!vb::SameText(row.Name, u"Font")) return row;
  const FontValue font = FontOf(node);
  row.Shown = FromQt(QStringLiteral("%1, %2").arg(font.Name).arg(font.Points));
  return row;
}

void SortByName(std::vector<PropertyRow>& rows) {
  std::sort(rows.begin(), rows.end(), [](const PropertyRow& one, const PropertyRow& other) {
    if (one.IsName != other.IsName) return one.IsName;
    return vb::StrComp(one.Name, other.Name) < 0;
  });
}

/// "Left" for the "ClientLeft" of an outermost block; any other name as it is.
StringView PlaceName(const model::DesignerNode& node, StringView property) {
  const StringView window = WindowProperty(property);
  return node.Parent == nullptr && IsWindowPlace(node, window) ? window : property;
}

/// Rows of the lines that a block has, each name once.
std::vector<PropertyRow> RowsInFile(const model::DesignerNode& node,
                                    std::unordered_set<String>& seen) {
  std::vector<PropertyRow> rows;
  int depth = 0;
  for (const auto& item : node.Items) {
    if (item.Child) continue;
    PropertyRow row;
    if (!item.PropertyName.empty()) {
      row = IsWindowPlace(node, PlaceName(node, item.PropertyName))
                ? WindowPlaceRow(node, PlaceName(node, item.PropertyName))
                : FileRow(node, item.PropertyName);
    } else {
      const QString line = ToQt(item.Line).trimmed();
      if (depth == 0) row = ObjectRow(node, item.Line);
      if (line.startsWith(u"BeginProperty", Qt::CaseInsensitive)) ++depth;
      if (line.startsWith(u"EndProperty", Qt::CaseInsensitive)) depth = std::max(0, depth - 1);
    }
    if (!row.Name.empty() && seen.insert(vb::LCase(row.Name)).second) {
      rows.push_back(std::move(row));
    }
  }
  return rows;
}

/// Leaves the rows that another object has as well; where the values differ, none is shown.
void KeepCommon(std::vector<PropertyRow>& rows, const std::vector<PropertyRow>& others) {
  std::vector<PropertyRow> common;
  for (PropertyRow& row : rows) {
    const auto same = std::find_if(others.begin(), others.end(), [&](const PropertyRow& other) {
      return vb::SameText(other.Name, row.Name) && other.Kind == row.Kind;
    });
    if (same == others.end()) continue;
    if (same->Shown != row.Shown) row.Shown.clear();
    common.push_back(std::move(row));
  }
  rows = std::move(common);
}

}  // namespace

std::vector<PropertyRow> RowsOf(const model::DesignerNode& node) {
  std::unordered_set<String> seen;
  std::vector<PropertyRow> rows = RowsInFile(node, seen);
  rows.push_back(NameRow(node.Name));
  for (const StringView property : CommonProperties(node.Class)) {
    const StringView name = PlaceName(node, property);
    if (seen.insert(vb::LCase(name)).second) rows.push_back(MissingRow(node, name));
  }
  SortByName(rows);
  return rows;
}

std::vector<PropertyRow> RowsOf(const std::vector<model::DesignerNode*>& nodes) {
  if (nodes.empty()) return {};
  std::vector<PropertyRow> common = RowsOf(*nodes.front());
  if (nodes.size() == 1) return common;
  std::erase_if(common, [](const PropertyRow& row) { return row.IsName || row.ReadOnly(); });
  for (std::size_t at = 1; at < nodes.size(); ++at) KeepCommon(common, RowsOf(*nodes[at]));
  return common;
}

std::vector<PropertyRow> RowsOf(host::VBComponent& component) {
  std::vector<PropertyRow> rows;
  const auto bag = component.Properties();
  for (int at = 1; at <= bag->Count(); ++at) {
    const auto property = bag->Item(at);
    if (vb::SameText(property->Name(), u"Name")) {
      rows.push_back(NameRow(property->Value()));
      continue;
    }
    PropertyRow row;
    row.Name = property->Name();
    row.Raw = row.Shown = property->Value();
    row.InFile = true;
    rows.push_back(std::move(row));
  }
  SortByName(rows);
  return rows;
}

}  // namespace tessel::workbench
