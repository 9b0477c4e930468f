#include "hosts/workbench/designer/ControlPainter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "hosts/workbench/designer/ToolIcons.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

const IconInks Inks{QColor(FormColors::Text), QColor(FormColors::Window),
                    QColor(FormColors::Accent)};
constexpr int ArrowWidth = 17, MarkSize = 13, Inset = 3;
constexpr int LargestPen = 100;

/// What the drawings of all classes need.
struct Canvas {
  QPainter& On;
  const model::DesignerNode& Node;
  QRect Place;
  QLineF Line;
  double Scale;

  [[nodiscard]] int Pixels(int atFullSize) const {
    return std::max(1, static_cast<int>(std::lround(atFullSize * Scale * TwipsPerPixel)));
  }
  [[nodiscard]] QString Caption() const { return TextOf(Node, u"Caption"); }
  [[nodiscard]] QColor Back(QRgb fallback) const {
    return ColorOf(Node, u"BackColor", QColor(fallback));
  }
  [[nodiscard]] QColor Ink() const {
    if (!FlagOf(Node, u"Enabled", true)) return QColor(FormColors::Grey);
    return ColorOf(Node, u"ForeColor", QColor(FormColors::Text));
  }
  void Fill(const QColor& fill, const QColor& border) const {
    On.setPen(border);
    On.setBrush(fill);
    On.drawRect(Place.adjusted(0, 0, -1, -1));
  }
  void Text(const QRect& where, int flags, const QString& text) const {
    On.setPen(Ink());
    On.drawText(where, flags | Qt::TextShowMnemonic, text);
  }
  void Arrow(const QRect& where, QPoint direction) const {
    const QPointF tip = QRectF(where).center() + QPointF(direction) * Pixels(2);
    const QPointF foot = QRectF(where).center() - QPointF(direction) * Pixels(2);
    const QPointF side = QPointF(direction.y(), direction.x()) * Pixels(4);
    On.setPen(Qt::NoPen);
    On.setBrush(QColor(FormColors::Text));
    On.drawPolygon(QPolygonF({foot + side, tip, foot - side}));
  }
};

int AlignmentOf(const model::DesignerNode& node) {
  constexpr int Alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  const double said = NumberOf(node, u"Alignment", 0);
  return Alignments[said == 1 ? 1 : said == 2 ? 2 : 0];
}

/// A grey that can be read on a colour.
QColor GreyOn(const QColor& back) {
  return back.lightness() > 110 ? QColor(FormColors::Grey) : QColor(FormColors::Face).darker(115);
}

void DrawBox(const Canvas& canvas) {
  const QColor back = canvas.Back(FormColors::Face);
  canvas.Fill(back, QColor(FormColors::Shadow));
  canvas.On.setPen(GreyOn(back));
  const QRect text = canvas.Place.adjusted(Inset, 0, -Inset, 0);
  canvas.On.drawText(text, Qt::AlignCenter,
                     canvas.On.fontMetrics().elidedText(ToQt(ShownName(canvas.Node)),
                                                        Qt::ElideRight, text.width()));
}

void DrawPicture(const Canvas& canvas) {
  const bool border = NumberOf(canvas.Node, u"BorderStyle", 1) != 0;
  const QColor back = canvas.Back(FormColors::Face);
  canvas.Fill(back, border ? QColor(FormColors::Border) : back.darker(110));
  const auto picture = canvas.Node.RawValue(u"Picture");
  if (picture) {
    const int side =
        std::min({canvas.Place.width() - 4, canvas.Place.height() - 4, canvas.Pixels(32)});
    QRectF place(0, 0, side, side);
    place.moveCenter(QRectF(canvas.Place).center());
    if (side > 4) PaintToolIcon(canvas.On, place, Look::Picture, Inks);
  }
}

void DrawLabel(const Canvas& canvas) {
  const bool opaque = NumberOf(canvas.Node, u"BackStyle", 1) != 0;
  if (opaque && canvas.Node.RawValue(u"BackColor")) {
    canvas.On.fillRect(canvas.Place, canvas.Back(FormColors::Face));
  }
  QRect text = canvas.Place;
  if (NumberOf(canvas.Node, u"BorderStyle", 0) != 0) {
    canvas.On.setPen(QColor(FormColors::Border));
    canvas.On.setBrush(Qt::NoBrush);
    canvas.On.drawRect(canvas.Place.adjusted(0, 0, -1, -1));
    text.adjust(2, 1, -2, -1);
  }
  canvas.Text(text, AlignmentOf(canvas.Node) | Qt::AlignTop | Qt::TextWordWrap, canvas.Caption());
}

