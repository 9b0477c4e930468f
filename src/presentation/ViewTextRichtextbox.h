// The lighter preview, for texts with placeholders and markers.
#pragma once

#include "forms/RichTextBox.h"

namespace tessel::mFunctions {

/// Shows `text` with comments green, <markers> gray and {placeholders} blue; the caret stays.
void ViewTextRichtextbox(forms::RichTextBox& richText, StringView text);

}  // namespace tessel::mFunctions
