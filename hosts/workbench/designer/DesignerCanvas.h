// The surface that a form is drawn and edited on.
#pragma once

#include <QWidget>
#include <memory>

#include "hosts/workbench/designer/Gestures.h"

namespace tessel::workbench {

class DesignerView;

/// Turns mouse and keys into operations of its view.
class DesignerCanvas : public QWidget {
 public:
  explicit DesignerCanvas(DesignerView& view);

  /// Drops what the mouse has begun.
  void CancelGesture();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void Press(QPoint pixel, Qt::KeyboardModifiers modifiers);
  void PressControl(QPoint pixel, model::DesignerNode& node, Qt::KeyboardModifiers modifiers);
  [[nodiscard]] std::unique_ptr<Gesture> BeginDraw(QPoint pixel);
  [[nodiscard]] std::unique_ptr<Gesture> BeginSize(QPoint pixel);
  [[nodiscard]] std::unique_ptr<Gesture> BeginBand(QPoint pixel, bool extend);
  [[nodiscard]] GestureGround Ground() const;
  [[nodiscard]] std::vector<HandlePlace> HandlesAround(const model::DesignerNode& node) const;
  [[nodiscard]] Handle HandleUnder(QPoint pixel) const;
  bool PressMenu(QPoint pixel);
  void PaintHandles(QPainter& painter) const;
  bool MoveByKey(int key, bool resize);
  void ShowCursor(QPoint pixel);
  [[nodiscard]] QString TipAt(QPoint pixel) const;

  DesignerView& view_;
  std::unique_ptr<Gesture> gesture_;
};

}  // namespace tessel::workbench
