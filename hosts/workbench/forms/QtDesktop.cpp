#include "hosts/workbench/forms/QtDesktop.h"

namespace tessel::workbench {

QtDesktop::QtDesktop() {
  gate_.Wrap = [this](const ActionGate::Action& action) {
    if (const auto hook = RunTool) {
      hook(action);
    } else {
      action();
    }
  };
  gate_.OnFailure = [this](const vb::Failure& failure) { Report(failure); };
  gate_.OnIdle = [this] { screen_.StopBlocking(); };
}

void QtDesktop::Report(const vb::Failure& failure) {
  const String source = failure.Source().empty() ? String() : u"\r\n" + failure.Source();
  const String text =
      failure.Description() + u"\r\n\r\nError " + vb::Str(failure.Number()) + source;
  static_cast<void>(boxes_.ShowMessage(text, u"Tessel", platform::Critical));
}

}  // namespace tessel::workbench
