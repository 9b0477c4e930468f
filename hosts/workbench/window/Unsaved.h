// What counts as unsaved.
#pragma once

#include <QStringList>

#include "hosts/model/Project.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

/// Whether a component holds what its file doesn't.
[[nodiscard]] bool IsUnsaved(const model::VBComponent& component);
/// Whether a project or one of its components holds what its file doesn't.
[[nodiscard]] bool IsUnsaved(const workspace::Workspace& workspace, model::VBProject& project);
/// What of a project isn't in its files, as a user is told: files, and names of components that
/// have no file yet.
[[nodiscard]] QStringList UnsavedOf(const workspace::Workspace& workspace,
                                    model::VBProject& project);

}  // namespace tessel::workbench
