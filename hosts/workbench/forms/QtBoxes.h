// The standard boxes of Qt as the tools ask for them.
#pragma once

#include "hosts/workbench/forms/FrontWindow.h"
#include "hosts/workbench/forms/StandardBoxes.h"
#include "platform/Boxes.h"

namespace tessel::workbench {

/// Each box stands in front of the window that is in front.
class QtBoxes : public platform::Boxes {
 public:
  explicit QtBoxes(const FrontWindow& front) : front_(front) {}

  [[nodiscard]] platform::MessageAnswer ShowMessage(StringView text, StringView title,
                                                    int style) override {
    return AskMessage(front_.Get(), text, title, style);
  }
  [[nodiscard]] std::optional<String> InputBox(StringView prompt, StringView title,
                                               StringView text) override {
    return AskInput(front_.Get(), prompt, title, text);
  }
  [[nodiscard]] std::vector<String> FileDialog(
      const platform::FileDialogRequest& request) override {
    return AskFiles(front_.Get(), request);
  }
  [[nodiscard]] bool FontDialog(forms::Font& font, StringView title) override {
    return AskFont(front_.Get(), font, title);
  }

 private:
  const FrontWindow& front_;
};

}  // namespace tessel::workbench
