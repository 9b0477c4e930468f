#include "hosts/workbench/designer/ToolIcons.h"

#include <QPalette>
#include <QPixmap>
#include <array>

namespace tessel::workbench {
namespace {

/// All pictures are drawn on a square of sixteen units.
constexpr double Side = 16;

struct Pen {
  QPainter& On;
  const IconInks& Inks;

  void Box(double x, double y, double w, double h, bool filled = true) const {
    On.setBrush(filled ? QBrush(Inks.Fill) : QBrush(Qt::NoBrush));
    On.drawRect(QRectF(x, y, w, h));
  }
  void Round(double x, double y, double w, double h, double radius) const {
    On.setBrush(Inks.Fill);
    On.drawRoundedRect(QRectF(x, y, w, h), radius, radius);
  }
  void Disc(double x, double y, double w, double h, const QColor& fill) const {
    On.setBrush(fill);
    On.drawEllipse(QRectF(x, y, w, h));
  }
  void Line(double x1, double y1, double x2, double y2) const {
    On.drawLine(QPointF(x1, y1), QPointF(x2, y2));
  }
  void Solid(const QPolygonF& shape, const QColor& fill) const {
    On.save();
    On.setPen(Qt::NoPen);
    On.setBrush(fill);
    On.drawPolygon(shape);
    On.restore();
  }
  void Arrow(double x, double y, double dx, double dy) const {
    const QPointF tip(x + dx, y + dy), side(-dy, dx);
    Solid(QPolygonF({QPointF(x, y) + side, tip, QPointF(x, y) - side}), Inks.Line);
  }
  void Letter(double x, double y, double size, const QString& text) const {
    QFont font;
    font.setPixelSize(static_cast<int>(size));
    font.setBold(true);
    On.setFont(font);
    On.drawText(QRectF(x, y, Side - 2 * x + 0.5, Side - 2 * y), Qt::AlignCenter, text);
  }
};

void DrawBox(const Pen& pen) { pen.Box(2.5, 3.5, 11, 9); }

void DrawPicture(const Pen& pen) {
  pen.Box(1.5, 2.5, 13, 11);
  pen.Solid(QPolygonF({{2, 13}, {6, 7}, {9, 11}, {11, 9}, {14, 13}}), pen.Inks.Accent);
  pen.Disc(10, 4.2, 2.6, 2.6, pen.Inks.Accent);
}

void DrawLabel(const Pen& pen) { pen.Letter(0, 0, 14, QStringLiteral("A")); }

void DrawText(const Pen& pen) {
  pen.Box(1.5, 3.5, 13, 9);
  pen.Letter(3, 3, 8, QStringLiteral("ab"));
}

void DrawFrame(const Pen& pen) {
  pen.Box(1.5, 4.5, 13, 9, false);
  pen.Solid(QPolygonF(QRectF(3.5, 3, 5, 3)), pen.Inks.Accent);
}

void DrawButton(const Pen& pen) {
  pen.Round(1.5, 4.5, 13, 7, 2);
  pen.Line(5, 8, 11, 8);
}

void DrawTick(const Pen& pen) {
  pen.On.setPen(QPen(pen.Inks.Accent, 2));
  pen.Line(5, 8, 7.2, 10.5);
  pen.Line(7.2, 10.5, 11.2, 5);
}

void DrawCheck(const Pen& pen) {
  pen.Box(2.5, 2.5, 11, 11);
  DrawTick(pen);
}

void DrawOption(const Pen& pen) {
  pen.Disc(2.5, 2.5, 11, 11, pen.Inks.Fill);
  pen.On.setPen(Qt::NoPen);
  pen.Disc(5.5, 5.5, 5, 5, pen.Inks.Accent);
}

void DrawCombo(const Pen& pen) {
  pen.Box(1.5, 2.5, 13, 5);
  pen.Arrow(11.5, 4, 0, 2.2);
  pen.Box(1.5, 7.5, 13, 6);
  pen.Line(4, 9.5, 11, 9.5);
  pen.Line(4, 11.5, 9, 11.5);
}

void DrawList(const Pen& pen) {
  pen.Box(1.5, 2.5, 13, 11);
  pen.Solid(QPolygonF(QRectF(2, 6.5, 12, 3)), pen.Inks.Accent);
  pen.Line(4, 4.7, 11, 4.7);
  pen.Line(4, 11.3, 10, 11.3);
}

void DrawHScroll(const Pen& pen) {
  pen.Box(1.5, 5.5, 13, 5);
  pen.Arrow(4.5, 8, -2, 0);
  pen.Arrow(11.5, 8, 2, 0);
  pen.Solid(QPolygonF(QRectF(6.5, 6, 3, 4)), pen.Inks.Accent);
}

void DrawVScroll(const Pen& pen) {
  pen.Box(5.5, 1.5, 5, 13);
  pen.Arrow(8, 4.5, 0, -2);
  pen.Arrow(8, 11.5, 0, 2);
  pen.Solid(QPolygonF(QRectF(6, 6.5, 4, 3)), pen.Inks.Accent);
}

void DrawTimer(const Pen& pen) {
  pen.Disc(2, 2.5, 12, 12, pen.Inks.Fill);
  pen.Line(8, 8.5, 8, 4.5);
  pen.Line(8, 8.5, 10.8, 10);
  pen.Line(6.5, 1, 9.5, 1);
}

void DrawDrive(const Pen& pen) {
  pen.Box(1.5, 6.5, 13, 5);
  pen.Line(3.5, 9, 9, 9);
  pen.Solid(QPolygonF(QRectF(11, 8, 2, 2)), pen.Inks.Accent);
}

void DrawDir(const Pen& pen) {
  pen.On.setBrush(pen.Inks.Fill);
  pen.On.drawPolygon(
      QPolygonF({{1.5, 13.5}, {1.5, 3.5}, {6, 3.5}, {7.5, 5.5}, {14.5, 5.5}, {14.5, 13.5}}));
}

void DrawFile(const Pen& pen) {
  pen.On.setBrush(pen.Inks.Fill);
  pen.On.drawPolygon(QPolygonF({{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}));
  for (const double y : {6.5, 9.0, 11.5}) pen.Line(5.5, y, 10.5, y);
}

void DrawShape(const Pen& pen) {
  pen.Box(1.5, 6.5, 8, 8);
  pen.Disc(6.5, 1.5, 8, 8, pen.Inks.Accent);
}

void DrawLine(const Pen& pen) {
  pen.On.setPen(QPen(pen.Inks.Line, 1.6));
  pen.Line(2.5, 13.5, 13.5, 2.5);
}

void DrawImage(const Pen& pen) {
  QPen dashed(pen.Inks.Line);
  dashed.setDashPattern({2, 2});
  pen.On.setPen(dashed);
  pen.Box(1.5, 2.5, 13, 11, false);
  pen.Solid(QPolygonF({{3, 12}, {6.5, 6}, {9, 10}, {11, 8}, {13, 12}}), pen.Inks.Accent);
}

void DrawData(const Pen& pen) {
  pen.Box(1.5, 4.5, 13, 7);
  pen.Line(4.5, 5, 4.5, 11);
  pen.Line(11.5, 5, 11.5, 11);
  pen.Solid(QPolygonF({{4, 6}, {4, 10}, {2.2, 8}}), pen.Inks.Line);
  pen.Solid(QPolygonF({{12, 6}, {12, 10}, {13.8, 8}}), pen.Inks.Line);
}

void DrawOle(const Pen& pen) {
  pen.Box(1.5, 1.5, 8, 8);
  pen.Box(6.5, 6.5, 8, 8);
  pen.Solid(QPolygonF(QRectF(8, 8, 5, 5)), pen.Inks.Accent);
}

void DrawMenu(const Pen& pen) {
  pen.Box(1.5, 1.5, 9, 3);
  pen.Box(1.5, 4.5, 11, 9);
  for (const double y : {7.0, 9.0, 11.0}) pen.Line(3.5, y, 10.5, y);
}

void DrawPointer(const Pen& pen) {
  pen.Solid(
      QPolygonF({{4, 1.5}, {4, 12.5}, {6.8, 10}, {8.6, 14}, {10.4, 13.2}, {8.7, 9.4}, {12.3, 9.2}}),
      pen.Inks.Line);
}

/// In the order of Look.
constexpr std::array<void (*)(const Pen&), 22> Drawings{
    DrawBox,   DrawPicture, DrawLabel,   DrawText,    DrawFrame, DrawButton, DrawCheck, DrawOption,
    DrawCombo, DrawList,    DrawHScroll, DrawVScroll, DrawTimer, DrawDrive,  DrawDir,   DrawFile,
    DrawShape, DrawLine,    DrawImage,   DrawData,    DrawOle,   DrawMenu};

void Draw(QPainter& painter, const QRectF& place, const IconInks& inks,
          void (*drawing)(const Pen&)) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(place.topLeft());
  painter.scale(place.width() / Side, place.height() / Side);
  painter.setPen(QPen(inks.Line, 1));
  drawing(Pen{painter, inks});
  painter.restore();
}

/// Sizes that an icon is drawn for; a screen of double density takes the larger ones.
constexpr int IconSizes[] = {16, 24, 32, 48};

}  // namespace

void PaintToolIcon(QPainter& painter, const QRectF& place, Look look, const IconInks& inks) {
  Draw(painter, place, inks, Drawings[static_cast<std::size_t>(look)]);
}

void PaintPointerIcon(QPainter& painter, const QRectF& place, const IconInks& inks) {
  Draw(painter, place, inks, DrawPointer);
}

IconInks InksFor(const QPalette& palette) {
  return {palette.color(QPalette::ButtonText), palette.color(QPalette::Base),
          palette.color(QPalette::Highlight)};
}

QIcon ToolIcon(const Look* look, const QPalette& palette) {
  QIcon icon;
  for (const int size : IconSizes) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QRectF place(0, 0, size, size);
    if (look == nullptr) {
      PaintPointerIcon(painter, place, InksFor(palette));
    } else {
      PaintToolIcon(painter, place, *look, InksFor(palette));
    }
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace tessel::workbench