void DrawText(const Canvas& canvas) {
  canvas.Fill(canvas.Back(FormColors::Window), QColor(FormColors::Border));
  const bool lines = FlagOf(canvas.Node, u"MultiLine", false);
  const int vertical = lines ? Qt::AlignTop | Qt::TextWordWrap : Qt::AlignVCenter;
  canvas.On.setPen(canvas.Ink());
  canvas.On.drawText(canvas.Place.adjusted(Inset, 1, -Inset, -1),
                     AlignmentOf(canvas.Node) | vertical, TextOf(canvas.Node, u"Text"));
}

void DrawFrame(const Canvas& canvas) {
  const QFontMetrics metrics = canvas.On.fontMetrics();
  const QColor back = canvas.Back(FormColors::Face);
  canvas.On.fillRect(canvas.Place, back);
  const QString caption = canvas.Caption();
  if (NumberOf(canvas.Node, u"BorderStyle", 1) != 0) {
    canvas.On.setPen(QColor(FormColors::Shadow));
    canvas.On.setBrush(Qt::NoBrush);
    canvas.On.drawRect(canvas.Place.adjusted(0, metrics.height() / 2, -1, -1));
  }
  if (caption.isEmpty()) return;
  QRect text = metrics.boundingRect(QRect(0, 0, 0, 0), Qt::TextShowMnemonic, caption);
  text.moveTo(canvas.Place.left() + canvas.Pixels(9), canvas.Place.top());
  canvas.On.fillRect(text.adjusted(-2, 0, 2, 0) & canvas.Place, back);
  canvas.Text(text, Qt::AlignLeft, caption);
}

void DrawButton(const Canvas& canvas) {
  const bool isDefault = FlagOf(canvas.Node, u"Default", false);
  canvas.Fill(canvas.Back(FormColors::ButtonFace),
              QColor(isDefault ? FormColors::Accent : FormColors::Shadow));
  canvas.Text(canvas.Place.adjusted(2, 1, -2, -1), Qt::AlignCenter | Qt::TextWordWrap,
              canvas.Caption());
}

/// Where the mark of a check box or option stands, and what is left for its text.
struct MarkPlaces {
  QRect Mark, Text;
};

MarkPlaces PlacesOf(const Canvas& canvas) {
  const int size = canvas.Pixels(MarkSize);
  QRect mark(0, 0, size, size);
  mark.moveCenter(canvas.Place.center());
  if (NumberOf(canvas.Node, u"Alignment", 0) == 1) {
    mark.moveRight(canvas.Place.right());
    return {mark, canvas.Place.adjusted(0, 0, -size - canvas.Pixels(4), 0)};
  }
  mark.moveLeft(canvas.Place.left());
  return {mark, canvas.Place.adjusted(size + canvas.Pixels(4), 0, 0, 0)};
}

bool IsGraphical(const Canvas& canvas) { return NumberOf(canvas.Node, u"Style", 0) == 1; }

/// Ground, and pen and brush for the mark.
MarkPlaces BeginMark(const Canvas& canvas) {
  if (canvas.Node.RawValue(u"BackColor")) {
    canvas.On.fillRect(canvas.Place, canvas.Back(FormColors::Face));
  }
  const MarkPlaces places = PlacesOf(canvas);
  canvas.Text(places.Text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, canvas.Caption());
  canvas.On.setRenderHint(QPainter::Antialiasing);
  canvas.On.setPen(QColor(FormColors::Border));
  canvas.On.setBrush(QColor(FormColors::Window));
  return places;
}

void DrawCheck(const Canvas& canvas) {
  if (IsGraphical(canvas)) return DrawButton(canvas);
  const QRectF mark = BeginMark(canvas).Mark;
  canvas.On.drawRect(mark.adjusted(0.5, 0.5, -0.5, -0.5));
  if (!FlagOf(canvas.Node, u"Value", false)) return;
  canvas.On.setPen(QPen(QColor(FormColors::Text), mark.width() / 7));
  canvas.On.setBrush(Qt::NoBrush);
  canvas.On.drawPolyline(
      QPolygonF({mark.topLeft() + QPointF(mark.width() * 0.22, mark.height() * 0.5),
                 mark.topLeft() + QPointF(mark.width() * 0.42, mark.height() * 0.72),
                 mark.topLeft() + QPointF(mark.width() * 0.8, mark.height() * 0.26)}));
}

