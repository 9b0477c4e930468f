// Where the window of a form opens.
#pragma once

#include <QRect>
#include <optional>

class QWidget;

namespace tessel::workbench {

/// Place and size of one window, from ahead of its first opening on.
class FormPlace {
 public:
  explicit FormPlace(QWidget& window) : window_(window) {}

  /// Where the restored window stands, or would open.
  [[nodiscard]] QRect Get() const;
  /// A place of the size that the window would have by itself only moves it.
  void Set(const QRect& place, bool maximized);
  /// Gives the window its size, and its place if it has one, all of it on the screen. A window that
  /// was open before stays as it was.
  void Prepare();
  [[nodiscard]] bool IsMaximized() const { return maximized_; }

 private:
  void Apply();
  QWidget& window_;
  std::optional<QRect> place_;
  bool moved_ = false;  // the place says where, and not how large
  bool maximized_ = false, opened_ = false;
};

}  // namespace tessel::workbench
