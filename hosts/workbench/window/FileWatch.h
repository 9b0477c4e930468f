// Notices files that change outside.
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>

#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

/// What stands in a file: a digest of its bytes, empty when it isn't there.
using FileState = QByteArray;

/// A component whose file holds other bytes than those that were read or written last.
struct OutsideChange {
  std::shared_ptr<model::VBComponent> Component;
  QString File;
  FileState State;
  [[nodiscard]] bool IsGone() const { return State.isEmpty(); }
};

/// A project whose file holds other bytes than those that were read or written last.
struct OutsideProject {
  std::shared_ptr<model::VBProject> Project;
  QString File;
  FileState State;
};

/// Watches the files of all components and projects. What was told once is told again only after
/// another change.
class FileWatch : public QObject {
 public:
  FileWatch(const workspace::Workspace& workspace, QObject* parent);

  /// Watches what is open now, as soon as the program has nothing better to do.
  void Refresh();
  /// Looks at once, not only when the system says so.
  [[nodiscard]] std::vector<OutsideChange> Look();
  /// The same for the files of projects; one that is gone is told by the save that writes it.
  [[nodiscard]] std::vector<OutsideProject> LookAtProjects();
  /// Whether a change still holds; brings it up to date. It doesn't when the component left its
  /// project or has another file now, or when the file has the known bytes again.
  [[nodiscard]] static bool IsStill(OutsideChange& change);
  [[nodiscard]] bool IsStill(OutsideProject& change) const;

  std::function<void(const std::vector<OutsideChange>&)> OnChanged;
  std::function<void(const std::vector<OutsideProject>&)> OnProjectsChanged;

 private:
  void Watch();
  bool IsNews(const QString& file, const FileState& state, bool same);
  const workspace::Workspace& workspace_;
  std::shared_ptr<model::Vbe> vbe_;
  QFileSystemWatcher watcher_;
  QTimer timer_, watchTimer_;
  QSet<QString> watched_;  // also those that the system can't watch, as one not yet written
  QSet<QString> stale_;    // that must be watched anew
  std::map<QString, FileState> told_;  // what stood there when it was told
};

}  // namespace tessel::workbench
