// Projects on disk behind the host interface.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "hosts/model/Environment.h"
#include "vb/Failure.h"

namespace tessel::workspace {

/// How files are read and written.
struct Options {
  /// Code page of files that have no byte order mark: 1252, 1251, 932, 65001 ...; 0 guesses for
  /// each project from its bytes.
  int CodePage = 0;
  /// A component that can't be loaded is left out and its failure kept in `Problems`; otherwise it
  /// is the failure of `Open`.
  bool SkipBadComponents = false;
};

/// The environment over project files. A load followed by a save changes no byte; every file keeps
/// its line ends, code page, byte order mark and last line end; what is not understood stays as it
/// is. Failures are vb::Failure whose description names the file, and the line where there is one.
class Workspace : public model::Environment {
 public:
  explicit Workspace(platform::Platform& platform, Options options = {});
  ~Workspace() override;

  /// Opens a project (.vbp), a group (.vbg), or one component file in a project of its own that is
  /// never written. What fails to open leaves nothing behind.
  void Open(const std::filesystem::path& file);
  /// Opens one component whose bytes are at hand, as if they stood in that file.
  void OpenText(const std::filesystem::path& file, std::string bytes);
  /// Failures of the components that were left out.
  [[nodiscard]] const std::vector<vb::Failure>& Problems() const;

  /// Writes every changed file, each to a temporary file beside it that is flushed and renamed over
  /// it. All texts are encoded before the first file is touched. Answers the files written.
  std::vector<std::filesystem::path> Save();
  /// The files that `Save` would write.
  [[nodiscard]] std::vector<std::filesystem::path> ChangedFiles() const;
  /// Gives a project that was never saved its file (.vbp) and its components theirs beside it, and
  /// writes them all. Fails, changing nothing, when it has a file or one of the files exists.
  std::vector<std::filesystem::path> SaveProjectAs(StringView project,
                                                   const std::filesystem::path& file);
  /// Closes a project; what wasn't saved is lost.
  void Close(StringView project);
  /// Takes a component from its file again; its changes are lost.
  void Reload(StringView project, StringView component);
  /// The file of a component; empty when it has none yet.
  [[nodiscard]] std::filesystem::path FileOf(StringView project, StringView component) const;
  /// The code page of a component's file.
  [[nodiscard]] int CodePageOf(StringView project, StringView component) const;
  [[nodiscard]] bool IsModified(StringView project, StringView component) const;

  /// Writes one component; no effect when it is unchanged.
  void SaveComponent(StringView project, StringView component);

  /// The bytes that `Save` would write for a component.
  [[nodiscard]] std::string Bytes(StringView project, StringView component) const;
  /// The bytes that its file has now.
  [[nodiscard]] std::string StoredBytes(StringView project, StringView component) const;
  /// Line of the stored file (from 1) where a line of the component's code module stands.
  [[nodiscard]] int FileLine(StringView project, StringView component, int codeLine) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tessel::workspace
