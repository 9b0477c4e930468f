#include "hosts/workbench/designer/DesignerCanvas.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QToolTip>
#include <algorithm>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/designer/FormPainter.h"
#include "hosts/workbench/designer/MenuPreview.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

bool Extends(Qt::KeyboardModifiers modifiers) {
  return (modifiers & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
}

void PaintHandle(QPainter& painter, const HandlePlace& handle, bool leading,
                 const QPalette& palette) {
  // Half of a handle lies on the form, half on what is behind it: one of the two colours stands out
  // from each.
  const QColor ink = palette.color(QPalette::Active, QPalette::Highlight);
  const bool filled = leading && handle.Active;
  painter.setPen(filled ? QColor(Qt::white) : ink);
  painter.setBrush(filled ? ink : QColor(Qt::white));
  painter.drawRect(handle.Place.adjusted(0, 0, -1, -1));
}

/// Keys that do one thing, whatever is chosen.
struct KeyAction {
  int Key;
  Qt::KeyboardModifiers Modifiers;
  void (*Run)(DesignerView&);
};
const KeyAction KeyActions[] = {
    {Qt::Key_Delete, Qt::NoModifier, [](DesignerView& view) { view.DeleteSelected(); }},
    {Qt::Key_F2, Qt::NoModifier, [](DesignerView& view) { view.StartRename(); }},
    {Qt::Key_F7, Qt::NoModifier, [](DesignerView& view) { view.OpenCode(); }},
    {Qt::Key_Return, Qt::NoModifier, [](DesignerView& view) { view.OpenCode(); }},
    {Qt::Key_Enter, Qt::KeypadModifier, [](DesignerView& view) { view.OpenCode(); }},
    {Qt::Key_Tab, Qt::NoModifier, [](DesignerView& view) { view.SelectNext(true); }},
    {Qt::Key_Backtab, Qt::ShiftModifier, [](DesignerView& view) { view.SelectNext(false); }},
    {Qt::Key_A, Qt::ControlModifier, [](DesignerView& view) { view.SelectAll(); }},
    {Qt::Key_Z, Qt::ControlModifier, [](DesignerView& view) { view.Editor()->Undo(); }},
    {Qt::Key_Y, Qt::ControlModifier, [](DesignerView& view) { view.Editor()->Redo(); }},
    {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier,
     [](DesignerView& view) { view.Editor()->Redo(); }},
};

/// Keys with Ctrl that mean something else in the window's menus.
bool IsOwnKey(const QKeyEvent& event) {
  if ((event.modifiers() & Qt::ControlModifier) == 0) return false;
  switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      return true;
    default:
      return false;
  }
}

}  // namespace

DesignerCanvas::DesignerCanvas(DesignerView& view) : view_(view) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAccessibleName(QStringLiteral("Form designer"));
}

void DesignerCanvas::CancelGesture() {
  gesture_.reset();
  update();
}

GestureGround DesignerCanvas::Ground() const {
  return {view_.Layout(), view_.Frame(), *view_.Editor()};
}

bool DesignerCanvas::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    if (IsOwnKey(*static_cast<QKeyEvent*>(event))) event->accept();
    return QWidget::event(event);
  }
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* const help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), TipAt(help->pos()), this);
  return true;
}

/// Name and class of the control at a point.
QString DesignerCanvas::TipAt(QPoint pixel) const {
  if (!view_.Frame().Body.contains(pixel)) return {};
  const PlacedControl* const control = view_.Layout().At(view_.Frame().ToTwips(pixel));
  if (control == nullptr) return {};
  return ToQt(ShownName(*control->Node)) + u'\n' + ToQt(control->Node->Class);
}

void DesignerCanvas::paintEvent(QPaintEvent* event) {
  const model::DesignerNode* const root = view_.Editor()->Root();
  if (root == nullptr) return;
  QPainter painter(this);
  PaintForm(painter, *root, view_.Layout(), view_.Frame(), event->rect());
  PaintHandles(painter);
  if (gesture_ && gesture_->Moved()) gesture_->Paint(painter);
}

void DesignerCanvas::PaintHandles(QPainter& painter) const {
  const auto nodes = view_.Chosen().Nodes();
  for (const model::DesignerNode* node : nodes) {
    for (const HandlePlace& handle : HandlesAround(*node)) {
      PaintHandle(painter, handle, node == nodes.back(), palette());
    }
  }
}

std::vector<HandlePlace> DesignerCanvas::HandlesAround(const model::DesignerNode& node) const {
  const PlacedControl* const control = view_.Layout().Find(&node);
  if (control != nullptr) return HandlesOf(view_.Frame(), *control);
  return HandlesOfForm(view_.Frame(), IsFormClass(node.Class));
}

Handle DesignerCanvas::HandleUnder(QPoint pixel) const {
  const auto nodes = view_.Chosen().Nodes();
  return nodes.empty() ? Handle::None : HandleAt(HandlesAround(*nodes.back()), pixel);
}

void DesignerCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || view_.Editor()->Root() == nullptr) return;
  setFocus(Qt::MouseFocusReason);
  (void)view_.Selected();  // what the model changed is taken in ahead of the gesture
  Press(event->position().toPoint(), event->modifiers());
  update();
}

void DesignerCanvas::Press(QPoint pixel, Qt::KeyboardModifiers modifiers) {
  if (!view_.Tool().empty()) {
    gesture_ = BeginDraw(pixel);
    return;
  }
  if ((gesture_ = BeginSize(pixel)) || PressMenu(pixel)) return;
  const PlacedControl* const control = view_.Frame().Body.contains(pixel)
                                           ? view_.Layout().At(view_.Frame().ToTwips(pixel))
                                           : nullptr;
  if (control != nullptr) {
    PressControl(pixel, *control->Node, modifiers);
    return;
  }
  if (!Extends(modifiers)) view_.Select({view_.Editor()->Root()});
  gesture_ = BeginBand(pixel, Extends(modifiers));
}

