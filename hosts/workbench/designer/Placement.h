// Places on a form as a file says them.
#pragma once

#include "hosts/workbench/designer/DesignerEditor.h"
#include "hosts/workbench/designer/FormLayout.h"

namespace tessel::workbench {

/// A number of twips, or of units of a scale, as files have it: no more than three digits behind
/// the point.
[[nodiscard]] String TwipsText(double units);

/// The nearest dot of the grid, twips.
[[nodiscard]] double SnapToGrid(double twips);
[[nodiscard]] QPointF SnapToGrid(QPointF twips);

/// The properties that differ when a control takes other bounds; both in twips of the body.
[[nodiscard]] PropertyEdits BoundsEdits(const FormLayout& layout, const PlacedControl& control,
                                        const QRectF& bounds);
/// The same for a line's ends.
[[nodiscard]] PropertyEdits LineEdits(const FormLayout& layout, const PlacedControl& control,
                                      const QLineF& line);
/// The same for the size of the form's body, with the scale that depends on it.
[[nodiscard]] PropertyEdits FormSizeEdits(model::DesignerNode& root, const FormLayout& layout,
                                          QSizeF client);

/// What a new control of a class begins with. `container` null is the form; `from` and `to` are the
/// corners that were drawn.
[[nodiscard]] std::vector<NamedValue> NewControlValues(const model::DesignerTree& tree,
                                                       const FormLayout& layout,
                                                       const PlacedControl* container,
                                                       StringView className, StringView name,
                                                       QPointF from, QPointF to);

}  // namespace tessel::workbench
