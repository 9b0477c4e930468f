// Keeps unsaved work where a crash or a kill can't take it.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <memory>

#include "hosts/model/Component.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

/// One component whose text or designer wasn't saved.
struct RecoveredComponent {
  String Name;
  host::vbext_ComponentType Type = host::vbext_ct_StdModule;
  String Code;  ///< all lines, separated by CR LF
  String Head;  ///< the designer's text, empty for a component without one
};

struct RecoveredProject {
  String Name;
  QString File;  ///< empty for a project that was never saved
  host::vbext_ProjectType Type = host::vbext_pt_StandardExe;
  std::vector<RecoveredComponent> Components;
};

/// What an earlier run that ended without closing left.
struct RecoveredWork {
  QString File;  ///< the recovery file itself
  QString Time;
  std::vector<RecoveredProject> Projects;
};

/// The unsaved state of an environment. Texts are kept as texts, so also what the file's code page
/// could not hold is safe.
[[nodiscard]] QJsonObject UnsavedWork(const workspace::Workspace& workspace);
/// Fails with a vb::Failure that names what is missing.
[[nodiscard]] RecoveredWork ReadWork(const QJsonObject& work);

/// One file for each running workbench in a folder. The file bears the process's number; one whose
/// process is gone was left by a crash.
class RecoveryFile {
 public:
  explicit RecoveryFile(const QString& folder);

  /// Replaces the file by a complete new one, or removes it when there is nothing to keep.
  void Write(const QJsonObject& work) const;
  void Remove() const;
  /// Left by others that run no more. Files that can't be read are passed over.
  [[nodiscard]] std::vector<RecoveredWork> Left() const;

 private:
  QString folder_, file_;
};

/// Brings recovered work into an environment in which its project files are open already.
void Restore(workspace::Workspace& workspace, const RecoveredWork& work);

}  // namespace tessel::workbench
