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

/// A component whose file holds other bytes than those that were read or written last.
struct ChangedOutside {
  std::shared_ptr<model::VBComponent> Component;
  QString File;
  bool Gone = false;
};

/// Watches the files of all components. What was told once is told again only after another
/// change.
class FileWatch : public QObject {
 public:
  FileWatch(workspace::Workspace& workspace, QObject* parent);

  /// Watches what is open now, as soon as the program has nothing better to do.
  void Refresh();
  /// Looks at once, not only when the system says so.
  [[nodiscard]] std::vector<ChangedOutside> Look();

  std::function<void(const std::vector<ChangedOutside>&)> OnChanged;

 private:
  void Watch();
  workspace::Workspace& workspace_;
  QFileSystemWatcher watcher_;
  QTimer timer_, watchTimer_;
  QSet<QString> watched_;  // also those that the system can't watch, as one not yet written
  std::map<QString, QByteArray> told_;  // a digest of what stood there when it was told
};

}  // namespace tessel::workbench
