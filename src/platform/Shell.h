// The world outside the program: other programs, the keyboard, the speaker, the help.
#pragma once

#include "vb/Text.h"

namespace tessel::platform {

/// Answers of the shell when a document is opened: above 32 is success.
inline constexpr int ShellSuccess = 33;

class Shell {
 public:
  virtual ~Shell() = default;
  /// To the window in front, as if typed.
  virtual void SendKeys(StringView keys) = 0;
  virtual void Beep() = 0;
  /// Opens a document, folder, program or address with a verb ("open", "explore", "properties",
  /// "print"); the shell's answer, a success above 32.
  virtual int OpenDocument(StringView target, StringView verb, StringView parameters) = 0;
  /// Shows a topic of a help file.
  virtual void ShowHelp(StringView helpFile, StringView topic) = 0;
};

}  // namespace tessel::platform
