// What the naming dialogs have in common.
#pragma once

#include <memory>

#include "forms/Controls.h"
#include "foundation/ToolForm.h"

namespace tessel {

/// Base of the naming dialogs. They come up in answer to what the user does on a designer, beside
/// whatever dialog of a tool is open, and so leave the guard of those alone.
class NamingForm : public ToolForm {
 protected:
  using ToolForm::ToolForm;

  /// The code module of a component of the active project, by name; a statement of the caller.
  /// Nothing without a project; fails when the project has no such component.
  [[nodiscard]] std::shared_ptr<host::CodeModule> ModuleOf(const Statements& run,
                                                           StringView component) const;
  /// Shows message `code` and puts the focus back into the field.
  static void Refuse(forms::Control& field, int code, StringView info1, StringView info2 = {});
};

}  // namespace tessel
