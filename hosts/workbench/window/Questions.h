// What the window tells its user and asks him.
#pragma once

#include <QMessageBox>
#include <QStringList>
#include <functional>

namespace tessel::workbench {

/// As many lines of a list as a message box can show.
[[nodiscard]] QString Listed(const QStringList& lines);

/// Message boxes in front of one window. Every call waits for the user.
class Questions {
 public:
  /// `window` is not owned.
  explicit Questions(QWidget& window) : window_(window) {}

  void ShowFailure(const QString& text);
  /// Runs an action and shows what it fails with; false when it failed.
  bool Guard(const std::function<void()>& action);
  /// The button that was pressed; that of Escape when the box was closed.
  QMessageBox::StandardButton Ask(const QString& text, QMessageBox::StandardButtons buttons,
                                  QMessageBox::StandardButton byDefault);
  /// The number of the pressed one of `captions`, -1 for the last of them or a closed box.
  int Choose(const QString& text, const QStringList& captions, int byDefault);
  [[nodiscard]] QWidget& Window() const { return window_; }

  /// Whether something that takes all input is in front of the user, of the window or of a tool.
  [[nodiscard]] static bool IsBoxOpen();

 private:
  QWidget& window_;
};

}  // namespace tessel::workbench
