// An environment in memory with one project, for tests of whatever works on modules.
#pragma once

#include <memory>

#include "hosts/model/Environment.h"
#include "support/ErrorDialogs.h"
#include "support/MemoryPlatform.h"

namespace tessel::test {

/// The platform of the tests, installed for the length of a test, with an environment that holds
/// "Project1". An error dialog that a test did not take fails it.
struct World {
  World() : Scope(Services), Environment(Services) {
    Environment.NewProject(u"Project1", host::vbext_pt_StandardExe);
  }

  std::shared_ptr<host::CodeModule> Module(StringView name, StringView text) {
    return Environment.AddComponent(u"", host::vbext_ct_StdModule, name, text)->CodeModule();
  }
  std::shared_ptr<host::CodeModule> Form(StringView name, StringView text) {
    return Environment.AddComponent(u"", host::vbext_ct_VBForm, name, text)->CodeModule();
  }
  [[nodiscard]] String Text(StringView name) const { return Environment.Text(name); }
  void Caret(StringView name, int line, int column = 1) {
    Environment.SetCaret(name, {line, column, line, column});
  }
  [[nodiscard]] host::Selection Selection() const {
    return Environment.VBE()->ActiveCodePane()->GetSelection();
  }

  memory::MemoryPlatform Services;
  ErrorDialogs Errors{Services.DesktopService};
  platform::ScopedPlatform Scope;
  model::Environment Environment;
};

}  // namespace tessel::test
