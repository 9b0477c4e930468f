#include "hosts/workbench/forms/QtShell.h"

#include <QApplication>
#include <QWindow>

#include "hosts/workbench/forms/DocumentOpener.h"
#include "hosts/workbench/forms/KeyStrokes.h"

namespace tessel::workbench {

QtShell::~QtShell() { delete help_.data(); }

void QtShell::SendKeys(StringView keys) { SendStrokes(ReadKeys(keys)); }

void QtShell::Beep() { QApplication::beep(); }

int QtShell::OpenDocument(StringView target, StringView verb, StringView parameters) {
  return OpenTarget(target, verb, parameters);
}

/// A dialog that takes all input leaves it to the windows that belong to it alone; whether one does
/// is decided when it is shown.
void QtShell::UnblockHelp() {
  const QWidget* const modal = QApplication::activeModalWidget();
  QWindow* const owner = modal == nullptr ? nullptr : modal->window()->windowHandle();
  help_->winId();
  if (help_->windowHandle()->transientParent() == owner) return;
  help_->hide();
  help_->windowHandle()->setTransientParent(owner);
}

// The topics travel inside the program, whatever file they once came in.
void QtShell::ShowHelp(StringView, StringView topic) {
  if (!help_) help_ = new HelpWindow;
  UnblockHelp();
  help_->ShowTopic(topic);
}

}  // namespace tessel::workbench