void DrawOption(const Canvas& canvas) {
  if (IsGraphical(canvas)) return DrawButton(canvas);
  const QRectF mark = BeginMark(canvas).Mark;
  canvas.On.drawEllipse(mark.adjusted(0.5, 0.5, -0.5, -0.5));
  if (!FlagOf(canvas.Node, u"Value", false)) return;
  canvas.On.setPen(Qt::NoPen);
  canvas.On.setBrush(QColor(FormColors::Text));
  const double inner = mark.width() * 0.3;
  canvas.On.drawEllipse(mark.adjusted(inner, inner, -inner, -inner));
}

QRect RightPart(const QRect& place, int width) {
  return {place.right() - std::min(width, place.width()) + 1, place.top(),
          std::min(width, place.width()), place.height()};
}

void DrawField(const Canvas& canvas, const QString& text) {
  canvas.Fill(canvas.Back(FormColors::Window), QColor(FormColors::Border));
  canvas.Arrow(RightPart(canvas.Place, canvas.Pixels(ArrowWidth)), {0, 1});
  canvas.On.setPen(canvas.Ink());
  canvas.On.drawText(canvas.Place.adjusted(Inset, 0, -canvas.Pixels(ArrowWidth), 0),
                     Qt::AlignLeft | Qt::AlignVCenter, text);
}

void DrawCombo(const Canvas& canvas) {
  const QString text = TextOf(canvas.Node, u"Text");
  DrawField(canvas, text.isEmpty() ? ToQt(ShownName(canvas.Node)) : text);
}

void DrawDrive(const Canvas& canvas) { DrawField(canvas, QStringLiteral("c:")); }

void DrawList(const Canvas& canvas) {
  canvas.Fill(canvas.Back(FormColors::Window), QColor(FormColors::Border));
  canvas.On.setPen(canvas.Ink());
  canvas.On.drawText(canvas.Place.adjusted(Inset, 1, -Inset, -1), Qt::AlignLeft | Qt::AlignTop,
                     ToQt(ShownName(canvas.Node)));
}

void DrawScroll(const Canvas& canvas, bool across) {
  canvas.Fill(canvas.Back(FormColors::Face), QColor(FormColors::Shadow));
  const int length = across ? canvas.Place.width() : canvas.Place.height();
  const int end = std::min(canvas.Pixels(ArrowWidth), length / 2);
  QRect first = canvas.Place, last = canvas.Place;
  if (across) {
    first.setWidth(end);
    last.setLeft(last.right() - end + 1);
  } else {
    first.setHeight(end);
    last.setTop(last.bottom() - end + 1);
  }
  canvas.Arrow(first, across ? QPoint(-1, 0) : QPoint(0, -1));
  canvas.Arrow(last, across ? QPoint(1, 0) : QPoint(0, 1));
}

void DrawHScroll(const Canvas& canvas) { DrawScroll(canvas, true); }
void DrawVScroll(const Canvas& canvas) { DrawScroll(canvas, false); }

/// A control that only its designer sees: a tile with the class's picture.
void DrawTile(const Canvas& canvas, Look look) {
  canvas.Fill(QColor(FormColors::Face), QColor(FormColors::Shadow));
  const double edge = std::max(2, canvas.Place.width() / 6);
  PaintToolIcon(canvas.On, QRectF(canvas.Place).adjusted(edge, edge, -edge, -edge), look, Inks);
}

void DrawTimer(const Canvas& canvas) { DrawTile(canvas, Look::Timer); }

