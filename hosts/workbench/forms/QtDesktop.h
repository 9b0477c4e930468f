// Boxes, dialogs, clipboard and help on a desktop of Qt.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>

#include "hosts/workbench/forms/ActionGate.h"
#include "hosts/workbench/forms/FormWindow.h"
#include "hosts/workbench/platform/HelpWindow.h"
#include "platform/Desktop.h"

namespace tessel::workbench {

class QtDesktop : public platform::Desktop {
 public:
  QtDesktop();
  ~QtDesktop() override;
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;

  /// The program's window, in front of which all others stand. Null: they stand alone.
  void SetParent(QWidget* parent) { parent_ = parent; }
  /// Called around everything that a tool does on behalf of the user or of a timer, to be told what
  /// belongs together. It must call its argument once and may be called inside itself. Without one
  /// the argument is just called.
  std::function<void(const std::function<void()>&)> RunTool;

  /// Lets a tool act: through `RunTool`, with a message for the user when it fails.
  void RunAction(const std::function<void()>& action) { gate_.Run(action); }
  /// Whether a tool is at work. Its progress window is open then, and events run inside it.
  [[nodiscard]] bool IsBusy() const { return gate_.IsBusy(); }
  /// The open window of a form, null for none.
  [[nodiscard]] FormWindow* WindowOf(const forms::Form& form) const;

  [[nodiscard]] platform::MessageAnswer ShowMessage(StringView text, StringView title,
                                                    int style) override;
  [[nodiscard]] std::optional<String> InputBox(StringView prompt, StringView title,
                                               StringView text) override;
  [[nodiscard]] std::vector<String> FileDialog(const platform::FileDialogRequest& request) override;
  [[nodiscard]] bool FontDialog(forms::Font& font, StringView title) override;
  /// A form that a tool shows without waiting for it takes all input until the tool is through: the
  /// rest of the program must not change under its hands.
  void Show(forms::Form& form, platform::ShowStyle style) override;
  void Hidden(forms::Form& form, bool gone) override;
  void SetForeground(forms::Form& form) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> GetPlacement(forms::Form& form) override;
  void SetPlacement(forms::Form& form, const platform::WindowPlacement& placement) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> DesktopPlacement() override;
  /// Lines end with LF on the clipboard, as other programs here expect, and with CR LF for tools.
  [[nodiscard]] String ClipboardText() override;
  void SetClipboardText(StringView text) override;
  void SetClipboardPicture(int picture) override;
  [[nodiscard]] int ClipboardPicture() override;
  void ClearClipboard() override;
  void SendKeys(StringView keys) override;
  void Beep() override;
  int OpenDocument(StringView target, StringView verb, StringView parameters) override;
  void ShowHelp(StringView helpFile, StringView topic) override;

 private:
  /// The window of a form, made when there is none.
  [[nodiscard]] FormWindow& Window(forms::Form& form);
  [[nodiscard]] QWidget* Front() const;
  void DropLostWindows();
  void Report(const vb::Failure& failure);
  void StopBlocking();
  void UnblockHelp();

  ActionGate gate_;
  QPointer<QWidget> parent_;
  std::map<const forms::Form*, QPointer<FormWindow>> windows_;
  QPointer<HelpWindow> help_;
};

}  // namespace tessel::workbench
