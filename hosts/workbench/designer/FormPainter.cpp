#include "hosts/workbench/designer/FormPainter.h"

#include <algorithm>
#include <cmath>

#include "hosts/workbench/designer/ControlPainter.h"

namespace tessel::workbench {
namespace {

constexpr QRgb TitleBack = 0xFFDDE5EF, TitleInk = 0xFF1C1C1C, StripBack = 0xFFFAFAFA;
/// Below this distance in pixels the dots would be a grey.
constexpr double NearestDots = 4;

void PaintTitleButtons(QPainter& painter, const QRect& title) {
  const int side = title.height() / 3, step = title.height();
  QRect place(title.right() - step + (step - side) / 2, title.center().y() - side / 2, side, side);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(place.topLeft(), place.bottomRight());
  painter.drawLine(place.topRight(), place.bottomLeft());
  painter.drawRect(place.translated(-step, 0));
  place.translate(-2 * step, 0);
  painter.drawLine(place.left(), place.center().y(), place.right(), place.center().y());
  painter.setRenderHint(QPainter::Antialiasing, false);
}

void PaintTitle(QPainter& painter, const model::DesignerNode& root, const FormFrame& frame) {
  if (frame.Title.isEmpty()) return;
  painter.setFont(FrameFont(frame.Scale));
  painter.fillRect(frame.Title, QColor(TitleBack));
  painter.setPen(QColor(TitleInk));
  const int buttons = 3 * frame.Title.height();
  painter.drawText(frame.Title.adjusted(8, 0, -buttons, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   TextOf(root, u"Caption"));
  if (frame.Title.width() > buttons && FlagOf(root, u"ControlBox", true)) {
    PaintTitleButtons(painter, frame.Title);
  }
}

void PaintMenus(QPainter& painter, const FormFrame& frame) {
  if (frame.Strip.isEmpty()) return;
  painter.fillRect(frame.Strip, QColor(StripBack));
  painter.setFont(FrameFont(frame.Scale));
  painter.setClipRect(frame.Strip);
  for (const MenuTitle& menu : frame.Menus) {
    const bool live = FlagOf(*menu.Node, u"Visible", true) && FlagOf(*menu.Node, u"Enabled", true);
    painter.setPen(QColor(live ? FormColors::Text : FormColors::Grey));
    painter.drawText(menu.Place, Qt::AlignCenter | Qt::TextShowMnemonic,
                     TextOf(*menu.Node, u"Caption"));
  }
  painter.setClipping(false);
}

void PaintGrid(QPainter& painter, const FormFrame& frame, const QRect& exposed,
               const QColor& back) {
  const double step = GridTwips * frame.Scale;
  const QRect part = exposed & frame.Body;
  if (part.isEmpty() || step < NearestDots) return;
  painter.setPen(back.lightness() > 127 ? back.darker(160) : back.lighter(300).lighter(120));
  const auto first = [step](int at) { return std::ceil(at / step); };
  std::vector<QPointF> dots;
  for (double row = first(part.top() - frame.Body.top());; ++row) {
    const double y = std::round(frame.Body.top() + row * step);
    if (y > part.bottom()) break;
    for (double column = first(part.left() - frame.Body.left());; ++column) {
      const double x = std::round(frame.Body.left() + column * step);
      if (x > part.right()) break;
      dots.emplace_back(x, y);
    }
  }
  painter.drawPoints(dots.data(), static_cast<int>(dots.size()));
}

/// What of a control may be drawn on, twips.
QRectF ClipOf(const FormLayout& layout, const PlacedControl& control) {
  if (!control.IsLine()) return control.Shown;
  const PlacedControl* const holder = layout.ContainerOf(control);
  return holder == nullptr ? QRectF(QPointF(), layout.ClientSize()) : holder->Shown;
}

void PaintControls(QPainter& painter, const model::DesignerNode& root, const FormLayout& layout,
                   const FormFrame& frame, const QRect& exposed) {
  const FontValue font = FontOf(root);
  for (const int at : layout.PaintOrder()) {
    const PlacedControl& control = layout.Controls()[static_cast<std::size_t>(at)];
    const QRect clip = frame.ToPixels(ClipOf(layout, control)) & exposed;
    if (clip.isEmpty()) continue;
    painter.setClipRect(clip);
    PaintControl(painter, {control,
                           frame.ToPixels(control.Bounds),
                           {frame.ToPixels(control.Line.p1()), frame.ToPixels(control.Line.p2())},
                           frame.Scale,
                           font});
  }
  painter.setClipping(false);
}

}  // namespace

void PaintForm(QPainter& painter, const model::DesignerNode& root, const FormLayout& layout,
               const FormFrame& frame, const QRect& exposed) {
  const QColor back = BodyColor(root);
  PaintTitle(painter, root, frame);
  PaintMenus(painter, frame);
  painter.fillRect(frame.Body & exposed, back);
  PaintGrid(painter, frame, exposed, back);
  PaintControls(painter, root, layout, frame, exposed);
  painter.setPen(QColor(FormColors::Border));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect((frame.Title | frame.Strip | frame.Body).adjusted(-1, -1, 0, 0));
}

}  // namespace tessel::workbench
