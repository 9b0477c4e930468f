#include "hosts/workbench/designer/Gestures.h"

#include <QApplication>
#include <algorithm>

namespace tessel::workbench {
namespace {

constexpr QRgb OutlineInk = 0xFF1F5FBF;

void UseOutline(QPainter& painter) {
  QPen pen(QColor{OutlineInk});
  pen.setStyle(Qt::DashLine);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
}

/// A gesture on a form's layout.
class FormGesture : public Gesture {
 public:
  FormGesture(const GestureGround& ground, QPoint start) : Gesture(start), ground_(ground) {}

 protected:
  [[nodiscard]] QPointF Way() const { return QPointF(now_ - start_) / ground_.Frame.Scale; }
  void Outline(QPainter& painter, const QRectF& twips) const {
    UseOutline(painter);
    painter.drawRect(ground_.Frame.ToPixels(twips).adjusted(0, 0, -1, -1));
  }
  void OutlineLine(QPainter& painter, const QLineF& twips) const {
    UseOutline(painter);
    painter.drawLine(ground_.Frame.ToPixels(twips.p1()), ground_.Frame.ToPixels(twips.p2()));
  }
  /// How far a point goes so that it lands on a dot of the grid that begins at `origin`.
  [[nodiscard]] static QPointF SnappedWay(QPointF point, QPointF way, QPointF origin) {
    return SnapToGrid(point + way - origin) + origin - point;
  }

  GestureGround ground_;
};

class ControlsGesture : public FormGesture {
 public:
  ControlsGesture(const GestureGround& ground, QPoint start, std::vector<PlacedControl> controls)
      : FormGesture(ground, start), controls_(std::move(controls)) {}

  void Paint(QPainter& painter) const override {
    for (const PlacedControl& control : controls_) {
      if (control.IsLine()) {
        OutlineLine(painter, LineOf(control));
      } else {
        Outline(painter, BoundsOf(control));
      }
    }
  }
  void Finish() override {
    std::vector<PropertyEdits> edits;
    for (const PlacedControl& control : controls_) {
      auto edit = control.IsLine() ? LineEdits(ground_.Layout, control, LineOf(control))
                                   : BoundsEdits(ground_.Layout, control, BoundsOf(control));
      if (!edit.Values.empty()) edits.push_back(std::move(edit));
    }
    (void)ground_.Editor.SetValues(edits, Name());
  }

 protected:
  [[nodiscard]] virtual QRectF BoundsOf(const PlacedControl& control) const = 0;
  [[nodiscard]] virtual QLineF LineOf(const PlacedControl& control) const = 0;
  [[nodiscard]] virtual QString Name() const = 0;
  [[nodiscard]] const PlacedControl& Leading() const { return controls_.back(); }
  [[nodiscard]] QPointF LeadingOrigin() const {
    return ground_.Layout.OriginOf(ground_.Layout.ContainerOf(Leading()));
  }

 private:
  std::vector<PlacedControl> controls_;
};

class MoveGesture : public ControlsGesture {
 public:
  using ControlsGesture::ControlsGesture;

 protected:
  [[nodiscard]] QPointF By() const {
    return SnappedWay(Leading().Bounds.topLeft(), Way(), LeadingOrigin());
  }
  [[nodiscard]] QRectF BoundsOf(const PlacedControl& control) const override {
    return control.Bounds.translated(By());
  }
  [[nodiscard]] QLineF LineOf(const PlacedControl& control) const override {
    return control.Line.translated(By());
  }
  [[nodiscard]] QString Name() const override { return QStringLiteral("Move"); }
};

class SizeGesture : public ControlsGesture {
 public:
  SizeGesture(const GestureGround& ground, QPoint start, std::vector<PlacedControl> controls,
              Handle handle)
      : ControlsGesture(ground, start, std::move(controls)), handle_(handle) {}

 protected:
  /// The point that the handle of the leading control holds.
  [[nodiscard]] QPointF Held() const {
    const PlacedControl& leading = Leading();
    if (handle_ == Handle::LineStart) return leading.Line.p1();
    if (handle_ == Handle::LineEnd) return leading.Line.p2();
    return {MovesLeft(handle_) ? leading.Bounds.left() : leading.Bounds.right(),
            MovesTop(handle_) ? leading.Bounds.top() : leading.Bounds.bottom()};
  }
  [[nodiscard]] QPointF By() const { return SnappedWay(Held(), Way(), LeadingOrigin()); }
  [[nodiscard]] QRectF BoundsOf(const PlacedControl& control) const override {
    return control.Sizable ? Resized(control.Bounds, handle_, By()) : control.Bounds;
  }
  [[nodiscard]] QLineF LineOf(const PlacedControl& control) const override {
    QLineF line = control.Line;
    if (handle_ == Handle::LineStart) line.setP1(line.p1() + By());
    if (handle_ == Handle::LineEnd) line.setP2(line.p2() + By());
    return line;
  }
  [[nodiscard]] QString Name() const override { return QStringLiteral("Resize"); }

