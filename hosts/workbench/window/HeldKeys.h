// Keys that are held down while a dialog opens or closes.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tessel::workbench {

/// An event filter for the application: a key that answers dialogs and is held down repeats only
/// in the window in which it was pressed. The Return that closes a dialog does not go on in the
/// code behind it, nor does it answer the next dialog.
class HeldKeys : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPointer<QWidget> window_;  // of the last key that was pressed
};

}  // namespace tessel::workbench
