#include "hosts/workbench/window/Reloader.h"

#include <algorithm>

#include "hosts/model/Vbe.h"
#include "hosts/workbench/window/Unsaved.h"

namespace tessel::workbench {
namespace {

/// How long something else may go on before it is looked at again.
constexpr int PatienceMs = 150;

QStringList FilesOf(const std::vector<OutsideChange>& changes) {
  QStringList files;
  for (const OutsideChange& one : changes) files.append(one.File);
  return files;
}

/// Takes those out of a list that a test accepts.
template <class Accept>
std::vector<OutsideChange> TakeOut(std::vector<OutsideChange>& changes, const Accept& accept) {
  const auto kept = std::stable_partition(changes.begin(), changes.end(),
                                          [&](const auto& one) { return !accept(one); });
  std::vector<OutsideChange> taken(std::make_move_iterator(kept),
                                   std::make_move_iterator(changes.end()));
  changes.erase(kept, changes.end());
  return taken;
}

}  // namespace

Reloader::Reloader(workspace::Workspace& workspace, Questions& questions, QObject& owner)
    : workspace_(workspace), questions_(questions) {
  timer_.setSingleShot(true);
  timer_.setInterval(PatienceMs);
  QObject::connect(&timer_, &QTimer::timeout, &owner, [this] { Try(); });
}

void Reloader::Add(const std::vector<OutsideChange>& changes) {
  for (const OutsideChange& change : changes) {
    std::erase_if(waiting_, [&](const auto& one) { return one.Component == change.Component; });
    waiting_.push_back(change);
  }
  Try();
}

void Reloader::Add(const std::vector<OutsideProject>& changes) {
  for (const OutsideProject& change : changes) {
    std::erase_if(projects_, [&](const auto& one) { return one.Project == change.Project; });
    projects_.push_back(change);
  }
  Try();
}

void Reloader::Try() {
  if ((waiting_.empty() && projects_.empty()) || dealing_) return;
  if (IsBusy()) return timer_.start();
  dealing_ = true;
  // What a project's file says counts ahead of what stood in its components.
  DealWith(std::exchange(projects_, {}));
  if (!waiting_.empty()) DealWith(std::exchange(waiting_, {}));
  dealing_ = false;
  if (!waiting_.empty() || !projects_.empty()) timer_.start();
}

void Reloader::DealWith(std::vector<OutsideProject> changes) {
  for (OutsideProject& one : changes) {
    if (!IsStill(one)) continue;
    const bool unsaved = IsUnsaved(workspace_, *one.Project);
    const QString question =
        QObject::tr(
            "%1 was changed outside. Open the project again? If not, this window goes on "
            "with the components that it has.")
            .arg(one.File);
    if (questions_.Ask(question, QMessageBox::Yes | QMessageBox::No,
                       unsaved ? QMessageBox::No : QMessageBox::Yes) == QMessageBox::Yes) {
      OpenAgain(one.Project);
    }
  }
}

void Reloader::DealWith(std::vector<OutsideChange> changes) {
  const auto vbe = std::dynamic_pointer_cast<model::Vbe>(workspace_.VBE());
  const model::Windows::OneTurn once(vbe->OwnWindows());
  // What was waited for may have settled it: a save, a closed project, the old bytes again.
  std::erase_if(changes, [](OutsideChange& one) { return !FileWatch::IsStill(one); });
  std::vector<ComponentPtr> reloaded;
  const auto gone = TakeOut(changes, [](const auto& one) { return one.IsGone(); });
  const auto conflicts =
      TakeOut(changes, [](const auto& one) { return IsUnsaved(*one.Component); });
  for (const OutsideChange& one : changes) Reload(one, reloaded);
  if (!conflicts.empty()) Ask(conflicts, reloaded);
  if (!gone.empty()) TellGone(gone);
  if (OnDone) OnDone(reloaded);
}

void Reloader::Ask(const std::vector<OutsideChange>& conflicts,
                   std::vector<ComponentPtr>& reloaded) {
  const QString question =
      QObject::tr(
          "These files were changed outside, and here as well. Load them again? Your "
          "changes to them are lost then. If not, saving overwrites what "
          "stands in the files now.") +
      QStringLiteral("\n\n") + Listed(FilesOf(conflicts));
  const bool load = questions_.Ask(question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
                    QMessageBox::Yes;
  for (OutsideChange one : conflicts) {
    const FileState asked = one.State;
    if (!FileWatch::IsStill(one)) continue;
    if (load) {
      Reload(one, reloaded);
    } else if (one.State == asked) {
      workspace_.AcceptOutside(*one.Component);
    }
  }
}

void Reloader::Reload(const OutsideChange& change, std::vector<ComponentPtr>& reloaded) {
  const bool done = questions_.Guard(
      [&] { Around(*change.Component, [&] { workspace_.Reload(*change.Component); }); });
  if (done) reloaded.push_back(change.Component);
}

void Reloader::TellGone(const std::vector<OutsideChange>& gone) {
  questions_.ShowFailure(QObject::tr("These files are no longer there. Saving writes them anew:") +
                         QStringLiteral("\n\n") + Listed(FilesOf(gone)));
  for (OutsideChange one : gone) {
    if (FileWatch::IsStill(one) && one.IsGone()) workspace_.AcceptOutside(*one.Component);
  }
}

}  // namespace tessel::workbench
