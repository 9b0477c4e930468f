// The kinds of components as the wizard that stores them knows them.
#pragma once

#include <span>

#include "host/Types.h"
#include "vb/Text.h"

namespace tessel {

/// A group of components, in the wizard's order.
struct ComponentGroup {
  host::vbext_ComponentType Type;
  /// Above the components on the wizard's first page; of the folder that is made for them.
  StringView Title, FolderTitle;
  /// Of the file that a component is stored from.
  StringView Extension;
};
[[nodiscard]] std::span<const ComponentGroup> ComponentGroups();
/// Nothing for a type that can't be stored.
[[nodiscard]] const ComponentGroup* ComponentGroupOf(int type);

/// Where a component stands among what is open, counted from 1, and its type.
struct ComponentKey {
  int Project = 0, Component = 0, Type = 0;
  bool operator==(const ComponentKey&) const = default;
};
/// "Project.Component.Type".
[[nodiscard]] String JoinComponentKey(const ComponentKey& key);
/// Zeros for what is missing.
[[nodiscard]] ComponentKey SplitComponentKey(const String& text);

}  // namespace tessel
