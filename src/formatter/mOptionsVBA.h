// Options of the environment's own editor.
#pragma once

namespace tessel::mOptionsVBA {

/// The editor's tab width in blanks, -1 when it is not known; failures stay inside.
[[nodiscard]] int GetVBEEditorTabWidth();

}  // namespace tessel::mOptionsVBA
