// Keys written as text, and their sending.
#pragma once

#include <QString>
#include <vector>

#include "vb/Text.h"

namespace tessel::workbench {

struct KeyStroke {
  int Key = 0;
  Qt::KeyboardModifiers Modifiers;
  QString Text{};  ///< what it types
  bool operator==(const KeyStroke&) const = default;
};

/// Reads the notation of SendKeys: plain characters; "+" Shift, "^" Ctrl and "%" Alt ahead of a key
/// or of a group in round brackets; "~" Enter; "{NAME}" a named key and "{NAME 3}" three of them;
/// "{+}" the character itself. Fails with 5 for a name that there isn't, or a bracket that isn't
/// closed.
[[nodiscard]] std::vector<KeyStroke> ReadKeys(StringView keys);

/// Presses the keys in the window in front: a shortcut of it is triggered, any other key goes to
/// the widget with the focus.
void SendStrokes(const std::vector<KeyStroke>& strokes);

}  // namespace tessel::workbench
