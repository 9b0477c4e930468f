// The Qt application of the workbench.
#pragma once

#include <QApplication>
#include <functional>

#include "hosts/workbench/window/HeldKeys.h"

namespace tessel::workbench {

/// Catches what a handler of an event failed with, so that no failure ends the program.
class Application : public QApplication {
 public:
  Application(int& argc, char** argv);
  bool notify(QObject* receiver, QEvent* event) override;

  /// Shows a failure that nobody else has shown.
  std::function<void(const QString&)> OnFailure;

 private:
  HeldKeys heldKeys_;
};

}  // namespace tessel::workbench
