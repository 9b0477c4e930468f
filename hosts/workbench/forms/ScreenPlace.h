// Rectangles of windows on the screens there are.
#pragma once

#include <QRect>

namespace tessel::workbench {

/// The free area of the screen that a point lies on, or of the main one.
[[nodiscard]] QRect ScreenAround(const QPoint& point);
/// The rectangle, made smaller and moved so that all of it can be seen.
[[nodiscard]] QRect KeptOnScreen(const QRect& place);

}  // namespace tessel::workbench
