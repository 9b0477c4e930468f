// A desktop whose user is a script.
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "hosts/memory/UnattendedDesktop.h"
#include "vb/Failure.h"

namespace tessel::memory {

class ScriptedDesktop : public UnattendedDesktop {
 public:
  // What was seen, oldest first.
  std::vector<Message> Messages;
  std::vector<std::string>
      Journal;  ///< "beep", "keys ...", "help FILE TOPIC", "open VERB TARGET", ...

  // What the user does. An empty queue refuses as an unattended desktop does.
  std::deque<platform::MessageAnswer> Answers;
  std::deque<std::optional<String>> Inputs;
  std::deque<std::vector<String>> Files;
  std::function<bool(forms::Font&)> OnFontDialog;
  /// Told of every modal form that shows, ahead of OnModal.
  std::function<void(forms::Form&)> OnShow;
  /// Called when a modal form shows. If the form still shows behind it, it is closed by its frame.
  std::function<void(forms::Form&)> OnModal;
  /// Chooses an item of a menu that pops up by its name; empty: closes the menu.
  std::function<String(forms::MenuItem&)> OnMenu;
  /// When set, each text that is put into the clipboard fails with this.
  std::optional<vb::Failure> FailClipboard;
  int ShellAnswer = platform::ShellSuccess;
  /// Where every form stands; nothing: forms have no place.
  std::optional<platform::WindowPlacement> Placement;
  std::optional<platform::WindowPlacement> ScreenPlacement;

  [[nodiscard]] platform::MessageAnswer ShowMessage(StringView text, StringView title,
                                                    int style) override;
  [[nodiscard]] std::optional<String> InputBox(StringView prompt, StringView title,
                                               StringView text) override;
  [[nodiscard]] std::vector<String> FileDialog(const platform::FileDialogRequest& request) override;
  [[nodiscard]] bool FontDialog(forms::Font& font, StringView title) override;
  void SetForeground(forms::Form& form) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> GetPlacement(forms::Form&) override {
    return Placement;
  }
  void SetPlacement(forms::Form&, const platform::WindowPlacement& placement) override {
    Placement = placement;
  }
  [[nodiscard]] std::optional<platform::WindowPlacement> DesktopPlacement() override {
    return ScreenPlacement;
  }
  [[nodiscard]] forms::MenuItem* PopUp(forms::Surface& surface, forms::MenuItem& menu,
                                       std::optional<platform::SurfacePoint> place) override;
  void SetText(StringView text) override;
  void SendKeys(StringView keys) override;
  void Beep() override;
  int OpenDocument(StringView target, StringView verb, StringView parameters) override;
  void ShowHelp(StringView helpFile, StringView topic) override;

 protected:
  void Attend(forms::Form& form) override;
};

}  // namespace tessel::memory
