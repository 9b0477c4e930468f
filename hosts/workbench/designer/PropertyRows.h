// The lines of the properties window.
#pragma once

#include <vector>

#include "hosts/model/Component.h"
#include "hosts/workbench/designer/PropertyValues.h"

namespace tessel::workbench {

/// One property of what is shown.
struct PropertyRow {
  String Name;
  ValueKind Kind = ValueKind::Plain;
  Choices List;
  String Raw;    ///< as the file has it; empty when it doesn't
  String Shown;  ///< empty for several objects that differ
  bool InFile = false;
  bool IsName = false;  ///< the name itself, which isn't in the bag

  [[nodiscard]] bool ReadOnly() const {
    return Kind == ValueKind::Binary || Kind == ValueKind::Object;
  }
  bool operator==(const PropertyRow& other) const {
    return Name == other.Name && Kind == other.Kind && Shown == other.Shown &&
           InFile == other.InFile;
  }
};

/// The property that the name is shown as.
inline constexpr StringView NameProperty = u"(Name)";

/// What a block has and can have, by the alphabet, the name first.
[[nodiscard]] std::vector<PropertyRow> RowsOf(const model::DesignerNode& node);

/// What several blocks have in common; values that differ are empty.
[[nodiscard]] std::vector<PropertyRow> RowsOf(const std::vector<model::DesignerNode*>& nodes);

/// The bag that the host gives a component without a designer.
[[nodiscard]] std::vector<PropertyRow> RowsOf(host::VBComponent& component);

}  // namespace tessel::workbench
