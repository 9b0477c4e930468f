// Keeps unsaved work where a crash or a kill can't take it.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <memory>

#include "hosts/model/Component.h"
#include "hosts/workbench/window/LockFile.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

/// One component whose text or designer wasn't saved.
struct RecoveredComponent {
  String Name;
  String File;  ///< where it is kept or was to be kept; empty without one
  host::vbext_ComponentType Type = host::vbext_ct_StdModule;
  String Code;  ///< all lines, separated by CR LF
  String Head;  ///< the designer's text, empty for a component without one
};

struct RecoveredProject {
  String Name;
  QString File;  ///< empty for a project without a file of its own
  host::vbext_ProjectType Type = host::vbext_pt_StandardExe;
  std::vector<RecoveredComponent> Components;
};

/// What an earlier run that ended without closing left. Nobody else is offered it meanwhile.
struct RecoveredWork {
  QString File;  ///< the recovery file itself
  QString Time;
  std::vector<RecoveredProject> Projects;
  std::shared_ptr<LockFile> Lock;

  /// Takes the recovery file away.
  void Discard() const;
};

/// The unsaved state of an environment. Texts are kept as texts, so also what the file's code page
/// could not hold is safe.
[[nodiscard]] QJsonObject UnsavedWork(const workspace::Workspace& workspace);
/// Fails with a vb::Failure that names what is missing.
[[nodiscard]] RecoveredWork ReadWork(const QJsonObject& work);

/// One file for each running workbench in a folder, under a name that no other ever bears. A file
/// whose lock nobody holds was left by a crash.
class RecoveryFile {
 public:
  explicit RecoveryFile(const QString& folder);

  /// Replaces the file by a complete new one, or removes it when there is nothing to keep. False
  /// when it couldn't be written; what was kept before is still there then.
  bool Write(const QJsonObject& work);
  void Remove();
  [[nodiscard]] const QString& Folder() const { return folder_; }
  /// Left by others that run no more. Files that can't be read are passed over.
  [[nodiscard]] std::vector<RecoveredWork> Left() const;

 private:
  QString folder_, name_;
  std::shared_ptr<LockFile> lock_;  // from the first writing on
};

/// The files that must be open ahead of `Restore`: projects, and components that have none.
[[nodiscard]] QStringList FilesOf(const RecoveredWork& work);
/// Brings recovered work into an environment in which its files are open already. Answers the names
/// of the components that have no place there any more.
[[nodiscard]] QStringList Restore(workspace::Workspace& workspace, const RecoveredWork& work);

}  // namespace tessel::workbench
