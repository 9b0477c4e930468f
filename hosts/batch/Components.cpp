#include "hosts/batch/Components.h"

namespace tessel::batch {

std::vector<ComponentRef> ComponentsOf(host::VBE& environment) {
  std::vector<ComponentRef> all;
  const auto projects = environment.VBProjects();
  for (int p = 1; p <= projects->Count(); ++p) {
    const auto project = projects->Item(p);
    const auto components = project->VBComponents();
    for (int c = 1; c <= components->Count(); ++c) {
      const auto component = components->Item(c);
      if (auto code = component->CodeModule()) {
        all.push_back({project->Name(), component->Name(), vb::ToUtf8(component->FileName()),
                       std::move(code)});
      }
    }
  }
  return all;
}

}  // namespace tessel::batch
