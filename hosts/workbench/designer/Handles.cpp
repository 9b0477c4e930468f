#include "hosts/workbench/designer/Handles.h"

#include <algorithm>

namespace tessel::workbench {
namespace {

constexpr int Side = 7;

QRect Square(QPoint center) { return {center.x() - Side / 2, center.y() - Side / 2, Side, Side}; }

std::vector<HandlePlace> Around(const QRect& place) {
  const int left = place.left() - Side / 2 - 1, right = place.left() + place.width() + Side / 2;
  const int top = place.top() - Side / 2 - 1, bottom = place.top() + place.height() + Side / 2;
  const QPoint middle(place.left() + place.width() / 2, place.top() + place.height() / 2);
  return {{Handle::TopLeft, Square({left, top})},
          {Handle::Top, Square({middle.x(), top})},
          {Handle::TopRight, Square({right, top})},
          {Handle::Right, Square({right, middle.y()})},
          {Handle::BottomRight, Square({right, bottom})},
          {Handle::Bottom, Square({middle.x(), bottom})},
          {Handle::BottomLeft, Square({left, bottom})},
          {Handle::Left, Square({left, middle.y()})}};
}

}  // namespace

std::vector<HandlePlace> HandlesOf(const FormFrame& frame, const PlacedControl& control) {
  if (control.IsLine()) {
    return {{Handle::LineStart, Square(frame.ToPixels(control.Line.p1()).toPoint())},
            {Handle::LineEnd, Square(frame.ToPixels(control.Line.p2()).toPoint())}};
  }
  auto handles = Around(frame.ToPixels(control.Bounds));
  for (HandlePlace& handle : handles) handle.Active = control.Sizable;
  return handles;
}

std::vector<HandlePlace> HandlesOfForm(const FormFrame& frame, bool sizable) {
  auto handles = Around(frame.Title | frame.Strip | frame.Body);
  for (HandlePlace& handle : handles) {
    handle.Active = sizable && !MovesLeft(handle.Which) && !MovesTop(handle.Which);
  }
  return handles;
}

Handle HandleAt(const std::vector<HandlePlace>& handles, QPoint pixel) {
  const auto found = std::find_if(handles.begin(), handles.end(), [&](const HandlePlace& handle) {
    return handle.Active && handle.Place.adjusted(-1, -1, 1, 1).contains(pixel);
  });
  return found == handles.end() ? Handle::None : found->Which;
}

Qt::CursorShape CursorOf(Handle handle) {
  switch (handle) {
    case Handle::TopLeft:
    case Handle::BottomRight:
      return Qt::SizeFDiagCursor;
    case Handle::TopRight:
    case Handle::BottomLeft:
      return Qt::SizeBDiagCursor;
    case Handle::Top:
    case Handle::Bottom:
      return Qt::SizeVerCursor;
    case Handle::Left:
    case Handle::Right:
      return Qt::SizeHorCursor;
    case Handle::LineStart:
    case Handle::LineEnd:
      return Qt::CrossCursor;
    case Handle::None:
      break;
  }
  return Qt::ArrowCursor;
}

bool MovesLeft(Handle handle) {
  return handle == Handle::TopLeft || handle == Handle::Left || handle == Handle::BottomLeft;
}
bool MovesRight(Handle handle) {
  return handle == Handle::TopRight || handle == Handle::Right || handle == Handle::BottomRight;
}
bool MovesTop(Handle handle) {
  return handle == Handle::TopLeft || handle == Handle::Top || handle == Handle::TopRight;
}
bool MovesBottom(Handle handle) {
  return handle == Handle::BottomLeft || handle == Handle::Bottom || handle == Handle::BottomRight;
}

QRectF Resized(QRectF bounds, Handle handle, QPointF by) {
  if (MovesLeft(handle)) bounds.setLeft(std::min(bounds.left() + by.x(), bounds.right()));
  if (MovesRight(handle)) bounds.setRight(std::max(bounds.right() + by.x(), bounds.left()));
  if (MovesTop(handle)) bounds.setTop(std::min(bounds.top() + by.y(), bounds.bottom()));
  if (MovesBottom(handle)) bounds.setBottom(std::max(bounds.bottom() + by.y(), bounds.top()));
  return bounds;
}

}  // namespace tessel::workbench
