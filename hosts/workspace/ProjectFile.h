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
  int Id = 0;            ///< of its line, for as long as the project is open
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
  /// The bytes that the file has; empty for one that was never written.
  [[nodiscard]] const std::string& StoredBytes() const { return stored_; }
  [[nodiscard]] bool IsModified() const { return Bytes() != stored_; }
  /// These bytes now stand in the file.
  void Stored(std::string bytes) { stored_ = std::move(bytes); }

  /// Names a component, with its file relative to the project ("\" between folders), behind the
  /// components that are there. Answers the line's number as `ProjectEntry::Id`.
  int AddEntry(host::vbext_ComponentType type, const std::string& name, const std::string& file);
  /// Changes the name on a component's line; no effect on kinds that carry no name here.
  void SetEntryName(int id, const std::string& name);
  void SetEntryFile(int id, const std::string& file);
  void RemoveEntry(int id);
  /// Changes the value of a key that is there; quotes stay.
  void SetValue(std::string_view key, const std::string& value);
  /// Takes the line of a key away; no effect when there is none.
  void RemoveValue(std::string_view key);

 private:
  struct Line {
    int Id;
    std::string Text;  // with its line end
  };
  [[nodiscard]] const Line* FindKey(std::string_view key) const;
  [[nodiscard]] std::optional<ProjectEntry> Find(int id) const;
  /// Index of the line behind the last component's.
  [[nodiscard]] std::size_t BehindEntries() const;

  std::filesystem::path path_;
  std::vector<Line> lines_;
  int nextId_ = 1;
  std::string padding_;  // NUL bytes behind the last line
  std::string stored_;
};

/// The projects that a group file (.vbg) names, as written.
[[nodiscard]] std::vector<std::string> ReadGroup(std::string_view bytes);

}  // namespace tessel::workspace
