// Draws a whole form as its designer shows it.
#pragma once

#include <QPainter>

#include "hosts/workbench/designer/FormFrame.h"

namespace tessel::workbench {

/// Distance of the grid's dots and of the places that controls snap to, twips.
inline constexpr double GridTwips = 120;

/// Draws title, menus, body with its grid, and all controls that meet `exposed` (pixels).
void PaintForm(QPainter& painter, const model::DesignerNode& root, const FormLayout& layout,
               const FormFrame& frame, const QRect& exposed);

}  // namespace tessel::workbench
