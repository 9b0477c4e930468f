// Message box, input box, file and font dialogs of the desktop.
#pragma once

#include "platform/Boxes.h"

class QWidget;

namespace tessel::workbench {

/// The answer of the button pressed; closing the box answers Cancel, No or Abort where it has such
/// a button, else OK.
[[nodiscard]] platform::MessageAnswer AskMessage(QWidget* parent, StringView text, StringView title,
                                                 int style);
/// Nothing when cancelled.
[[nodiscard]] std::optional<String> AskInput(QWidget* parent, StringView prompt, StringView title,
                                             StringView text);
/// Full paths; empty when cancelled.
[[nodiscard]] std::vector<String> AskFiles(QWidget* parent,
                                           const platform::FileDialogRequest& request);
/// Changes `font` and answers true when accepted.
[[nodiscard]] bool AskFont(QWidget* parent, forms::Font& font, StringView title);

/// The filters of a file dialog, from "caption|pattern|caption|pattern".
[[nodiscard]] std::vector<String> FileFilters(StringView filter);

}  // namespace tessel::workbench
