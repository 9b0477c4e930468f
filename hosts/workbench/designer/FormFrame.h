// A form on the screen: its title, its menus and its body, and pixels for twips.
#pragma once

#include <QFont>
#include <QRect>
#include <QSize>
#include <vector>

#include "hosts/workbench/designer/FormLayout.h"

namespace tessel::workbench {

/// A menu's title in the strip.
struct MenuTitle {
  model::DesignerNode* Node;
  QRect Place;
};

/// Where the parts of a form stand, in pixels of the widget that draws it.
struct FormFrame {
  double Scale = 1;  ///< pixels a twip
  QRect Title;       ///< empty for what has no title bar
  QRect Strip;       ///< of the menus; empty when there are none
  QRect Body;
  QSize Whole{0, 0};  ///< with room around for the handles
  std::vector<MenuTitle> Menus;

  [[nodiscard]] QPointF ToPixels(QPointF twips) const;
  [[nodiscard]] QRect ToPixels(const QRectF& twips) const;
  [[nodiscard]] QPointF ToTwips(QPointF pixels) const;
};

/// The frame of a designer's form at a scale.
[[nodiscard]] FormFrame FrameOf(const model::DesignerNode& root, const FormLayout& layout,
                                double scale);

/// Font of title and menus at a scale.
[[nodiscard]] QFont FrameFont(double scale);

}  // namespace tessel::workbench
