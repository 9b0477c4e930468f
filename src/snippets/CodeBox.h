// Source text in an edit box of the library.
#pragma once

#include "forms/RichTextBox.h"

namespace tessel {

/// Shows source text in its colours. What the box gives back is always the text itself, with CR LF
/// line ends: a text that the colours would change is shown without them, and so is a very long
/// one.
void ShowCode(forms::RichTextBox& box, StringView text);

}  // namespace tessel
