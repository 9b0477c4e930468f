// What the two dialogs put into the run context.
#pragma once

#include <memory>

#include "forms/RichTextBox.h"
#include "host/VBE.h"

namespace tessel {

/// Sets the project's name, the active module's name (empty without a pane) and the control that
/// reads rich text.
void FillRunContext(host::VBE& vbe, forms::RichTextBox* preview);

}  // namespace tessel
