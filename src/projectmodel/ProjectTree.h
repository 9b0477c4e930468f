// Fills the project model from the environment.
#pragma once

#include <functional>
#include <memory>

#include "host/VBE.h"
#include "projectmodel/cProjecteses.h"

namespace tessel {

class ProjectFiller {
 public:
  /// `hostName` is the base name of the program that holds the environment.
  explicit ProjectFiller(StringView hostName);

  /// Hears the number of components of each project ahead of its scan.
  std::function<void(int)> OnProject;
  /// Runs behind each component, so that the environment can process its messages.
  std::function<void()> OnComponent;

  /// Puts a new model of all projects in place of `model`; leaves it as it is when the environment
  /// has no collection of projects.
  void ProjectTree(const std::shared_ptr<host::VBE>& vbe,
                   std::shared_ptr<cProjecteses>& model) const;
  /// Enters one project with its groups and components.
  void ProjectTree_Project(cProjecteses& model,
                           const std::shared_ptr<host::VBProject>& project) const;
  /// The parts of that: the project by itself, whose caption is the result (empty for an absent
  /// project) ...
  static String EnterProject(cProjecteses& model, const std::shared_ptr<host::VBProject>& project);
  /// ... and one component in the group of its type. Failures go to the caller.
  void EnterComponent(cProjecteses& model, StringView caption,
                      const std::shared_ptr<host::VBComponent>& component) const;
  /// Enters one component with its members. Does nothing for an empty caption or an absent
  /// component; failures are passed over, since a component need not have a code module. Members
  /// that are gone from the source stay.
  static void ProjectTree_Component(cProjecteses& model, StringView caption,
                                    const std::shared_ptr<host::VBComponent>& component);

 private:
  void ProjectTree_TypeComponent(cProjecteses& model, StringView caption,
                                 const std::shared_ptr<host::VBProject>& project) const;

  std::int32_t hostCode_;
};

}  // namespace tessel
