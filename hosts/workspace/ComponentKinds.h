// The kinds of components and how files name them.
#pragma once

#include <filesystem>
#include <span>
#include <string_view>

#include "host/Types.h"

namespace tessel::workspace {

struct ComponentKind {
  host::vbext_ComponentType Type;
  std::string_view Extension;  ///< with its point; empty for kinds that are no text of ours
  std::string_view Key;        ///< in project files; empty where another kind's key stands for it
  bool Named;                  ///< "Key=Name; file" rather than "Key=file"
};

/// Each kind once; of two with one ending the first is meant where the text doesn't tell.
[[nodiscard]] std::span<const ComponentKind> ComponentKinds();
/// Null for a type that is none.
[[nodiscard]] const ComponentKind* KindOf(host::vbext_ComponentType type);
/// By the ending of a file's name, in any case; null for one that no component has.
[[nodiscard]] const ComponentKind* KindOf(const std::filesystem::path& file);
/// By the key of a line in a project file, in any case; null for another line's.
[[nodiscard]] const ComponentKind* KindOfKey(std::string_view key);
/// Whether components of the type hold code.
[[nodiscard]] bool HoldsCode(host::vbext_ComponentType type);

}  // namespace tessel::workspace