 private:
  Handle handle_;
};

class FormSizeGesture : public FormGesture {
 public:
  FormSizeGesture(const GestureGround& ground, QPoint start, Handle handle)
      : FormGesture(ground, start), handle_(handle) {}
  void Paint(QPainter& painter) const override { Outline(painter, QRectF({}, Size())); }
  void Finish() override {
    const auto edits = FormSizeEdits(*ground_.Editor.Root(), ground_.Layout, Size());
    if (!edits.Values.empty()) {
      (void)ground_.Editor.SetValues({edits}, QStringLiteral("Resize Form"));
    }
  }

 private:
  [[nodiscard]] QSizeF Size() const {
    const QRectF body({}, ground_.Layout.ClientSize());
    return Resized(body, handle_, SnappedWay(body.bottomRight(), Way(), {})).size();
  }
  Handle handle_;
};

class FrameGesture : public FormGesture {
 public:
  FrameGesture(const GestureGround& ground, QPoint start, std::function<void(const QRectF&)> framed)
      : FormGesture(ground, start), framed_(std::move(framed)) {}
  void Paint(QPainter& painter) const override { Outline(painter, Area()); }
  void Finish() override { framed_(Area()); }

 private:
  [[nodiscard]] QRectF Area() const {
    return QRectF(ground_.Frame.ToTwips(start_), ground_.Frame.ToTwips(now_)).normalized();
  }
  std::function<void(const QRectF&)> framed_;
};

class DrawGesture : public FormGesture {
 public:
  DrawGesture(const GestureGround& ground, QPoint start, bool isLine,
              std::function<void(QPointF, QPointF)> drawn)
      : FormGesture(ground, start), isLine_(isLine), drawn_(std::move(drawn)) {
    const auto* const container = ground.Layout.ContainerAt(ground.Frame.ToTwips(start));
    origin_ = ground.Layout.OriginOf(container);
  }
  void Paint(QPainter& painter) const override {
    if (isLine_) return OutlineLine(painter, {Snapped(start_), Snapped(now_)});
    Outline(painter, QRectF(Snapped(start_), Snapped(now_)).normalized());
  }
  void Finish() override { drawn_(Snapped(start_), Snapped(Moved() ? now_ : start_)); }

 private:
  [[nodiscard]] QPointF Snapped(QPoint pixel) const {
    return SnapToGrid(ground_.Frame.ToTwips(pixel) - origin_) + origin_;
  }
  bool isLine_;
  std::function<void(QPointF, QPointF)> drawn_;
  QPointF origin_;
};

}  // namespace

void Gesture::MoveTo(QPoint pixel) {
  now_ = pixel;
  if ((now_ - start_).manhattanLength() >= QApplication::startDragDistance() / 2) moved_ = true;
}

std::unique_ptr<Gesture> MoveControls(const GestureGround& ground, QPoint start,
                                      std::vector<PlacedControl> controls) {
  return std::make_unique<MoveGesture>(ground, start, std::move(controls));
}

std::unique_ptr<Gesture> SizeControls(const GestureGround& ground, QPoint start,
                                      std::vector<PlacedControl> controls, Handle handle) {
  return std::make_unique<SizeGesture>(ground, start, std::move(controls), handle);
}

std::unique_ptr<Gesture> SizeForm(const GestureGround& ground, QPoint start, Handle handle) {
  return std::make_unique<FormSizeGesture>(ground, start, handle);
}

std::unique_ptr<Gesture> FrameControls(const GestureGround& ground, QPoint start,
                                       std::function<void(const QRectF&)> framed) {
  return std::make_unique<FrameGesture>(ground, start, std::move(framed));
}

std::unique_ptr<Gesture> DrawControl(const GestureGround& ground, QPoint start, bool isLine,
                                     std::function<void(QPointF, QPointF)> drawn) {
  return std::make_unique<DrawGesture>(ground, start, isLine, std::move(drawn));
}

}  // namespace tessel::workbench
