// Boxes that ask the user: messages, one line of text, files, a font.
#pragma once

#include <optional>
#include <vector>

#include "vb/Text.h"

namespace tessel::forms {
struct Font;
}

namespace tessel::platform {

/// Parts of a message box's style, added up.
enum MessageStyle : int {
  OKOnly = 0,
  OKCancel = 1,
  AbortRetryIgnore = 2,
  YesNoCancel = 3,
  YesNo = 4,
  RetryCancel = 5,
  Critical = 16,
  Question = 32,
  Exclamation = 48,
  Information = 64,
  DefaultButton2 = 256,
};

enum class MessageAnswer { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct FileDialogRequest {
  bool Save = false;
  String Title{};
  /// "caption|pattern|caption|pattern".
  String Filter{};
  String InitialDir{};
  String FileName{};
  String DefaultExt{};
  bool MultiSelect = false;
};

class Boxes {
 public:
  virtual ~Boxes() = default;
  virtual MessageAnswer ShowMessage(StringView text, StringView title, int style) = 0;
  /// Nothing when the user cancelled.
  [[nodiscard]] virtual std::optional<String> InputBox(StringView prompt, StringView title,
                                                       StringView text) = 0;
  /// Full paths of the chosen files, empty when the user cancelled.
  [[nodiscard]] virtual std::vector<String> FileDialog(const FileDialogRequest& request) = 0;
  /// Changes `font` and answers true when the user accepted.
  [[nodiscard]] virtual bool FontDialog(forms::Font& font, StringView title) = 0;
};

}  // namespace tessel::platform
