#include "explorer/Conformity.h"

#include <iterator>
#include <map>

#include "foundation/Routine.h"
#include "projectmodel/ProjectTables.h"
#include "scanning/ModuleOf.h"
#include "scanning/mFunctions.h"

namespace tessel::explorer {
namespace {

template <class Model>
using PlaceIn = decltype(std::declval<const Model&>().begin());

/// Whether what stands ahead of `end` in a level of the model has a child for which this holds:
/// things of one name fall on one entry.
template <class Model, class Holds>
bool IsAhead(const Model& model, PlaceIn<Model> end, const Holds& holds) {
  for (auto at = model.begin(); at != end; ++at) {
    if (holds(*at->second)) return true;
  }
  return false;
}

/// The components of a project; nothing where they can't be read, as for one that is protected.
std::shared_ptr<host::VBComponents> ReadableComponents(host::VBProject& project, int& count) {
  std::shared_ptr<host::VBComponents> components;
  count = 0;
  ResumeNext([&] {
    components = project.VBComponents();
    if (components) count = components->Count();
  });
  return components;
}

/// Walks the groups of one project in step with its components.
class ComponentWalk {
 public:
  ComponentWalk(const cProjectes& model, host::VBComponents& components, int count)
      : model_(model), components_(components), count_(count), nextGroup_(model.begin()) {}

  [[nodiscard]] bool Differs(bool (*otherwise)(const cComponentes&,
                                               const std::shared_ptr<host::CodeModule>&)) {
    for (int index = 1; index <= count_; ++index) {
      const auto component = components_.Item(index);
      const auto entry = Next(*component);
      if (entry == nullptr) return true;
      if (otherwise(*entry, ModuleOf(component)) && !IsAmbiguous(*component)) return true;
    }
    if (nextGroup_ != model_.end()) return true;
    for (const auto& [type, next] : places_) {
      if (next.At != next.Group->end()) return true;
    }
    return false;
  }

 private:
  struct Place {
    std::shared_ptr<cTypeComponentes> Group;
    PlaceIn<cTypeComponentes> At;
  };

  /// The entry that a component falls on; null when the model has another one there.
  std::shared_ptr<cComponentes> Next(host::VBComponent& component) {
    const std::int32_t type = component.Type();
    auto known = places_.find(type);
    if (known == places_.end()) {
      if (nextGroup_ == model_.end() || nextGroup_->second->TypeComponent != type) return nullptr;
      const auto group = (nextGroup_++)->second;
      known = places_.emplace(type, Place{group, group->begin()}).first;
    }
    Place& place = known->second;
    const String name = component.Name();
    if (place.At != place.Group->end() && place.At->second->Name == name) {
      return (place.At++)->second;
    }
    const auto isOfName = [&](const cComponentes& one) { return vb::SameText(one.Name, name); };
    return IsAhead(*place.Group, place.At, isOfName) ? FindComponent(*place.Group, name) : nullptr;
  }

  /// Several components of one type and name share an entry, which can't say what each is like.
  bool IsAmbiguous(host::VBComponent& component) {
    int times = 0;
    for (int index = 1; index <= count_; ++index) {
      const auto other = components_.Item(index);
      if (other->Type() == component.Type() && vb::SameText(other->Name(), component.Name())) {
        ++times;
      }
    }
    return times > 1;
  }

  const cProjectes& model_;
  host::VBComponents& components_;
  int count_;
  PlaceIn<cProjectes> nextGroup_;
  std::map<std::int32_t, Place> places_;
};

}  // namespace

bool ProjectsDiffer(const cProjecteses& model, host::VBProjects& projects) {
  auto next = model.begin();
  for (int index = 1; index <= projects.Count(); ++index) {
    const auto project = projects.Item(index);
    const ProjectTexts texts = ProjectCaption(project);
    if (texts.Caption.empty()) continue;
    if (next != model.end() && vb::SameText(next->second->Name, texts.Caption) &&
        vb::SameText(next->second->FullFileName, texts.FileName)) {
      if (next->second->IcoProject != ProjectPicture(project->Type())) return true;
      ++next;
      continue;
    }
    const auto isOfCaption = [&](const cProjectes& one) {
      return vb::SameText(one.Name, texts.Caption);
    };
    if (!IsAhead(model, next, isOfCaption)) return true;
  }
  return next != model.end();
}

bool ComponentsDiffer(const cProjectes& model, host::VBProject& project) {
  int count = 0;
  const auto components = ReadableComponents(project, count);
  if (!components) return model.Count() > 0;
  // The cheap tests of all components come ahead of the first reading of members.
  return ComponentWalk(model, *components, count).Differs(LinesDiffer) ||
         ComponentWalk(model, *components, count).Differs(MembersDiffer);
}

bool LinesDiffer(const cComponentes& model, const std::shared_ptr<host::CodeModule>& module) {
  int declarations = 0, lines = 0;
  if (module) {
    ResumeNext([&] { declarations = module->CountOfDeclarationLines(); });
    ResumeNext([&] { lines = module->CountOfLines(); });
  }
  return model.CountOfDeclarationLines != declarations || model.CountOfLines != lines;
}

bool MembersDiffer(const cComponentes& model, const std::shared_ptr<host::CodeModule>& module) {
  const MemberTable members = mFunctions::AllNameProcedures(module, u"");
  auto next = model.begin();
  for (const Member& row : members.value_or(std::vector<Member>())) {
    const auto isThat = [&](const cNameProcedures& one) {
      return one.vbext == row.Kind &&
             one.Name.Read([&](StringView name) { return vb::SameText(name, row.Name); });
    };
    if (next != model.end() && next->second->vbext == row.Kind &&
        next->second->Name == StringView(row.Name)) {
      if (next->second->ProcStartLine != row.StartLine) return true;
      ++next;
    } else if (!IsAhead(model, next, isThat)) {
      return true;
    }
  }
  return next != model.end();
}

std::shared_ptr<cProjectes> FindProject(const cProjecteses& model, StringView caption) {
  for (const auto& [key, project] : model) {
    if (vb::SameText(project->Name, caption)) return project;
  }
  return nullptr;
}

std::shared_ptr<cTypeComponentes> FindGroup(const cProjectes& model, std::int32_t type) {
  for (const auto& [key, group] : model) {
    if (group->TypeComponent == type) return group;
  }
  return nullptr;
}

std::shared_ptr<cComponentes> FindComponent(const cTypeComponentes& model, StringView name) {
  for (const auto& [key, component] : model) {
    if (vb::SameText(component->Name, name)) return component;
  }
  return nullptr;
}

}  // namespace tessel::explorer
