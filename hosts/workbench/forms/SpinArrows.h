// The two arrows beside a number.
#pragma once

#include <QWidget>
#include <functional>

class QToolButton;

namespace tessel::workbench {

/// Takes the focus; the arrow keys, the page keys and the wheel turn it as the mouse does.
class SpinArrows : public QWidget {
 public:
  SpinArrows();
  /// Steps up (above 0) or down.
  std::function<void(int steps)> Turned;
  [[nodiscard]] QToolButton& Up() const { return *up_; }
  [[nodiscard]] QToolButton& Down() const { return *down_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QToolButton* AddArrow(Qt::ArrowType arrow, int step);
  QToolButton* up_;
  QToolButton* down_;
  int wheel_ = 0;  // part of a step that a fine wheel has turned
};

}  // namespace tessel::workbench
