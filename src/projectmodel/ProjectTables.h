// Captions, codes and picture numbers of projects and groups.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "host/Project.h"

namespace tessel {

struct ProjectTexts {
  /// The project's name and, when it has a file, that file's name in brackets.
  String Caption;
  /// Full path; empty for a project that was never saved.
  String FileName;
};
/// Two empty texts for an absent project. Failures of the host go to the caller.
[[nodiscard]] ProjectTexts ProjectCaption(const std::shared_ptr<host::VBProject>& project);

/// Picture number of a project by its type.
[[nodiscard]] std::int32_t ProjectPicture(std::int32_t projectType);

/// The application that holds the environment, by the base name of its executable, compared
/// exactly.
struct HostRow {
  StringView Name;
  /// Goes into `cTypeComponentes::TypeExtendProject`.
  std::int32_t Code;
  /// Picture of the application's documents and of its special document; 0 leaves the picture that
  /// was there.
  std::int32_t Picture, DocumentPicture;
};
[[nodiscard]] const HostRow& HostByName(StringView name);

/// A group's node in a tree of components.
struct GroupRow {
  host::vbext_ComponentType Type;
  StringView Title;
  std::int32_t Picture;
  /// Its components can be shown as objects.
  bool HasDesigner;
};
/// Nothing for a type that makes no group.
[[nodiscard]] const GroupRow* GroupOfType(std::int32_t componentType);

}  // namespace tessel
