#include "hosts/workbench/window/Unsaved.h"

#include <algorithm>

#include "hosts/workbench/platform/Text.h"
#include "hosts/workspace/ComponentFile.h"

namespace tessel::workbench {
namespace {

bool IsProjectFileUnsaved(const workspace::Workspace& workspace, const model::VBProject& project) {
  if (project.File.empty()) return false;
  const auto changed = workspace.ChangedFiles();
  return std::find(changed.begin(), changed.end(), std::filesystem::path(project.File)) !=
         changed.end();
}

}  // namespace

bool IsUnsaved(const model::VBComponent& component) {
  if (!component.Module()) return false;
  if (!component.Storage()) return true;  // of a project without a file
  const auto* const file = dynamic_cast<const workspace::ComponentFile*>(component.Storage().get());
  return file != nullptr && file->IsModified(component);
}

bool IsUnsaved(const workspace::Workspace& workspace, model::VBProject& project) {
  const auto& all = project.Components().All();
  return std::any_of(all.begin(), all.end(), [](const auto& one) { return IsUnsaved(*one); }) ||
         IsProjectFileUnsaved(workspace, project);
}

QStringList UnsavedOf(const workspace::Workspace& workspace, model::VBProject& project) {
  QStringList unsaved;
  for (const auto& component : project.Components().All()) {
    if (!IsUnsaved(*component)) continue;
    const String file = component->Storage() ? component->Storage()->FileName() : String();
    unsaved.append(ToQt(file.empty() ? component->PlainName() : file));
  }
  if (IsProjectFileUnsaved(workspace, project)) unsaved.append(ToQt(project.File));
  unsaved.removeDuplicates();
  return unsaved;
}

}  // namespace tessel::workbench
