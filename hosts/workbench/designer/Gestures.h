// What a mouse button held down does on a form. Nothing changes until it is let go.
#pragma once

#include <QPainter>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/workbench/designer/Handles.h"
#include "hosts/workbench/designer/Placement.h"

namespace tessel::workbench {

/// Follows the mouse from where it was pressed. Points are pixels of the canvas.
class Gesture {
 public:
  explicit Gesture(QPoint start) : start_(start), now_(start) {}
  Gesture(const Gesture&) = delete;
  Gesture& operator=(const Gesture&) = delete;
  virtual ~Gesture() = default;
  void MoveTo(QPoint pixel);
  /// Whether the mouse went farther than a hand trembles.
  [[nodiscard]] bool Moved() const { return moved_; }
  virtual void Paint(QPainter& painter) const = 0;
  /// The mouse was let go.
  virtual void Finish() = 0;

 protected:
  QPoint start_, now_;

 private:
  bool moved_ = false;
};

/// What the gestures of a view work on; valid until the form's layout changes.
struct GestureGround {
  const FormLayout& Layout;
  const FormFrame& Frame;
  DesignerEditor& Editor;
};

/// Moves controls; the leading one (the last) snaps to the grid.
[[nodiscard]] std::unique_ptr<Gesture> MoveControls(const GestureGround& ground, QPoint start,
                                                    std::vector<PlacedControl> controls);
/// Drags a handle of the leading control (the last); the others grow by the same.
[[nodiscard]] std::unique_ptr<Gesture> SizeControls(const GestureGround& ground, QPoint start,
                                                    std::vector<PlacedControl> controls,
                                                    Handle handle);
/// Drags a handle of the form.
[[nodiscard]] std::unique_ptr<Gesture> SizeForm(const GestureGround& ground, QPoint start,
                                                Handle handle);
/// Frames controls; the rectangle, in twips, is told when the mouse is let go.
[[nodiscard]] std::unique_ptr<Gesture> FrameControls(const GestureGround& ground, QPoint start,
                                                     std::function<void(const QRectF&)> framed);
/// Draws a new control; its corners, in twips, are told. A mere click tells the same corner twice.
[[nodiscard]] std::unique_ptr<Gesture> DrawControl(
    const GestureGround& ground, QPoint start, bool isLine,
    std::function<void(QPointF from, QPointF to)> drawn);

}  // namespace tessel::workbench
