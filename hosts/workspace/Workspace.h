// Projects on disk behind the host interface.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/model/Environment.h"
#include "hosts/workspace/LoadedProject.h"
#include "vb/Failure.h"

namespace tessel::workspace {

/// How files are read and written.
struct Options {
  /// Code page of files that have no byte order mark: 1252, 1251, 932, 65001 ...; 0 finds out for
  /// each project from its bytes and the names of its files.
  int CodePage = 0;
  /// Nothing is to be written: interrupted saves and strays stay as they are.
  bool ReadsOnly = false;
};

/// Number of the failure of a save where a file was changed by another program since it was read.
inline constexpr std::int32_t ChangedOutside = 32861;

/// The environment over project files. A load followed by a save changes no byte; every file keeps
/// its line ends, code page, byte order mark and last line end; what is not understood stays as it
/// is. Failures are vb::Failure whose description names the file, and the line where there is one.
/// Components and projects are known by the object: names need not be unique.
class Workspace : public model::Environment {
 public:
  explicit Workspace(platform::Platform& platform, Options options = {});
  ~Workspace() override;

  /// Opens a project (.vbp), a group (.vbg), or one component file in a project of its own that is
  /// never written. Components that can't be loaded, and projects of a group, become problems; the
  /// rest opens. What fails to open leaves nothing behind. A save that was interrupted in the
  /// folder is finished first, unless nothing is to be written. `codePage` as in Options, for these
  /// files alone. Answers the problems.
  std::vector<Problem> Open(const std::filesystem::path& file, int codePage = 0);
  /// Opens one component whose bytes are at hand, as if they stood in that file.
  void OpenText(const std::filesystem::path& file, std::string bytes);
  /// What of the open projects could not be loaded. The lines stay in the project files.
  [[nodiscard]] std::vector<Problem> Problems() const;
  /// What the user is to know of interrupted saves, finished or still there, a sentence each.
  /// Answers and forgets them.
  [[nodiscard]] std::vector<String> TakeNotices();

  /// Writes every changed file; of each project all or none. All texts are encoded and all files
  /// looked at before the first is touched. Fails with ChangedOutside, writing nothing, when a file
  /// doesn't have the bytes that were read and says which and how. Answers the files written.
  std::vector<std::filesystem::path> Save();
  /// Writes one component, and its project's file where its line changes; no effect when it is
  /// unchanged. Fails as `Save` does.
  void SaveComponent(const host::VBComponent& component);
  /// Files of the project that were changed outside are to be overwritten by the next save.
  void AcceptOutside(const std::shared_ptr<model::VBProject>& project);
  /// The same for the file of one component.
  void AcceptOutside(const host::VBComponent& component);
  /// The bytes that a project's file is known to have on the disk; nothing for a project without a
  /// file, or when the user has seen that it is gone.
  [[nodiscard]] std::optional<std::string> KnownBytes(const model::VBProject& project) const;
  /// The files that `Save` would write.
  [[nodiscard]] std::vector<std::filesystem::path> ChangedFiles() const;
  /// Gives a project that was never saved its file (.vbp) and its components theirs beside it, and
  /// writes them all. Fails, changing nothing, when it has a file or one of the files exists.
  std::vector<std::filesystem::path> SaveProjectAs(const std::shared_ptr<model::VBProject>& project,
                                                   const std::filesystem::path& file);
  /// Closes a project; what wasn't saved is lost.
  void Close(const std::shared_ptr<model::VBProject>& project);
  /// Takes a component from its file again; its changes are lost.
  void Reload(const host::VBComponent& component);

  /// The file of a component; empty when it has none yet.
  [[nodiscard]] std::filesystem::path FileOf(const host::VBComponent& component) const;
  /// The code page of a component's file.
  [[nodiscard]] int CodePageOf(const host::VBComponent& component) const;
  [[nodiscard]] bool IsModified(const host::VBComponent& component) const;
  /// The bytes that `Save` would write for a component.
  [[nodiscard]] std::string Bytes(const host::VBComponent& component) const;
  /// The bytes that were read from its file or written to it last; empty for a new one.
  [[nodiscard]] std::string StoredBytes(const host::VBComponent& component) const;
  /// Line of the stored file (from 1) where a line of the component's code module stands.
  [[nodiscard]] int FileLine(const host::VBComponent& component, int codeLine) const;

 private:
  using ProjectPtr = std::shared_ptr<LoadedProject>;
  [[nodiscard]] ProjectPtr Find(const model::VBProject* project) const;
  [[nodiscard]] std::vector<ProjectPtr> Load(const std::filesystem::path& file, int codePage,
                                             std::vector<Problem>& problems);
  [[nodiscard]] std::vector<ProjectPtr> LoadGroup(const std::filesystem::path& file, int codePage,
                                                  std::vector<Problem>& problems);
  void Show(const std::vector<ProjectPtr>& loaded);
  void FinishInterrupted(const std::filesystem::path& folder);
  void RemoveStraysOf(model::VBProject& project) const;
  std::vector<std::filesystem::path> Write(const std::filesystem::path& folder,
                                           std::vector<PendingFile>& pending);

  Options options_;
  std::vector<ProjectPtr> projects_;
  std::vector<Problem> groupProblems_;
  std::vector<String> notices_;
};

}  // namespace tessel::workspace
