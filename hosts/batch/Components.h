// The components with code of all open projects.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/workspace/Workspace.h"

namespace tessel::batch {

struct ComponentRef {
  String Project, Name;
  std::string File;  ///< native path, as a person would type it
  std::shared_ptr<host::CodeModule> Module;
};

/// In the projects' order; components without code are left out.
[[nodiscard]] std::vector<ComponentRef> ComponentsOf(host::VBE& environment);

}  // namespace tessel::batch
