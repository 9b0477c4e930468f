// A project's own file (.vbp): key and value lines.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Types.h"

namespace tessel::workspace {

/// A component as the project names it.
struct ProjectEntry {
  std::size_t Line = 0;  ///< from 0
  host::vbext_ComponentType Type = host::vbext_ct_StdModule;
  std::string Name;  ///< in bytes; only modules and classes have it here
  std::string File;  ///< as written, in bytes
};

/// Keeps every line as it is; a change touches its own line only.
class ProjectFile {
 public:
  ProjectFile(std::filesystem::path path, const std::string& bytes);

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] std::vector<ProjectEntry> Entries() const;
  /// The value of a key, without quotes; nothing when it isn't there.
  [[nodiscard]] std::optional<std::string> Value(std::string_view key) const;
  [[nodiscard]] host::vbext_ProjectType Type() const;
  [[nodiscard]] std::string Bytes() const;
  [[nodiscard]] bool IsModified() const { return modified_; }
  void Stored() { modified_ = false; }

  /// Names a component, with its file relative to the project ("\" between folders).
  void AddEntry(host::vbext_ComponentType type, const std::string& name, const std::string& file);
  /// Changes the name on the line of a file; no effect on kinds that carry no name here.
  void RenameEntry(const std::string& file, const std::string& name);
  void RemoveEntry(const std::string& file);

 private:
  std::filesystem::path path_;
  std::vector<std::string> lines_;  // with their line ends
  bool modified_ = false;
};

/// The projects that a group file (.vbg) names, as written.
[[nodiscard]] std::vector<std::string> ReadGroup(std::string_view bytes);

/// Finds a file named as on the other system: "\" or "/" between folders, any case. The path as
/// written when there is none.
[[nodiscard]] std::filesystem::path ResolvePath(const std::filesystem::path& folder,
                                                const std::filesystem::path& written);

}  // namespace tessel::workspace
