// Boxes, forms, clipboard and shell on a desktop of Qt, and the one way from them into the tools.
#pragma once

#include <functional>

#include "hosts/workbench/forms/ActionGate.h"
#include "hosts/workbench/forms/FrontWindow.h"
#include "hosts/workbench/forms/QtBoxes.h"
#include "hosts/workbench/forms/QtClipboard.h"
#include "hosts/workbench/forms/QtScreen.h"
#include "hosts/workbench/forms/QtShell.h"

namespace tessel::workbench {

class QtDesktop {
 public:
  QtDesktop();
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;

  /// The program's window, in front of which all others stand. Null: they stand alone.
  void SetParent(QWidget* parent) { front_.Parent = parent; }
  /// Called around everything that a tool does on behalf of the user, to be told what belongs
  /// together. It must call its argument once and may be called inside itself. Without one
  /// the argument is just called.
  std::function<void(const std::function<void()>&)> RunTool;

  /// Lets a tool act: through `RunTool`, with a message for the user when it fails.
  void RunAction(const std::function<void()>& action) { gate_.Run(action); }
  /// The same for a timer of a tool, which ticks while the user may be typing: no `RunTool`.
  void RunTick(const std::function<void()>& tick) { gate_.RunUnwrapped(tick); }
  /// Whether a tool is at work. Its progress window is open then, and events run inside it.
  [[nodiscard]] bool IsBusy() const { return gate_.IsBusy(); }
  /// The open window of a form, null for none.
  [[nodiscard]] FormWindow* WindowOf(const forms::Form& form) const {
    return screen_.WindowOf(form);
  }

  /// The way into the tools, for what shows documents.
  [[nodiscard]] ActionGate& Gate() { return gate_; }
  [[nodiscard]] QtBoxes& Boxes() { return boxes_; }
  [[nodiscard]] QtScreen& Screen() { return screen_; }
  [[nodiscard]] QtClipboard& Clipboard() { return clipboard_; }
  [[nodiscard]] QtShell& Shell() { return shell_; }

 private:
  void Report(const vb::Failure& failure);

  ActionGate gate_;
  FrontWindow front_;
  QtBoxes boxes_{front_};
  QtScreen screen_{gate_, front_};
  QtClipboard clipboard_;
  QtShell shell_;
};

}  // namespace tessel::workbench
