#include "hosts/workbench/designer/Placement.h"

#include <algorithm>
#include <cmath>

#include "hosts/model/ControlText.h"
#include "hosts/workbench/designer/FormPainter.h"
#include "hosts/workbench/designer/Values.h"
#include "vb/Numbers.h"

namespace tessel::workbench {
namespace {

/// Points of the body as the ends of lines in a container.
struct LineUnits {
  ContainerScale Scale;
  QPointF Origin;

  LineUnits(const FormLayout& layout, const PlacedControl* container)
      : Scale(layout.ScaleOf(container)), Origin(layout.OriginOf(container)) {}
  [[nodiscard]] String X(double twips) const {
    return TwipsText(Scale.Left + (twips - Origin.x()) / Scale.UnitX);
  }
  [[nodiscard]] String Y(double twips) const {
    return TwipsText(Scale.Top + (twips - Origin.y()) / Scale.UnitY);
  }
};

/// Adds a value that isn't the one that stands.
void AddChanged(PropertyEdits& edits, double before, double after, StringView property,
                const String& value) {
  if (std::abs(before - after) > 1e-6) edits.Values.emplace_back(property, value);
}

bool TakesFocus(Look look) {
  return look != Look::Timer && look != Look::Shape && look != Look::Line && look != Look::Image &&
         look != Look::Menu;
}

String NextTabIndex(const model::DesignerTree& tree) {
  double next = 0;
  for (const model::DesignerNode* node : tree.Controls()) {
    next = std::max(next, NumberOf(*node, u"TabIndex", -1) + 1);
  }
  return TwipsText(next);
}

}  // namespace

String TwipsText(double units) {
  const double rounded = std::round(units * 1000) / 1000;
  if (rounded == std::round(rounded)) return vb::Str(static_cast<long long>(rounded));
  return vb::NumberText(rounded);
}

double SnapToGrid(double twips) { return std::round(twips / GridTwips) * GridTwips; }

QPointF SnapToGrid(QPointF twips) { return {SnapToGrid(twips.x()), SnapToGrid(twips.y())}; }

PropertyEdits BoundsEdits(const FormLayout& layout, const PlacedControl& control,
                          const QRectF& bounds) {
  const QPointF origin = layout.OriginOf(layout.ContainerOf(control));
  PropertyEdits edits{control.Node, {}};
  const QRectF& before = control.Bounds;
  AddChanged(edits, before.left(), bounds.left(), u"Left", TwipsText(bounds.left() - origin.x()));
  AddChanged(edits, before.top(), bounds.top(), u"Top", TwipsText(bounds.top() - origin.y()));
  AddChanged(edits, before.width(), bounds.width(), u"Width", TwipsText(bounds.width()));
  AddChanged(edits, before.height(), bounds.height(), u"Height", TwipsText(bounds.height()));
  return edits;
}

PropertyEdits LineEdits(const FormLayout& layout, const PlacedControl& control,
                        const QLineF& line) {
  const LineUnits units(layout, layout.ContainerOf(control));
  PropertyEdits edits{control.Node, {}};
  AddChanged(edits, control.Line.x1(), line.x1(), u"X1", units.X(line.x1()));
  AddChanged(edits, control.Line.y1(), line.y1(), u"Y1", units.Y(line.y1()));
  AddChanged(edits, control.Line.x2(), line.x2(), u"X2", units.X(line.x2()));
  AddChanged(edits, control.Line.y2(), line.y2(), u"Y2", units.Y(line.y2()));
  return edits;
}

PropertyEdits FormSizeEdits(model::DesignerNode& root, const FormLayout& layout, QSizeF client) {
  PropertyEdits edits{&root, {}};
  const QSizeF before = layout.ClientSize();
  AddChanged(edits, before.width(), client.width(), u"ClientWidth", TwipsText(client.width()));
  AddChanged(edits, before.height(), client.height(), u"ClientHeight", TwipsText(client.height()));
  if (NumberOf(root, u"ScaleMode", 1) == 0) return edits;  // units of its own stretch with it
  const ContainerScale scale = layout.ScaleOf(nullptr);
  if (root.RawValue(u"ScaleWidth")) {
    AddChanged(edits, before.width(), client.width(), u"ScaleWidth",
               TwipsText(client.width() / scale.UnitX));
  }
  if (root.RawValue(u"ScaleHeight")) {
    AddChanged(edits, before.height(), client.height(), u"ScaleHeight",
               TwipsText(client.height() / scale.UnitY));
  }
  return edits;
}

std::vector<NamedValue> NewControlValues(const model::DesignerTree& tree, const FormLayout& layout,
                                         const PlacedControl* container, StringView className,
                                         StringView name, QPointF from, QPointF to) {
  const ControlClass* const known = FindControlClass(className);
  const Look look = known == nullptr ? Look::Box : known->Style;
  if (look == Look::Line) {
    const LineUnits units(layout, container);
    return {{u"X1", units.X(from.x())},
            {u"X2", units.X(to.x())},
            {u"Y1", units.Y(from.y())},
            {u"Y2", units.Y(to.y())}};
  }
  const QRectF bounds = QRectF(from, to).normalized().translated(-layout.OriginOf(container));
  std::vector<NamedValue> values;
  const bool onParent = container == nullptr && vb::SameText(tree.Root()->Class, u"VB.MDIForm");
  if (onParent && (look == Look::Picture || look == Look::Data))
    values.emplace_back(u"Align", u"1");
  const StringView text = model::TextPropertyOf(className);
  if (text == u"Caption") values.emplace_back(text, name);
  if (look != Look::Timer) values.emplace_back(u"Height", TwipsText(bounds.height()));
  values.emplace_back(u"Left", TwipsText(bounds.left()));
  if (TakesFocus(look)) values.emplace_back(u"TabIndex", NextTabIndex(tree));
  if (text == u"Text") values.emplace_back(text, name);
  values.emplace_back(u"Top", TwipsText(bounds.top()));
  if (look != Look::Timer) values.emplace_back(u"Width", TwipsText(bounds.width()));
  return values;
}

}  // namespace tessel::workbench