void DrawShape(const Canvas& canvas) {
  enum Kind { Rectangle, Square, Oval, Circle, Rounded, RoundedSquare };
  const int kind = static_cast<int>(NumberOf(canvas.Node, u"Shape", Rectangle));
  QRectF place = QRectF(canvas.Place).adjusted(0.5, 0.5, -0.5, -0.5);
  if (kind == Square || kind == Circle || kind == RoundedSquare) {
    const double side = std::min(place.width(), place.height());
    const QPointF center = place.center();
    place = {center.x() - side / 2, center.y() - side / 2, side, side};
  }
  const bool filled = NumberOf(canvas.Node, u"FillStyle", 1) == 0;
  const bool opaque = NumberOf(canvas.Node, u"BackStyle", 0) == 1;
  const QColor back = canvas.Back(FormColors::Window);
  const QColor fill = filled ? ColorOf(canvas.Node, u"FillColor", QColor(FormColors::Text)) : back;
  const double width = std::clamp(NumberOf(canvas.Node, u"BorderWidth", 1), 1.0, 1.0 * LargestPen);
  canvas.On.setRenderHint(QPainter::Antialiasing);
  canvas.On.setPen(
      NumberOf(canvas.Node, u"BorderStyle", 1) == 0
          ? QPen(Qt::NoPen)
          : QPen(ColorOf(canvas.Node, u"BorderColor", QColor(FormColors::Text)), width));
  canvas.On.setBrush(filled || opaque ? QBrush(fill) : QBrush(Qt::NoBrush));
  if (kind == Oval || kind == Circle) return canvas.On.drawEllipse(place);
  const double radius = kind >= Rounded ? std::min(place.width(), place.height()) / 5 : 0;
  canvas.On.drawRoundedRect(place, radius, radius);
}

void DrawLine(const Canvas& canvas) {
  const double width = std::clamp(NumberOf(canvas.Node, u"BorderWidth", 1), 1.0, 1.0 * LargestPen);
  canvas.On.setRenderHint(QPainter::Antialiasing);
  canvas.On.setPen(QPen(ColorOf(canvas.Node, u"BorderColor", QColor(FormColors::Text)), width));
  canvas.On.drawLine(canvas.Line.translated(0.5, 0.5));
}

void DrawImage(const Canvas& canvas) {
  QPen dashed{QColor(FormColors::Shadow)};
  dashed.setStyle(Qt::DashLine);
  canvas.On.setPen(dashed);
  canvas.On.setBrush(Qt::NoBrush);
  canvas.On.drawRect(canvas.Place.adjusted(0, 0, -1, -1));
  const int side =
      std::min({canvas.Place.width() - 4, canvas.Place.height() - 4, canvas.Pixels(32)});
  if (!canvas.Node.RawValue(u"Picture") || side <= 4) return;
  QRectF place(0, 0, side, side);
  place.moveCenter(QRectF(canvas.Place).center());
  PaintToolIcon(canvas.On, place, Look::Picture, Inks);
}

void DrawData(const Canvas& canvas) {
  canvas.Fill(canvas.Back(FormColors::Window), QColor(FormColors::Border));
  const int end = std::min(canvas.Pixels(ArrowWidth), canvas.Place.width() / 2);
  QRect first = canvas.Place, last = canvas.Place;
  first.setWidth(end);
  last.setLeft(last.right() - end + 1);
  canvas.Arrow(first, {-1, 0});
  canvas.Arrow(last, {1, 0});
  canvas.Text(canvas.Place.adjusted(end + Inset, 0, -end, 0), Qt::AlignLeft | Qt::AlignVCenter,
              canvas.Caption());
}

/// In the order of Look. A menu is drawn by the strip, not here.
constexpr std::array<void (*)(const Canvas&), 22> Drawings{
    DrawBox,   DrawPicture, DrawLabel,   DrawText,    DrawFrame, DrawButton, DrawCheck, DrawOption,
    DrawCombo, DrawList,    DrawHScroll, DrawVScroll, DrawTimer, DrawDrive,  DrawList,  DrawList,
    DrawShape, DrawLine,    DrawImage,   DrawData,    DrawBox,   DrawBox};

}  // namespace

void PaintControl(QPainter& painter, const ControlDrawing& drawing) {
  const PlacedControl& control = drawing.Control;
  painter.save();
  const FontValue own = FontOf(*control.Node);
  painter.setFont(DrawnFont(own.Name.isEmpty() ? drawing.FormFont : own, drawing.Scale));
  const Look look = control.Class == nullptr ? Look::Box : control.Class->Style;
  const Canvas canvas{painter, *control.Node, drawing.Place, drawing.Line, drawing.Scale};
  if (look == Look::Box && !control.Sizable) {
    DrawTile(canvas, Look::Ole);
  } else {
    Drawings[static_cast<std::size_t>(look)](canvas);
  }
  painter.restore();
}

QColor BodyColor(const model::DesignerNode& root) {
  const bool parent = vb::SameText(ShortName(root.Class), u"MDIForm");
  return ColorOf(root, u"BackColor", QColor(parent ? FormColors::Workspace : FormColors::Face));
}

}  // namespace tessel::workbench
