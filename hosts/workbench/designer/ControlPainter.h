// Draws controls and forms as they will look to whoever uses them.
#pragma once

#include <QPainter>

#include "hosts/workbench/designer/FormLayout.h"
#include "hosts/workbench/designer/Values.h"

namespace tessel::workbench {

/// The colours of forms. They don't follow the workbench's palette: a form says its colours itself.
namespace FormColors {
inline constexpr QRgb Face = 0xFFF0F0F0, Window = 0xFFFFFFFF, Text = 0xFF000000,
                      Shadow = 0xFFA0A0A0, Border = 0xFF7A7A7A, Grey = 0xFF6D6D6D,
                      ButtonFace = 0xFFE1E1E1, Workspace = 0xFFABABAB, Accent = 0xFF2F6FB5;
}  // namespace FormColors

/// One control to draw.
struct ControlDrawing {
  const PlacedControl& Control;
  QRect Place;   ///< pixels
  QLineF Line;   ///< pixels, of a line control
  double Scale;  ///< pixels a twip
  FontValue FormFont;
};

/// Draws the control without what stands in it. The painter's state is as before behind it.
void PaintControl(QPainter& painter, const ControlDrawing& drawing);

/// Background of a form's body.
[[nodiscard]] QColor BodyColor(const model::DesignerNode& root);

}  // namespace tessel::workbench
