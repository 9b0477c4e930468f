#include "hosts/workbench/window/Application.h"

#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"

namespace tessel::workbench {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName(QStringLiteral("tessel-workbench"));
  setApplicationDisplayName(QString());
  setApplicationVersion(QStringLiteral("1.0.0"));
  installEventFilter(&heldKeys_);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  QString text;
  try {
    return QApplication::notify(receiver, event);
  } catch (const vb::Failure& failure) {
    text = ToQt(failure.Description());
  } catch (const std::exception& failure) {
    text = QString::fromUtf8(failure.what());
  }
  if (OnFailure) OnFailure(text);
  return false;
}

}  // namespace tessel::workbench
