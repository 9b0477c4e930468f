// Where the controls of a form stand.
#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <unordered_map>
#include <vector>

#include "hosts/model/DesignerTree.h"
#include "hosts/workbench/designer/ControlClasses.h"

namespace tessel::workbench {

/// What the ends of lines in a container are counted in: twips of one unit, and the coordinate of
/// the container's corner. All other places and sizes are twips, whatever the scale.
struct ContainerScale {
  double UnitX = 1, UnitY = 1;
  double Left = 0, Top = 0;
};

/// One control that is drawn. All rectangles are in twips from the corner of the form's body.
struct PlacedControl {
  model::DesignerNode* Node = nullptr;
  const ControlClass* Class = nullptr;  ///< null for a class of a library
  QRectF Bounds;
  QRectF Shown;        ///< what the containers around it leave of it
  QLineF Line;         ///< of a line control
  int Container = -1;  ///< place in the list of its container, -1 for the form
  bool Sizable = true;

  [[nodiscard]] bool IsLine() const { return Class != nullptr && Class->Style == Look::Line; }
  [[nodiscard]] bool Contains(QPointF point) const;
};

/// The places of all controls of a designer, read once from its tree. Missing, odd and huge
/// coordinates give a place as well.
class FormLayout {
 public:
  FormLayout() = default;
  explicit FormLayout(model::DesignerNode& root);

  /// Size of the form's body in twips.
  [[nodiscard]] QSizeF ClientSize() const { return client_; }
  /// Containers ahead of what they hold.
  [[nodiscard]] const std::vector<PlacedControl>& Controls() const { return controls_; }
  /// The same in the order of drawing, the topmost one last, as places in `Controls`.
  [[nodiscard]] const std::vector<int>& PaintOrder() const { return order_; }
  /// The topmost control at a point of the body, null for the form.
  [[nodiscard]] const PlacedControl* At(QPointF twips) const;
  /// Null for a block that isn't drawn, as a menu.
  [[nodiscard]] const PlacedControl* Find(const model::DesignerNode* node) const;
  /// The innermost container at a point, null for the form.
  [[nodiscard]] const PlacedControl* ContainerAt(QPointF twips) const;
  /// The menus of the menu strip.
  [[nodiscard]] const std::vector<model::DesignerNode*>& Menus() const { return menus_; }
  /// Corner of the area that a container's coordinates start in, and its scale. Null for the form.
  [[nodiscard]] QPointF OriginOf(const PlacedControl* container) const;
  [[nodiscard]] ContainerScale ScaleOf(const PlacedControl* container) const;
  [[nodiscard]] const PlacedControl* ContainerOf(const PlacedControl& control) const;

 private:
  void PlaceInside(model::DesignerNode& container, int index);
  /// What the controls of one container have in common.
  struct Frame {
    int Index;
    ContainerScale Scale;
    QPointF Origin;
    QRectF Around;
  };
  void Place(model::DesignerNode& node, const Frame& frame);
  [[nodiscard]] static QSizeF SizeOfControl(const PlacedControl& control);
  [[nodiscard]] static QLineF EndsOfLine(const model::DesignerNode& node, const Frame& frame);
  void OrderInside(int container, const std::vector<std::vector<int>>& inner);

  model::DesignerNode* root_ = nullptr;
  QSizeF client_;
  std::vector<PlacedControl> controls_;
  std::vector<int> order_;
  std::vector<model::DesignerNode*> menus_;
  std::unordered_map<const model::DesignerNode*, int> places_;
};

}  // namespace tessel::workbench
