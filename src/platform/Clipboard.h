// The system's clipboard.
#pragma once

#include "vb/Text.h"

namespace tessel::platform {

/// Holds a text or a picture.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  [[nodiscard]] virtual String GetText() = 0;
  virtual void SetText(StringView text) = 0;
  /// Puts the program's picture of that number (101 to 153) on the clipboard.
  virtual void SetPicture(int picture) = 0;
  /// The picture on the clipboard, 0 for none.
  [[nodiscard]] virtual int GetPicture() = 0;
  virtual void Clear() = 0;
};

}  // namespace tessel::platform
