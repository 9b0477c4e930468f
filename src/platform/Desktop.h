// What the user sees beside the code: boxes, common dialogs, forms, clipboard, help.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "vb/Text.h"

namespace tessel::forms {
class Form;
struct Font;
}  // namespace tessel::forms

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

enum class ShowStyle { Modeless, Modal };

/// The restored rectangle, places and show command of a window, as WINDOWPLACEMENT holds them.
struct WindowPlacement {
  int ShowCommand = 1;
  int MinX = -1, MinY = -1, MaxX = -1, MaxY = -1;
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

/// Answers of the shell when a document is opened: above 32 is success.
inline constexpr int ShellSuccess = 33;

class Desktop {
 public:
  virtual ~Desktop() = default;
  virtual MessageAnswer ShowMessage(StringView text, StringView title, int style) = 0;
  /// Nothing when the user cancelled.
  [[nodiscard]] virtual std::optional<String> InputBox(StringView prompt, StringView title,
                                                       StringView text) = 0;
  /// Full paths of the chosen files, empty when the user cancelled.
  [[nodiscard]] virtual std::vector<String> FileDialog(const FileDialogRequest& request) = 0;
  /// Changes `font` and answers true when the user accepted.
  [[nodiscard]] virtual bool FontDialog(forms::Font& font, StringView title) = 0;

  /// Shows a form. Modal: returns when the form was hidden or unloaded.
  virtual void Show(forms::Form& form, ShowStyle style) = 0;
  /// The form was hidden, or unloaded if `gone`.
  virtual void Hidden(forms::Form& form, bool gone) = 0;
  virtual void SetForeground(forms::Form& form) = 0;
  /// Nothing where forms have no place (no window system).
  [[nodiscard]] virtual std::optional<WindowPlacement> GetPlacement(forms::Form& form) = 0;
  virtual void SetPlacement(forms::Form& form, const WindowPlacement& placement) = 0;
  /// The placement of the whole desktop, for centring.
  [[nodiscard]] virtual std::optional<WindowPlacement> DesktopPlacement() = 0;

  [[nodiscard]] virtual String ClipboardText() = 0;
  virtual void SetClipboardText(StringView text) = 0;
  /// Puts the program's picture of that number (101 to 153) on the clipboard.
  virtual void SetClipboardPicture(int picture) = 0;
  /// The picture on the clipboard, 0 for none.
  [[nodiscard]] virtual int ClipboardPicture() = 0;
  virtual void ClearClipboard() = 0;

  virtual void SendKeys(StringView keys) = 0;
  virtual void Beep() = 0;
  /// Opens a document, folder, program or address with a verb ("open", "explore", "properties",
  /// "print"); the shell's answer, a success above 32.
  virtual int OpenDocument(StringView target, StringView verb, StringView parameters) = 0;
  /// Shows a topic of a help file.
  virtual void ShowHelp(StringView helpFile, StringView topic) = 0;
};

}  // namespace tessel::platform
