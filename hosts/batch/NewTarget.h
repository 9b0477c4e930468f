// The component and the project that the text of tessel new goes into.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::batch {

/// Looks in all projects of a workspace. What it chooses lies in the active project from then on.
/// Failures are vb::Failure that name the component, and the files where it stands.
class NewTarget {
 public:
  /// `environment` must outlive this. `mayMake`: a component that isn't there is to be made.
  NewTarget(const workspace::Workspace& environment, bool mayMake);

  /// The component of that name, in whichever project it stands; null for one that is to be made.
  /// Fails when several have the name, when none has it and none may be made, and when it can't be
  /// told where one is to be made or whether its name is free.
  [[nodiscard]] std::shared_ptr<model::VBComponent> Choose(StringView name);
  /// Chooses the project that the classes of a collection go to: that of the class of its items,
  /// else the only one. Fails as `Choose` does.
  void ChooseBeside(StringView baseClass);
  /// Fails when the active project has a component of that name which is no class.
  void CheckClass(StringView name) const;
  /// Whether the active project has a component of that name.
  [[nodiscard]] bool IsTaken(StringView name) const;
  /// Makes a component without text in the active project. Fails for a name that another component
  /// or the project has, and for one that no file of Windows can have.
  [[nodiscard]] std::shared_ptr<model::VBComponent> Make(StringView name,
                                                         host::vbext_ComponentType type);
  /// Name of the component of a component file; empty for projects.
  [[nodiscard]] String OnlyComponent() const;

 private:
  using ComponentPtr = std::shared_ptr<model::VBComponent>;
  [[nodiscard]] ComponentPtr Find(StringView name);
  void ChooseOnlyProject(StringView name);
  void NeedAllRead(StringView name) const;
  void CheckNew(StringView name) const;

  const workspace::Workspace& environment_;
  std::shared_ptr<model::Vbe> vbe_;
  std::unordered_map<String, std::vector<ComponentPtr>> byName_;  // by the name in lower case
  bool mayMake_;
};

}  // namespace tessel::batch
