#include "hosts/workbench/window/FileWatch.h"

#include <QCryptographicHash>
#include <QFile>
#include <algorithm>
#include <utility>

#include "hosts/workbench/platform/Text.h"
#include "hosts/workspace/ComponentFile.h"

namespace tessel::workbench {
namespace {

/// Programs write a file in several steps; one look behind the last of them is enough.
constexpr int SettleMs = 300;

/// The file of a component that was written at least once; null for none.
std::shared_ptr<workspace::ComponentFile> StoredFile(const model::VBComponent& component) {
  auto file = std::dynamic_pointer_cast<workspace::ComponentFile>(component.Storage());
  return component.Module() && file && !file->StoredBytes().empty() ? file : nullptr;
}

template <class Visit>
void ForEachFile(model::Vbe& vbe, const Visit& visit) {
  for (const auto& project : vbe.Projects().All()) {
    for (const auto& component : project->Components().All()) {
      if (const auto file = StoredFile(*component)) visit(component, *file);
    }
  }
}

FileState StateOf(const QString& path, const std::string& stored, bool& same) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    same = false;
    return {};
  }
  const QByteArray bytes = file.readAll();
  same = bytes == QByteArray::fromRawData(stored.data(), qsizetype(stored.size()));
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

bool IsInProject(const std::shared_ptr<model::VBComponent>& component) {
  const auto project = component->Project();
  if (!project) return false;
  const auto& all = project->Components().All();
  return std::find(all.begin(), all.end(), component) != all.end();
}

}  // namespace

FileWatch::FileWatch(const workspace::Workspace& workspace, QObject* parent)
    : QObject(parent),
      workspace_(workspace),
      vbe_(std::dynamic_pointer_cast<model::Vbe>(workspace.VBE())) {
  timer_.setSingleShot(true);
  timer_.setInterval(SettleMs);
  watchTimer_.setSingleShot(true);
  watchTimer_.setInterval(SettleMs);
  connect(&watchTimer_, &QTimer::timeout, this, [this] { Watch(); });
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this](const QString& file) {
    stale_.insert(file);  // what was renamed into its place is a new one to the system
    timer_.start();
  });
  connect(&timer_, &QTimer::timeout, this, [this] {
    const auto changed = Look();
    const auto projects = LookAtProjects();
    if (!stale_.isEmpty()) Refresh();
    if (!changed.empty() && OnChanged) OnChanged(changed);
    if (!projects.empty() && OnProjectsChanged) OnProjectsChanged(projects);
  });
}

void FileWatch::Refresh() {
  if (!watchTimer_.isActive()) watchTimer_.start();
}

void FileWatch::Watch() {
  QSet<QString> wanted;
  ForEachFile(*vbe_, [&](const auto&, const workspace::ComponentFile& file) {
    wanted.insert(ToQt(file.FileName()));
  });
  for (const auto& project : vbe_->Projects().All()) {
    if (workspace_.KnownBytes(*project)) wanted.insert(ToQt(project->File));
  }
  const QSet<QString> old = watched_ - wanted + std::exchange(stale_, {});
  const QSet<QString> fresh = wanted - (watched_ - old);
  if (!old.isEmpty()) watcher_.removePaths(QStringList(old.begin(), old.end()));
  if (!fresh.isEmpty()) watcher_.addPaths(QStringList(fresh.begin(), fresh.end()));
  watched_ = wanted;
  // What changed ahead of the watch is not told by the system.
  if (!fresh.isEmpty()) timer_.start();
}

std::vector<OutsideChange> FileWatch::Look() {
  std::vector<OutsideChange> changed;
  ForEachFile(*vbe_, [&](const auto& component, const workspace::ComponentFile& file) {
    const QString path = ToQt(file.FileName());
    bool same = false;
    const FileState state = StateOf(path, file.StoredBytes(), same);
    if (IsNews(path, state, same)) changed.push_back({component, path, state});
  });
  return changed;
}

std::vector<OutsideProject> FileWatch::LookAtProjects() {
  std::vector<OutsideProject> changed;
  for (const auto& project : vbe_->Projects().All()) {
    const auto known = workspace_.KnownBytes(*project);
    if (!known) continue;
    const QString path = ToQt(project->File);
    bool same = false;
    const FileState state = StateOf(path, *known, same);
    if (IsNews(path, state, same) && !state.isEmpty()) changed.push_back({project, path, state});
  }
  return changed;
}

/// Takes note of a state; false for one that is known.
bool FileWatch::IsNews(const QString& file, const FileState& state, bool same) {
  if (same) {
    told_.erase(file);
    return false;
  }
  const auto [told, fresh] = told_.try_emplace(file, state);
  return fresh || std::exchange(told->second, state) != state;
}

bool FileWatch::IsStill(OutsideChange& change) {
  const auto file = StoredFile(*change.Component);
  if (!file || ToQt(file->FileName()) != change.File) return false;
  if (!IsInProject(change.Component)) return false;
  bool same = false;
  change.State = StateOf(change.File, file->StoredBytes(), same);
  return !same;
}

bool FileWatch::IsStill(OutsideProject& change) const {
  const auto& all = vbe_->Projects().All();
  if (std::find(all.begin(), all.end(), change.Project) == all.end()) return false;
  const auto known = workspace_.KnownBytes(*change.Project);
  if (!known || ToQt(change.Project->File) != change.File) return false;
  bool same = false;
  change.State = StateOf(change.File, *known, same);
  return !same && !change.State.isEmpty();
}

}  // namespace tessel::workbench
