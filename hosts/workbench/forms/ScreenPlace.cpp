#include "hosts/workbench/forms/ScreenPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace tessel::workbench {

QRect ScreenAround(const QPoint& point) {
  const QScreen* screen = QGuiApplication::screenAt(point);
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  return screen->availableGeometry();
}

QRect KeptOnScreen(const QRect& place) {
  const QRect room = ScreenAround(place.center());
  QRect kept(place.topLeft(), place.size().boundedTo(room.size()));
  kept.moveLeft(std::clamp(kept.left(), room.left(), room.right() - kept.width() + 1));
  kept.moveTop(std::clamp(kept.top(), room.top(), room.bottom() - kept.height() + 1));
  return kept;
}

}  // namespace tessel::workbench
