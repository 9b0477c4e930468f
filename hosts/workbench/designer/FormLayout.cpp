#include "hosts/workbench/designer/FormLayout.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "hosts/workbench/designer/Values.h"

namespace tessel::workbench {
namespace {

constexpr double DefaultWidth = 4800, DefaultHeight = 3600;
constexpr double LargestForm = 245'760;  // 16384 pixels
constexpr double IconSize = 480;         // of a control that has no size of its own
constexpr double LineReach = 75;         // how near to a line a click must be

/// Twips of a unit by ScaleMode; 0 stands for units of the form's own.
struct ScaleMode {
  double UnitX, UnitY;
};
constexpr ScaleMode Modes[] = {{0, 0},     {1, 1},       {20, 20},     {15, 15},
                               {120, 240}, {1440, 1440}, {56.7, 56.7}, {566.9, 566.9}};
constexpr int UserMode = 0, TwipMode = 1;

double Near(double twips) { return std::clamp(twips, -FarthestTwip, FarthestTwip); }

double SizeOf(const model::DesignerNode& node, StringView property, double fallback) {
  return std::clamp(NumberOf(node, property, fallback), 0.0, LargestForm);
}

/// Units of a container's own: its inner size over the size that it claims.
double UserUnit(const model::DesignerNode& node, StringView property, double inner) {
  const double claimed = NumberOf(node, property, 0);
  const double unit = claimed == 0 ? 1 : inner / claimed;
  return std::abs(unit) < 1e-3 || std::abs(unit) > 1e5 ? 1 : unit;
}

ContainerScale ReadScale(const model::DesignerNode& node, QSizeF inner) {
  const int mode = static_cast<int>(NumberOf(node, u"ScaleMode", TwipMode));
  if (mode <= UserMode || mode >= static_cast<int>(std::size(Modes))) {
    if (mode != UserMode) return {};
    return {UserUnit(node, u"ScaleWidth", inner.width()),
            UserUnit(node, u"ScaleHeight", inner.height()), NumberOf(node, u"ScaleLeft", 0),
            NumberOf(node, u"ScaleTop", 0)};
  }
  return {Modes[mode].UnitX, Modes[mode].UnitY};
}

/// A border that takes two pixels on each side of a picture's inside.
bool HasBorder(const PlacedControl& control) {
  return control.Class != nullptr && control.Class->Style == Look::Picture &&
         NumberOf(*control.Node, u"BorderStyle", 1) != 0;
}

constexpr double BorderTwips = 2 * TwipsPerPixel;

bool IsMenu(const model::DesignerNode& node) {
  const ControlClass* const known = FindControlClass(node.Class);
  return known != nullptr && known->Style == Look::Menu;
}

bool HasSize(const PlacedControl& control) {
  if (control.Class != nullptr) return control.Class->Style != Look::Timer;
  return control.Node->RawValue(u"Width") || control.Node->RawValue(u"Height");
}

/// Place of a container's own in a list that begins with the form's, which is -1.
std::size_t SlotOf(int container) { return static_cast<std::size_t>(container) + 1; }

double DistanceTo(const QLineF& line, QPointF point) {
  const QPointF along = line.p2() - line.p1(), there = point - line.p1();
  const double length = QPointF::dotProduct(along, along);
  const double part =
      length == 0 ? 0 : std::clamp(QPointF::dotProduct(there, along) / length, 0.0, 1.0);
  return QLineF(line.p1() + along * part, point).length();
}

}  // namespace

bool PlacedControl::Contains(QPointF point) const {
  if (!Shown.adjusted(-LineReach, -LineReach, LineReach, LineReach).contains(point)) return false;
  return IsLine() ? DistanceTo(Line, point) <= LineReach : Shown.contains(point);
}

FormLayout::FormLayout(model::DesignerNode& root) : root_(&root) {
  client_ = {SizeOf(root, u"ClientWidth", DefaultWidth),
             SizeOf(root, u"ClientHeight", DefaultHeight)};
  PlaceInside(root, -1);
  std::vector<std::vector<int>> inner(controls_.size() + 1);
  for (int at = 0; at < static_cast<int>(controls_.size()); ++at) {
    const auto& control = controls_[static_cast<std::size_t>(at)];
    inner[SlotOf(control.Container)].push_back(at);
  }
  OrderInside(-1, inner);
}

void FormLayout::PlaceInside(model::DesignerNode& container, int index) {
  // By value: the list that the container stands in grows.
  const std::optional<PlacedControl> own =
      index < 0 ? std::nullopt : std::optional(controls_[static_cast<std::size_t>(index)]);
  const PlacedControl* const holder = own ? &*own : nullptr;
  const Frame frame{index, ScaleOf(holder), OriginOf(holder),
                    holder == nullptr ? QRectF(QPointF(), client_) : holder->Shown};
  for (const auto& item : container.Items) {
    if (!item.Child) continue;
    if (!IsMenu(*item.Child)) {
      Place(*item.Child, frame);
    } else if (index < 0) {
      menus_.push_back(item.Child.get());
    }
  }
}

const PlacedControl* FormLayout::ContainerOf(const PlacedControl& control) const {
  return control.Container < 0 ? nullptr : &controls_[static_cast<std::size_t>(control.Container)];
}

QPointF FormLayout::OriginOf(const PlacedControl* container) const {
  if (container == nullptr) return {};
  const double border = HasBorder(*container) ? BorderTwips : 0;
  return container->Bounds.topLeft() + QPointF(border, border);
}

ContainerScale FormLayout::ScaleOf(const PlacedControl* container) const {
  if (container == nullptr) return root_ == nullptr ? ContainerScale{} : ReadScale(*root_, client_);
  const double border = HasBorder(*container) ? 2 * BorderTwips : 0;
  return ReadScale(*container->Node, container->Bounds.size() - QSizeF(border, border));
}

QSizeF FormLayout::SizeOfControl(const PlacedControl& control) {
  if (!control.Sizable) return {IconSize, IconSize};
  const bool own = control.Class != nullptr;
  return {SizeOf(*control.Node, u"Width", own ? control.Class->Width : IconSize),
          SizeOf(*control.Node, u"Height", own ? control.Class->Height : IconSize)};
}

QLineF FormLayout::EndsOfLine(const model::DesignerNode& node, const Frame& frame) {
  const ContainerScale& scale = frame.Scale;
  const auto x = [&](StringView property) {
    const double units = NumberOf(node, property, scale.Left) - scale.Left;
    return Near(frame.Origin.x() + units * scale.UnitX);
  };
  const auto y = [&](StringView property) {
    const double units = NumberOf(node, property, scale.Top) - scale.Top;
    return Near(frame.Origin.y() + units * scale.UnitY);
  };
  return {x(u"X1"), y(u"Y1"), x(u"X2"), y(u"Y2")};
}

void FormLayout::Place(model::DesignerNode& node, const Frame& frame) {
  PlacedControl control;
  control.Node = &node;
  control.Class = FindControlClass(node.Class);
  control.Container = frame.Index;
  if (control.IsLine()) {
    control.Line = EndsOfLine(node, frame);
    control.Bounds = QRectF(control.Line.p1(), control.Line.p2()).normalized();
    control.Shown = control.Bounds;
  } else {
    control.Sizable = HasSize(control);
    control.Bounds = {QPointF(Near(frame.Origin.x() + NumberOf(node, u"Left", 0)),
                              Near(frame.Origin.y() + NumberOf(node, u"Top", 0))),
                      SizeOfControl(control)};
    control.Shown = control.Bounds.intersected(frame.Around);
  }
  const int index = static_cast<int>(controls_.size());
  places_.emplace(&node, index);
  controls_.push_back(control);
  PlaceInside(node, index);
}

/// The first block of a file lies on top, and whatever has a window lies above what has none.
void FormLayout::OrderInside(int container, const std::vector<std::vector<int>>& inner) {
  const auto& here = inner[SlotOf(container)];
  for (const bool lightweight : {true, false}) {
    for (auto at = here.rbegin(); at != here.rend(); ++at) {
      const ControlClass* const known = controls_[static_cast<std::size_t>(*at)].Class;
      if ((known != nullptr && known->Lightweight) != lightweight) continue;
      order_.push_back(*at);
      OrderInside(*at, inner);
    }
  }
}

const PlacedControl* FormLayout::At(QPointF twips) const {
  const auto found = std::find_if(order_.rbegin(), order_.rend(), [&](int at) {
    return controls_[static_cast<std::size_t>(at)].Contains(twips);
  });
  return found == order_.rend() ? nullptr : &controls_[static_cast<std::size_t>(*found)];
}

const PlacedControl* FormLayout::Find(const model::DesignerNode* node) const {
  const auto found = places_.find(node);
  return found == places_.end() ? nullptr : &controls_[static_cast<std::size_t>(found->second)];
}

const PlacedControl* FormLayout::ContainerAt(QPointF twips) const {
  const PlacedControl* control = At(twips);
  while (control != nullptr && (control->Class == nullptr || !control->Class->Container)) {
    control = ContainerOf(*control);
  }
  return control;
}

}  // namespace tessel::workbench
