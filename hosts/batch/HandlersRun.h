// The insertion and removal runs of the dialogs over a project that nobody looks at.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "hosts/batch/BatchPlatform.h"
#include "hosts/linux/LinuxIdentity.h"
#include "hosts/linux/SystemClock.h"
#include "hosts/model/Project.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::batch {

/// The batch platform with the true time and the names of machine and user, which schemes can ask
/// for.
class HandlersPlatform : public BatchPlatform {
 public:
  HandlersPlatform();
  [[nodiscard]] platform::Clock& Clock() override { return clock_; }
  [[nodiscard]] platform::Identity& Identity() override { return identity_; }

 private:
  linux_host::SystemClock clock_;
  linux_host::LinuxIdentity identity_;
};

/// What a run is to do.
struct HandlersOrder {
  bool Remove = false;
  /// Of the scheme tables' spelling; the last three by component type in a project run.
  String Scheme, ModuleScheme, FormScheme, ActiveXScheme;
  std::vector<String> Components;  ///< empty: the whole project
  String Member;                   ///< empty: all; with a kind behind it only that one: "X [Get]"
};

/// A failure that the failure service was told of.
struct HandlersFailure {
  String Component;  ///< that was in hand; empty when none was
  std::string Cause;
};

/// Whether a project has what the order names. Fails with a vb::Failure for a member that its
/// component has not; false when the project has none of the components.
[[nodiscard]] bool ProjectHas(host::VBProject& project, const HandlersOrder& order);

/// Runs over one project, which becomes the active one. Every failure is answered with Abort, so
/// the run goes on behind the routine that failed. `progress` is told of each component.
[[nodiscard]] std::vector<HandlersFailure> RunOverProject(
    workspace::Workspace& environment, const std::shared_ptr<model::VBProject>& project,
    const HandlersOrder& order, const std::function<void(const std::string&)>& progress);

}  // namespace tessel::batch
