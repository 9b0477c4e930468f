// The small squares around a chosen control.
#pragma once

#include <QRectF>
#include <Qt>
#include <vector>

#include "hosts/workbench/designer/FormFrame.h"

namespace tessel::workbench {

enum class Handle {
  None,
  TopLeft,
  Top,
  TopRight,
  Right,
  BottomRight,
  Bottom,
  BottomLeft,
  Left,
  LineStart,
  LineEnd,
};

/// A handle and its square in pixels.
struct HandlePlace {
  Handle Which;
  QRect Place;
  bool Active = true;  ///< can be dragged
};

/// The handles of a control.
[[nodiscard]] std::vector<HandlePlace> HandlesOf(const FormFrame& frame,
                                                 const PlacedControl& control);

/// The handles of the form itself; only the three that make it larger are active, and none of
/// another library's designer.
[[nodiscard]] std::vector<HandlePlace> HandlesOfForm(const FormFrame& frame, bool sizable);

/// The active handle at a point, None when there is none.
[[nodiscard]] Handle HandleAt(const std::vector<HandlePlace>& handles, QPoint pixel);

[[nodiscard]] Qt::CursorShape CursorOf(Handle handle);

/// Which edges a handle moves.
[[nodiscard]] bool MovesLeft(Handle handle);
[[nodiscard]] bool MovesRight(Handle handle);
[[nodiscard]] bool MovesTop(Handle handle);
[[nodiscard]] bool MovesBottom(Handle handle);

/// A rectangle with the handle's edges moved; an edge stops at the one across.
[[nodiscard]] QRectF Resized(QRectF bounds, Handle handle, QPointF by);

}  // namespace tessel::workbench