void DesignerCanvas::PressControl(QPoint pixel, model::DesignerNode& node,
                                  Qt::KeyboardModifiers modifiers) {
  if (Extends(modifiers)) {
    view_.Select(view_.Chosen().Toggled(node));
  } else if (view_.Chosen().Holds(node)) {
    auto nodes = view_.Chosen().Nodes();
    std::erase(nodes, &node);
    nodes.push_back(&node);  // it leads from now on
    view_.Select(nodes);
  } else {
    view_.Select({&node});
  }
  auto controls = view_.ChosenPlaces();
  if (!view_.Chosen().Holds(node) || controls.empty()) return;
  gesture_ = MoveControls(Ground(), pixel, std::move(controls));
}

std::unique_ptr<Gesture> DesignerCanvas::BeginDraw(QPoint pixel) {
  const ControlClass* const known = FindControlClass(view_.Tool());
  const bool isLine = known != nullptr && known->Style == Look::Line;
  return DrawControl(Ground(), pixel, isLine,
                     [this](QPointF from, QPointF to) { view_.DrawNew(from, to); });
}

std::unique_ptr<Gesture> DesignerCanvas::BeginSize(QPoint pixel) {
  const Handle handle = HandleUnder(pixel);
  if (handle == Handle::None) return nullptr;
  auto controls = view_.ChosenPlaces();
  if (controls.empty()) return SizeForm(Ground(), pixel, handle);
  return SizeControls(Ground(), pixel, std::move(controls), handle);
}

std::unique_ptr<Gesture> DesignerCanvas::BeginBand(QPoint pixel, bool extend) {
  return FrameControls(Ground(), pixel, [this, extend](const QRectF& area) {
    std::vector<model::DesignerNode*> nodes;
    if (extend) nodes = view_.Chosen().Nodes();
    for (const PlacedControl& control : view_.Layout().Controls()) {
      // A frame that is drawn around something else's controls takes those on the form itself.
      const QRectF shown = control.Shown.adjusted(0, 0, 1, 1);
      if (control.Container >= 0 || !shown.intersects(area)) continue;
      if (std::find(nodes.begin(), nodes.end(), control.Node) == nodes.end()) {
        nodes.push_back(control.Node);
      }
    }
    const bool any = std::any_of(nodes.begin(), nodes.end(),
                                 [](const auto* node) { return node->Parent != nullptr; });
    if (any) std::erase_if(nodes, [](const auto* node) { return node->Parent == nullptr; });
    view_.Select(nodes);
  });
}

bool DesignerCanvas::PressMenu(QPoint pixel) {
  for (const MenuTitle& title : view_.Frame().Menus) {
    if (!title.Place.contains(pixel)) continue;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    FillMenu(*menu, *title.Node, [this](model::DesignerNode& node) { view_.OpenCodeOf(node); });
    if (menu->isEmpty()) {
      delete menu;
      view_.OpenCodeOf(*title.Node);
    } else {
      menu->popup(mapToGlobal(title.Place.bottomLeft()));
    }
    return true;
  }
  return false;
}

void DesignerCanvas::mouseMoveEvent(QMouseEvent* event) {
  const QPoint pixel = event->position().toPoint();
  if (!gesture_) return ShowCursor(pixel);
  gesture_->MoveTo(pixel);
  update();
}

void DesignerCanvas::ShowCursor(QPoint pixel) {
  if (view_.Editor()->Root() == nullptr) return;
  if (!view_.Tool().empty()) return setCursor(Qt::CrossCursor);
  setCursor(CursorOf(HandleUnder(pixel)));
}

void DesignerCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !gesture_) return;
  gesture_->MoveTo(event->position().toPoint());
  const auto gesture = std::move(gesture_);
  // A click draws with a tool; with the pointer it has chosen already.
  if (gesture->Moved() || !view_.Tool().empty()) gesture->Finish();
  update();
}

void DesignerCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !view_.Tool().empty()) return;
  CancelGesture();
  const QPoint pixel = event->position().toPoint();
  const bool onMenu = view_.Frame().Strip.contains(pixel);
  if (!onMenu) view_.OpenCode();
}

bool DesignerCanvas::MoveByKey(int key, bool resize) {
  const int columns = key == Qt::Key_Right ? 1 : key == Qt::Key_Left ? -1 : 0;
  const int rows = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
  if (columns == 0 && rows == 0) return false;
  if (resize) {
    view_.SizeSelected(columns, rows);
  } else {
    view_.MoveSelected(columns, rows);
  }
  return true;
}

void DesignerCanvas::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    const bool busy = gesture_ || !view_.Tool().empty();
    CancelGesture();
    if (!busy) return view_.SelectContainer();
    return view_.DropTool();
  }
  if (gesture_) return;
  const auto modifiers = event->modifiers();
  const auto plain = modifiers & ~Qt::KeypadModifier;
  if ((plain == Qt::NoModifier || plain == Qt::ControlModifier || plain == Qt::ShiftModifier) &&
      MoveByKey(event->key(), plain == Qt::ShiftModifier)) {
    return;
  }
  // A Return that is held on behind a dialog is not meant for the form.
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && event->isAutoRepeat()) return;
  for (const KeyAction& action : KeyActions) {
    if (action.Key == event->key() && action.Modifiers == modifiers) return action.Run(view_);
  }
  QWidget::keyPressEvent(event);
}

/// Tab goes through the controls of the form instead.
bool DesignerCanvas::focusNextPrevChild(bool /*next*/) { return false; }

}  // namespace tessel::workbench
