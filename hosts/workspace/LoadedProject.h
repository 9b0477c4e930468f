// One project and the files that it is kept in.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/files/Transaction.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/ComponentFile.h"
#include "hosts/workspace/ProjectFile.h"
#include "hosts/workspace/ProjectPage.h"
#include "vb/Failure.h"

namespace tessel::workspace {

/// A component or project that could not be loaded, and why. Its line stays in the project file.
struct Problem : vb::Failure {
  Problem(const vb::Failure& failure, std::filesystem::path file)
      : vb::Failure(failure), File(std::move(file)) {}
  std::filesystem::path File;
  std::weak_ptr<model::VBProject> Project;  ///< whose component it is; none for a project
  String Component;                         ///< its name as far as it is known
  host::vbext_ComponentType Type = host::vbext_ct_StdModule;
};

/// A file to be written, and what is to be told once it is.
struct PendingFile {
  files::Change Change;
  std::function<void(const std::string& bytes)> Written;
};

class LoadedProject : public std::enable_shared_from_this<LoadedProject> {
 public:
  /// Reads a project and everything that it names, without telling anybody yet. `codePage` is that
  /// of files without a byte order mark, 0 to find out. Components that can't be loaded become
  /// problems; a failure of the project file itself is one of the call.
  [[nodiscard]] static std::shared_ptr<LoadedProject> Load(const std::shared_ptr<model::Vbe>& vbe,
                                                           const std::filesystem::path& file,
                                                           int codePage);
  /// A project around one component with these bytes; never written itself.
  [[nodiscard]] static std::shared_ptr<LoadedProject> LoadSingle(
      const std::shared_ptr<model::Vbe>& vbe, const std::filesystem::path& file, std::string bytes,
      int codePage);
  /// Gives a project that has no files a file of its own and its components theirs beside it.
  /// Fails, changing nothing, when one of those exists.
  [[nodiscard]] static std::shared_ptr<LoadedProject> Found(
      const std::shared_ptr<model::VBProject>& project, const std::filesystem::path& file,
      int codePage);

  /// From now on new components get files and the project's lines follow those that go.
  void Attach();
  /// Adds the files that a save has to write, all encoded. Fails, changing nothing on the disk.
  void Collect(std::vector<PendingFile>& pending);
  /// As `Collect` for one component and, where its line changes, the project.
  void Collect(model::VBComponent& component, std::vector<PendingFile>& pending);
  /// The files that `Collect` would give.
  [[nodiscard]] std::vector<std::filesystem::path> ChangedFiles() const;
  /// The files as they lie on the disk are what the user wants to be overwritten.
  void AcceptOutside();

  [[nodiscard]] const std::shared_ptr<model::VBProject>& Project() const { return project_; }
  /// Null for one that is never written.
  [[nodiscard]] ProjectFile* File() const { return file_.get(); }
  /// The bytes that the project file is known to have on the disk; nothing: there is no file.
  [[nodiscard]] std::optional<std::string> KnownBytes() const;
  /// Where the project lies, or its only component.
  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }
  [[nodiscard]] const std::vector<Problem>& Problems() const { return problems_; }

 private:
  struct Entry {
    int Id = 0;
    std::filesystem::path File;
    String Name;  ///< that the project file was told last
  };
  using Entries = std::map<const model::VBComponent*, Entry>;

  LoadedProject(std::filesystem::path folder, int codePage, bool isChosen)
      : folder_(std::move(folder)), page_(codePage, isChosen), isChosen_(isChosen) {}
  void LoadComponents(const std::shared_ptr<model::Vbe>& vbe);
  void AddProblem(const vb::Failure& failure, const ProjectEntry& entry,
                  const std::filesystem::path& file);
  void Added(const std::shared_ptr<model::VBComponent>& component);
  void Removed(const model::VBComponent& component);
  void FollowRemoved(const model::VBComponent& component, const String& name);
  std::shared_ptr<model::VBComponent> Import(StringView fileName);
  [[nodiscard]] std::filesystem::path FreePath(const model::VBComponent& component,
                                               const std::vector<PendingFile>& pending) const;
  void Follow(const model::VBComponent& component, ProjectFile& file, Entries& entries) const;
  [[nodiscard]] std::string InCodePage(StringView text) const;
  void CollectComponent(const std::shared_ptr<model::VBComponent>& component,
                        std::vector<PendingFile>& pending);
  static void CollectCarried(const ComponentFile& file, std::vector<PendingFile>& pending);
  void CollectFile(std::vector<PendingFile>& pending);

  std::filesystem::path folder_;
  std::shared_ptr<model::VBProject> project_;
  std::unique_ptr<ProjectFile> file_;
  ProjectPage page_;
  bool isChosen_;  // somebody said the code page
  Entries entries_;
  std::vector<std::filesystem::path> named_;        // by lines whose components aren't loaded
  std::optional<std::optional<std::string>> seen_;  // of the project file, as ComponentFile has it
  std::vector<Problem> problems_;
};

/// The file of a component; null when it has none.
[[nodiscard]] std::shared_ptr<ComponentFile> FileOf(const model::VBComponent& component);

}  // namespace tessel::workspace
