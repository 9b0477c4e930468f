// The clipboard of the desktop.
#pragma once

#include "platform/Clipboard.h"

namespace tessel::workbench {

/// Lines end with LF on the clipboard, as other programs here expect, and with CR LF for tools.
class QtClipboard : public platform::Clipboard {
 public:
  [[nodiscard]] String GetText() override;
  void SetText(StringView text) override;
  void SetPicture(int picture) override;
  [[nodiscard]] int GetPicture() override;
  void Clear() override;
};

}  // namespace tessel::workbench
