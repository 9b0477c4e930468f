// Pictures of the control classes, drawn from lines.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPainter>

#include "hosts/workbench/designer/ControlClasses.h"

namespace tessel::workbench {

/// The inks of a picture. Taken from a palette they can be read on dark and on light.
struct IconInks {
  QColor Line, Fill, Accent;
};

/// Draws the picture of a class into a rectangle, at any size.
void PaintToolIcon(QPainter& painter, const QRectF& place, Look look, const IconInks& inks);

/// The arrow that stands for choosing instead of drawing.
void PaintPointerIcon(QPainter& painter, const QRectF& place, const IconInks& inks);

/// The inks that fit a palette's buttons.
[[nodiscard]] IconInks InksFor(const QPalette& palette);

/// A picture as an icon; `look` empty for the pointer.
[[nodiscard]] QIcon ToolIcon(const Look* look, const QPalette& palette);

}  // namespace tessel::workbench
