#include "controlnaming/NamingForm.h"

#include "scanning/mFunctions.h"

namespace tessel {

std::shared_ptr<host::CodeModule> NamingForm::ModuleOf(const Statements& run,
                                                       StringView component) const {
  const auto components = ActiveComponents(run);
  return run([&] { return components ? components->Item(component)->CodeModule() : nullptr; });
}

void NamingForm::Refuse(forms::Control& field, int code, StringView info1, StringView info2) {
  mFunctions::myBreak(code, info1, info2);
  field.SetFocus();
}

}  // namespace tessel
