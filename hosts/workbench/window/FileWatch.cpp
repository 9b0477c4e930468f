#include "hosts/workbench/window/FileWatch.h"

#include <QCryptographicHash>
#include <QFile>
#include <algorithm>

#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

/// Programs write a file in several steps; one look behind the last of them is enough.
constexpr int SettleMs = 300;

template <class Visit>
void ForEachFile(const workspace::Workspace& workspace, const Visit& visit) {
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace.VBE());
  for (const auto& project : vbe->Projects().All()) {
    for (const auto& component : project->Components().All()) {
      if (component->Module() && component->Storage()) visit(*project, component);
    }
  }
}

}  // namespace

FileWatch::FileWatch(workspace::Workspace& workspace, QObject* parent)
    : QObject(parent), workspace_(workspace) {
  timer_.setSingleShot(true);
  timer_.setInterval(SettleMs);
  watchTimer_.setSingleShot(true);
  watchTimer_.setInterval(SettleMs);
  connect(&watchTimer_, &QTimer::timeout, this, [this] { Watch(); });
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] { timer_.start(); });
  connect(&timer_, &QTimer::timeout, this, [this] {
    const auto changed = Look();
    if (!changed.empty() && OnChanged) OnChanged(changed);
    Refresh();  // a file that was renamed into place is a new one to the system
  });
}

void FileWatch::Refresh() {
  if (!watchTimer_.isActive()) watchTimer_.start();
}

void FileWatch::Watch() {
  QStringList wanted;
  ForEachFile(workspace_, [&](const model::VBProject&, const auto& component) {
    wanted.append(ToQt(component->Storage()->FileName()));
  });
  const QStringList before = watcher_.files();
  if (!before.isEmpty()) watcher_.removePaths(before);
  if (!wanted.isEmpty()) watcher_.addPaths(wanted);
  // What changed ahead of the watch is not told by the system.
  const bool fresh = std::any_of(wanted.begin(), wanted.end(),
                                 [&](const QString& file) { return !watched_.contains(file); });
  watched_ = QSet<QString>(wanted.begin(), wanted.end());
  if (fresh) timer_.start();
}

std::vector<ChangedOutside> FileWatch::Look() {
  std::vector<ChangedOutside> changed;
  ForEachFile(workspace_, [&](const model::VBProject&, const auto& component) {
    const std::string stored = workspace_.StoredBytes(*component);
    if (stored.empty()) return;  // not written yet
    QFile file(ToQt(component->Storage()->FileName()));
    const bool there = file.open(QIODevice::ReadOnly);
    const QByteArray bytes = there ? file.readAll() : QByteArray();
    if (there && bytes == QByteArray::fromRawData(stored.data(), qsizetype(stored.size()))) {
      told_.erase(file.fileName());
      return;
    }
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
    if (std::exchange(told_[file.fileName()], digest) == digest) return;
    changed.push_back({component, file.fileName(), !there});
  });
  return changed;
}

}  // namespace tessel::workbench
