// A field over a control that takes its new name.
#pragma once

#include <QLineEdit>
#include <functional>

namespace tessel::workbench {

/// Shows itself over `place` and deletes itself when it is done: Enter and going elsewhere take the
/// name, Escape doesn't.
class InlineRename : public QLineEdit {
 public:
  InlineRename(QWidget* over, const QString& name, const QRect& place);
  /// Gets a name that isn't the one that was shown.
  std::function<void(const QString&)> OnDone;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Close(bool take);
  QString before_;
  bool open_ = true;
};

}  // namespace tessel::workbench
