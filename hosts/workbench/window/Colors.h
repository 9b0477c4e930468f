// Colours that no palette has a role for.
#pragma once

#include <QPalette>

namespace tessel::workbench {

/// For text beside the text, such as line numbers: legible on the window's colour, and quieter than
/// what stands beside it.
[[nodiscard]] QColor MutedText(const QPalette& palette);

}  // namespace tessel::workbench
