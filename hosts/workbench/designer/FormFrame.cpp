#include "hosts/workbench/designer/FormFrame.h"

#include <QFontMetrics>
#include <cmath>

#include "hosts/workbench/designer/Values.h"

namespace tessel::workbench {
namespace {

constexpr int Margin = 10;
constexpr double TitleTwips = 420, StripTwips = 315, MenuGapTwips = 120;
constexpr double FramePoints = 9;

bool HasTitle(const model::DesignerNode& root) {
  const StringView name = ShortName(root.Class);
  if (!vb::SameText(name, u"Form") && !vb::SameText(name, u"MDIForm")) return false;
  return NumberOf(root, u"BorderStyle", 2) != 0;
}

std::vector<MenuTitle> PlaceMenus(const FormLayout& layout, const QRect& strip, double scale) {
  std::vector<MenuTitle> titles;
  const QFontMetrics metrics(FrameFont(scale));
  const int gap = static_cast<int>(std::lround(MenuGapTwips * scale));
  int left = strip.left();
  for (model::DesignerNode* menu : layout.Menus()) {
    if (left > strip.right()) break;
    const QRect text =
        metrics.boundingRect(QRect(0, 0, 0, 0), Qt::TextShowMnemonic, TextOf(*menu, u"Caption"));
    titles.push_back({menu, QRect(left, strip.top(), text.width() + 2 * gap, strip.height())});
    left += text.width() + 2 * gap;
  }
  return titles;
}

}  // namespace

QPointF FormFrame::ToPixels(QPointF twips) const { return QPointF(Body.topLeft()) + twips * Scale; }

QRect FormFrame::ToPixels(const QRectF& twips) const {
  const auto pixel = [this](double at) { return static_cast<int>(std::lround(at * Scale)); };
  const int left = pixel(twips.left()), top = pixel(twips.top());
  return QRect(left, top, pixel(twips.right()) - left, pixel(twips.bottom()) - top)
      .translated(Body.topLeft());
}

QPointF FormFrame::ToTwips(QPointF pixels) const {
  return (pixels - QPointF(Body.topLeft())) / Scale;
}

QFont FrameFont(double scale) {
  FontValue font;
  font.Points = FramePoints;
  return DrawnFont(font, scale);
}

FormFrame FrameOf(const model::DesignerNode& root, const FormLayout& layout, double scale) {
  FormFrame frame;
  frame.Scale = scale;
  const auto pixels = [scale](double twips) {
    return static_cast<int>(std::lround(twips * scale));
  };
  const int width = pixels(layout.ClientSize().width());
  int top = Margin;
  if (HasTitle(root)) {
    frame.Title = {Margin, top, width, pixels(TitleTwips)};
    top += frame.Title.height();
  }
  if (!layout.Menus().empty()) {
    frame.Strip = {Margin, top, width, pixels(StripTwips)};
    frame.Menus = PlaceMenus(layout, frame.Strip, scale);
    top += frame.Strip.height();
  }
  frame.Body = {Margin, top, width, pixels(layout.ClientSize().height())};
  frame.Whole = {width + 2 * Margin, top + frame.Body.height() + Margin};
  return frame;
}

}  // namespace tessel::workbench
