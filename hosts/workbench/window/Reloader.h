// Takes files that were changed outside into the window.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/workbench/window/FileWatch.h"
#include "hosts/workbench/window/Questions.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

/// Modules without changes of the user's are loaded again in silence; before a project is opened
/// again the user is asked. For the others the user is
/// asked, once for all that are known by then; nothing happens while a tool is at work or a box is
/// open, but later.
class Reloader {
 public:
  /// Nothing is owned.
  Reloader(workspace::Workspace& workspace, Questions& questions, QObject& owner);

  using ComponentPtr = std::shared_ptr<model::VBComponent>;
  /// Whether the model must be left alone now.
  std::function<bool()> IsBusy;
  /// Runs the loading of one component, to keep what its windows show.
  std::function<void(const model::VBComponent&, const std::function<void()>&)> Around;
  /// Told of what was loaded again, and when the user has decided.
  std::function<void(const std::vector<ComponentPtr>& reloaded)> OnDone;

  /// Opens a project again from its changed file; asks about unsaved changes itself.
  std::function<void(const std::shared_ptr<model::VBProject>&)> OpenAgain;
  /// Whether a project's change still holds.
  std::function<bool(OutsideProject&)> IsStill;

  /// Takes note of changes; they are dealt with as soon as nothing else is going on.
  void Add(const std::vector<OutsideChange>& changes);
  void Add(const std::vector<OutsideProject>& changes);

 private:
  void Try();
  void DealWith(std::vector<OutsideChange> changes);
  void DealWith(std::vector<OutsideProject> changes);
  void Ask(const std::vector<OutsideChange>& conflicts, std::vector<ComponentPtr>& reloaded);
  void Reload(const OutsideChange& change, std::vector<ComponentPtr>& reloaded);
  void TellGone(const std::vector<OutsideChange>& gone);

  workspace::Workspace& workspace_;
  Questions& questions_;
  QTimer timer_;
  bool dealing_ = false;
  std::vector<OutsideChange> waiting_;
  std::vector<OutsideProject> projects_;
};

}  // namespace tessel::workbench
