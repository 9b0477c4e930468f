// Opening, saving and closing in the main window, with all that is asked of the user meanwhile.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "hosts/model/Vbe.h"
#include "hosts/workbench/window/Questions.h"
#include "hosts/workbench/window/Recovery.h"
#include "hosts/workbench/window/Settings.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

/// The files of one workspace as its window treats them. What fails is shown; the answers say
/// whether it was done, which it isn't when the user cancelled either.
class ProjectFiles {
 public:
  /// Nothing is owned. `recoveryFolder` keeps unsaved work.
  ProjectFiles(workspace::Workspace& workspace, Questions& questions, Settings& settings,
               const QString& recoveryFolder);

  /// Called ahead of everything that reads texts to write them.
  std::function<void()> BeforeSaving;
  /// Files hold what the model does, or projects came or went.
  std::function<void()> OnChanged;
  /// The user made a new component.
  std::function<void(const std::shared_ptr<model::VBComponent>&)> OnNew;
  /// Unsaved work could not be written; told once until it can.
  std::function<void()> OnNotKept;
  /// Runs edits that belong together.
  std::function<void(const std::function<void()>&)> RunTool;

  /// `codePage` is that of files without a byte order mark; 0 finds out.
  bool Open(const QString& file, int codePage = 0);
  /// Opens a project again with its files read in another code page.
  bool OpenAgain(const std::shared_ptr<model::VBProject>& project, int codePage);
  void AskForFile();
  /// Opens a file of the list of recent ones in the place of what is open.
  void OpenRecent(const QString& file);
  void NewProject(host::vbext_ProjectType type);
  bool SaveAll();
  bool Save(const std::shared_ptr<model::VBComponent>& component);
  void SaveAs(const std::shared_ptr<model::VBComponent>& component);
  void Remove(const std::shared_ptr<model::VBComponent>& component);
  void Rename(const std::shared_ptr<model::VBComponent>& component);
  /// Both ask about unsaved changes of what they close.
  bool CloseAll();
  bool Close(const std::shared_ptr<model::VBProject>& project);

  /// Offers what a run that ended without closing left.
  void OfferRecovery();
  /// Writes unsaved work where a crash can't take it; drops it when there is none.
  void KeepWork();
  void ForgetWork() { recovery_.Remove(); }
  [[nodiscard]] const QString& RecoveryFolder() const { return recovery_.Folder(); }
  /// Whether anything isn't in its file.
  [[nodiscard]] bool IsUnsaved() const;

 private:
  using Projects = std::vector<std::shared_ptr<model::VBProject>>;
  [[nodiscard]] Projects All() const;
  /// Runs a saving; where files were changed by another program the user is told how, and asked
  /// whether to overwrite them.
  bool Write(const std::function<void()>& save, const std::function<void()>& accept);
  bool SaveThese(const Projects& projects);
  bool MaySaveChanges(const Projects& projects);
  bool SaveUnnamed(const Projects& projects);
  /// Opens one thing in the place of others, which stay when that fails.
  bool Replace(Projects before, const std::function<bool()>& open);
  void CloseUnasked(Projects projects);
  /// Whether a project or a component in a project of its own is open from that file.
  [[nodiscard]] bool IsOpen(const QString& file) const;
  void Restore(const RecoveredWork& work);
  void Changed();

  workspace::Workspace& workspace_;
  std::shared_ptr<model::Vbe> vbe_;
  Questions& questions_;
  Settings& settings_;
  RecoveryFile recovery_;
  bool isKept_ = true;  // the last writing of unsaved work went well
};

}  // namespace tessel::workbench
