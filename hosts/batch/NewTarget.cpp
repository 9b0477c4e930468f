#include "hosts/batch/NewTarget.h"

#include <set>

#include "foundation/DeviceNames.h"
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
      mayMake_(mayMake) {
  for (const auto& project : vbe_->Projects().All()) {
    for (const ComponentPtr& component : project->Components().All()) {
      byName_[vb::LCase(component->PlainName())].push_back(component);
    }
  }
}

/// A file that two projects share is one component.
NewTarget::ComponentPtr NewTarget::Find(StringView name) {
  const auto named = byName_.find(vb::LCase(name));
  if (named == byName_.end()) return nullptr;
  std::vector<ComponentPtr> found;
  std::set<std::filesystem::path> files;
  for (const ComponentPtr& component : named->second) {
    if (files.insert(environment_.FileOf(*component)).second) found.push_back(component);
  }
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
  if (!OnlyComponent().empty()) Fail(name, u" isn't there, and a new one needs a project");
  if (!mayMake_) Fail(name, u" isn't there; --new-component makes it as a module");
  if (!model::IsName(name)) Fail(name, u" can't be the name of a component");
  NeedAllRead(name);
  ChooseOnlyProject(name);
  CheckNew(name);
  return nullptr;
}

void NewTarget::ChooseBeside(StringView baseClass) {
  NeedAllRead(baseClass);
  if (!Find(baseClass)) ChooseOnlyProject(baseClass);
}

void NewTarget::CheckClass(StringView name) const {
  const auto component = vbe_->Active()->Components().Find(name);
  if (!component) return;
  switch (component->PlainType()) {
    case host::vbext_ct_StdModule:
    case host::vbext_ct_ResFile:
    case host::vbext_ct_RelatedDocument:
      Fail(component->PlainName(), u" is no class, and a collection holds objects of one");
    default:
      break;
  }
}

bool NewTarget::IsTaken(StringView name) const {
  return vbe_->Active()->Components().Find(name) != nullptr;
}

void NewTarget::CheckNew(StringView name) const {
  if (IsDeviceName(name)) {
    Fail(name, u" can't be the name of a component: Windows keeps it for a device");
  }
  if (vb::SameText(vbe_->Active()->Name(), name)) {
    Fail(name, u" can't be the name of a component: it is that of the project");
  }
}

NewTarget::ComponentPtr NewTarget::Make(StringView name, host::vbext_ComponentType type) {
  CheckNew(name);
  auto made = vbe_->Active()->Components().Make(type, name);
  byName_[vb::LCase(name)].push_back(made);
  return made;
}

String NewTarget::OnlyComponent() const {
  const auto& projects = vbe_->Projects().All();
  if (projects.size() != 1 || !IsLoneFile(*projects.front())) return {};
  const auto& components = projects.front()->Components().All();
  return components.size() == 1 ? components.front()->PlainName() : String();
}

}  // namespace tessel::batch
