#include "hosts/batch/NewTarget.h"

#include <set>

#include "hosts/model/Designer.h"

namespace tessel::batch {
namespace {

[[noreturn]] void Fail(StringView name, const String& why) {
  throw vb::Failure(vb::InvalidCall, String(name) + why, u"Tessel");
}

bool IsLoneFile(const model::VBProject& project) { return project.File.empty(); }

}  // namespace

NewTarget::NewTarget(const workspace::Workspace& environment, bool mayMake)
    : environment_(environment),
      vbe_(std::dynamic_pointer_cast<model::Vbe>(environment.VBE())),
      mayMake_(mayMake) {}

/// A file that two projects share is one component.
NewTarget::ComponentPtr NewTarget::Find(StringView name) {
  std::vector<ComponentPtr> found;
  std::set<std::filesystem::path> files;
  for (const auto& project : vbe_->Projects().All()) {
    for (const ComponentPtr& component : project->Components().All()) {
      if (!vb::SameText(component->PlainName(), name)) continue;
      if (files.insert(environment_.FileOf(*component)).second) found.push_back(component);
    }
  }
  if (found.empty()) return nullptr;
  if (found.size() > 1) {
    String list;
    for (const auto& file : files) list += u"\n  " + vb::FromUtf8(file.string());
    Fail(name, u" is the name of several components:" + list);
  }
  vbe_->Activate(found.front()->Project());
  return found.front();
}

void NewTarget::NeedAllRead(StringView name) const {
  if (environment_.Problems().empty()) return;
  Fail(name, u" is not made: a component that can't be read may have the name");
}

void NewTarget::ChooseOnlyProject(StringView name) {
  const auto& projects = vbe_->Projects().All();
  if (projects.size() > 1) {
    Fail(name, u" would be new, and the group has " + vb::Str(static_cast<int>(projects.size())) +
                   u" projects: --into must name the project's file");
  }
  vbe_->Activate(projects.front());
}

NewTarget::ComponentPtr NewTarget::Choose(StringView name) {
  if (auto component = Find(name)) return component;
  for (const workspace::Problem& problem : environment_.Problems()) {
    if (vb::SameText(problem.Component, name)) Fail(name, u" can't be read");
  }
  if (!mayMake_) Fail(name, u" isn't there; --new-component makes it as a module");
  if (!model::IsName(name)) Fail(name, u" can't be the name of a component");
  NeedAllRead(name);
  ChooseOnlyProject(name);
  if (IsLoneFile(*vbe_->Active())) Fail(name, u" isn't there, and a new one needs a project");
  return nullptr;
}

void NewTarget::ChooseBeside(StringView baseClass) {
  NeedAllRead(baseClass);
  if (!Find(baseClass)) ChooseOnlyProject(baseClass);
}

String NewTarget::OnlyComponent() const {
  const auto& projects = vbe_->Projects().All();
  if (projects.size() != 1 || !IsLoneFile(*projects.front())) return {};
  const auto& components = projects.front()->Components().All();
  return components.size() == 1 ? components.front()->PlainName() : String();
}

}  // namespace tessel::batch
