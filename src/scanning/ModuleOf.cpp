#include "scanning/ModuleOf.h"

#include "foundation/Routine.h"

namespace tessel {

std::shared_ptr<host::CodeModule> ModuleOf(const std::shared_ptr<host::VBComponent>& component) {
  std::shared_ptr<host::CodeModule> module;
  ResumeNext([&] {
    if (component) module = component->CodeModule();
  });
  return module;
}

}  // namespace tessel
