// A desktop in front of which nobody sits.
#pragma once

#include <functional>
#include <vector>

#include "hosts/memory/MemoryClipboard.h"
#include "hosts/memory/PlainScreen.h"
#include "platform/Boxes.h"
#include "platform/Shell.h"

namespace tessel::memory {

/// Boxes answer themselves with the refusal that they offer: Cancel, Abort, No, else OK. A modal
/// form is closed by its frame as soon as it shows. Nothing leaves the program.
class UnattendedDesktop : public platform::Boxes,
                          public PlainScreen,
                          public MemoryClipboard,
                          public platform::Shell {
 public:
  struct Message {
    String Text, Title;
    int Style;
  };
  /// Called for every message box, before its answer is taken.
  std::function<void(const Message&)> OnMessage;
  std::vector<forms::Form*> Shown;  ///< forms that show, topmost last

  [[nodiscard]] platform::MessageAnswer ShowMessage(StringView text, StringView title,
                                                    int style) override;
  [[nodiscard]] std::optional<String> InputBox(StringView, StringView, StringView) override {
    return std::nullopt;
  }
  [[nodiscard]] std::vector<String> FileDialog(const platform::FileDialogRequest&) override {
    return {};
  }
  [[nodiscard]] bool FontDialog(forms::Font&, StringView) override { return false; }
  void Show(forms::Form& form, platform::ShowStyle style) override;
  void Hidden(forms::Form& form) override;
  void Gone(forms::Form& form) override;
  [[nodiscard]] forms::MenuItem* PopUp(forms::Surface&, forms::MenuItem&,
                                       std::optional<platform::SurfacePoint>) override {
    return nullptr;
  }
  void SendKeys(StringView) override {}
  void Beep() override {}
  int OpenDocument(StringView, StringView, StringView) override { return platform::ShellSuccess; }
  void ShowHelp(StringView, StringView) override {}

 protected:
  /// A modal form shows: the chance to do something with it.
  virtual void Attend(forms::Form&) {}
};

}  // namespace tessel::memory
