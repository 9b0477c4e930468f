#include "hosts/workbench/designer/DesignerView.h"

#include <QEvent>
#include <QLineEdit>
#include <QStyle>
#include <QTimer>
#include <algorithm>

#include "hosts/workbench/designer/DesignerCanvas.h"
#include "hosts/workbench/designer/FormPainter.h"
#include "hosts/workbench/designer/Values.h"
#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

constexpr double UsualDots = 96;
constexpr double SmallestZoom = 0.25, LargestZoom = 4;

/// Kinds of edits that become one when they follow each other.
enum EditKind { NoKind = -1, Nudge = 1, Grow = 2 };

/// Fails where a control of that class can't stand.
void CheckPlace(const model::DesignerNode& root, const PlacedControl* container,
                StringView className) {
  if (!IsFormClass(root.Class)) {
    throw vb::Failure(vb::InvalidCall, u"\"" + root.Name + u"\" holds no controls", u"VBIDE");
  }
  const bool onParent = container == nullptr && vb::SameText(root.Class, u"VB.MDIForm");
  if (onParent && !FitsOnMdiForm(className)) {
    throw vb::Failure(vb::InvalidCall,
                      u"A control without an Align property can't stand on an MDI form: " +
                          String(ShortName(className)),
                      u"VBIDE");
  }
}

}  // namespace

DesignerView::DesignerView(std::shared_ptr<model::VBComponent> component, QWidget* parent)
    : QScrollArea(parent),
      editor_(std::make_shared<DesignerEditor>(std::move(component))),
      canvas_(new DesignerCanvas(*this)) {
  setWidget(canvas_);
  setFocusProxy(canvas_);
  setFrameShape(QFrame::NoFrame);
  editor_->OnFailure = [this](const String& text) {
    if (OnFailure) OnFailure(text);
  };
  QObject::connect(&editor_->UndoStack(), &QUndoStack::indexChanged, this, [this] { Refresh(); });
  if (editor_->Root() != nullptr) selection_.Set({editor_->Root()});
  Settle();
}

DesignerView::~DesignerView() {
  // The properties window may hold the editor longer.
  editor_->OnFailure = nullptr;
  QObject::disconnect(&editor_->UndoStack(), nullptr, this, nullptr);
  // What is open loses the focus as it goes, and would still come back here.
  if (rename_ != nullptr) rename_->OnDone = nullptr;
  delete takeWidget();
}

const std::shared_ptr<model::VBComponent>& DesignerView::Component() const {
  return editor_->Component();
}

void DesignerView::Refresh() {
  stale_ = true;
  if (settling_) return;
  settling_ = true;
  QTimer::singleShot(0, this, [this] {
    settling_ = false;
    Settle();
  });
}

void DesignerView::ReadLayout() {
  if (!stale_) return;
  stale_ = false;
  canvas_->CancelGesture();
  model::DesignerNode* const root = editor_->Root();
  layout_ = root == nullptr ? FormLayout() : FormLayout(*root);
  const double scale = zoom_ * logicalDpiX() / UsualDots / TwipsPerPixel;
  frame_ = root == nullptr ? FormFrame() : FrameOf(*root, layout_, scale);
  unreported_ |= selection_.Prune([&](const model::DesignerNode& node) {
    return &node == root || layout_.Find(&node) != nullptr;
  });
  if (root != nullptr && selection_.Nodes().empty()) unreported_ |= selection_.Set({root});
}

void DesignerView::Settle() {
  ReadLayout();
  if (canvas_->size() != frame_.Whole) canvas_->setFixedSize(frame_.Whole);
  canvas_->update();
  if (unreported_) Report();
}

void DesignerView::Report() {
  unreported_ = false;
  if (OnSelection) OnSelection(selection_.Nodes());
}

bool DesignerView::event(QEvent* event) {
  const bool handled = QScrollArea::event(event);
  const auto type = event->type();
  if (type == QEvent::ScreenChangeInternal || type == QEvent::FontChange) Refresh();
  return handled;
}

const FormLayout& DesignerView::Layout() {
  ReadLayout();
  return layout_;
}

const FormFrame& DesignerView::Frame() {
  ReadLayout();
  return frame_;
}

void DesignerView::SetTool(StringView className) {
  tool_ = className;
  canvas_->setCursor(tool_.empty() ? Qt::ArrowCursor : Qt::CrossCursor);
}

void DesignerView::DropTool() {
  SetTool({});
  if (OnToolUsed) OnToolUsed();
}

void DesignerView::SetZoom(double zoom) {
  zoom_ = std::clamp(zoom, SmallestZoom, LargestZoom);
  stale_ = true;
  Settle();
}

std::vector<model::DesignerNode*> DesignerView::Selected() {
  Settle();
  return selection_.Nodes();
}

void DesignerView::Select(const std::vector<model::DesignerNode*>& nodes) {
  ReadLayout();
  model::DesignerNode* const root = editor_->Root();
  if (root == nullptr) return;
  std::vector<model::DesignerNode*> known;
  for (model::DesignerNode* node : nodes) {
    if (layout_.Find(node) != nullptr) known.push_back(node);
  }
  if (known.empty()) known.push_back(root);
  const bool changed = selection_.Set(known);
  canvas_->update();
  if (changed || unreported_) Report();
}

void DesignerView::SelectAll() {
  std::vector<model::DesignerNode*> nodes;
  for (const PlacedControl& control : Layout().Controls()) {
    if (control.Container < 0) nodes.push_back(control.Node);
  }
  Select(nodes);
}

void DesignerView::SelectNext(bool forward) {
  const auto& controls = Layout().Controls();
  if (controls.empty()) return;
  const auto chosen = Selected();
  const auto count = static_cast<int>(controls.size());
  const auto found = std::find_if(controls.begin(), controls.end(), [&](const auto& control) {
    return !chosen.empty() && control.Node == chosen.back();
  });
  int next = forward ? 0 : count - 1;
  if (found != controls.end()) {
    next = static_cast<int>(found - controls.begin()) + (forward ? 1 : -1);
    next = (next + count) % count;
  }
  const PlacedControl& control = controls[static_cast<std::size_t>(next)];
  const QRect place = frame_.ToPixels(control.Bounds);
  Select({control.Node});
  ensureVisible(place.center().x(), place.center().y());
}

void DesignerView::SelectContainer() {
  const auto chosen = Selected();
  if (!chosen.empty() && chosen.back()->Parent != nullptr) Select({chosen.back()->Parent});
}

std::vector<PlacedControl> DesignerView::ChosenPlaces() {
  std::vector<PlacedControl> places;
  for (const model::DesignerNode* node : selection_.Outermost()) {
    if (const PlacedControl* const control = Layout().Find(node)) places.push_back(*control);
  }
  return places;
}

void DesignerView::DeleteSelected() {
  Settle();
  (void)editor_->Remove(selection_.Outermost());
  Settle();
}

void DesignerView::ChangeSelected(const Change& change, const QString& text, int kind) {
  Settle();
  std::vector<PropertyEdits> edits;
  for (const PlacedControl& control : ChosenPlaces()) {
    auto edit = change(control);
    if (!edit.Values.empty()) edits.push_back(std::move(edit));
  }
  if (!edits.empty()) (void)editor_->SetValues(edits, text, kind);
  Settle();
}

void DesignerView::MoveSelected(int columns, int rows) {
  const QPointF by(columns * GridTwips, rows * GridTwips);
  ChangeSelected(
      [&](const PlacedControl& control) {
        return control.IsLine() ? LineEdits(layout_, control, control.Line.translated(by))
                                : BoundsEdits(layout_, control, control.Bounds.translated(by));
      },
      QStringLiteral("Move"), Nudge);
}

void DesignerView::SizeSelected(int columns, int rows) {
  Settle();
  const QPointF by(columns * GridTwips, rows * GridTwips);
  const auto chosen = selection_.Nodes();
  if (!chosen.empty() && chosen.back() == editor_->Root()) {
    if (!IsFormClass(chosen.back()->Class)) return;
    const QRectF body = Resized({{}, layout_.ClientSize()}, Handle::BottomRight, by);
    const auto edits = FormSizeEdits(*editor_->Root(), layout_, body.size());
    if (!edits.Values.empty()) {
      (void)editor_->SetValues({edits}, QStringLiteral("Resize Form"), Grow);
    }
    return Settle();
  }
  ChangeSelected(
      [&](const PlacedControl& control) {
        if (control.IsLine()) {
          return LineEdits(layout_, control, {control.Line.p1(), control.Line.p2() + by});
        }
        if (!control.Sizable) return PropertyEdits{control.Node, {}};
        return BoundsEdits(layout_, control, Resized(control.Bounds, Handle::BottomRight, by));
      },
      QStringLiteral("Resize"), Grow);
}

void DesignerView::AddControl(StringView className) {
  const QRect seen = canvas_->visibleRegion().boundingRect() & Frame().Body;
  const QPointF middle = frame_.ToTwips((seen.isEmpty() ? frame_.Body : seen).center());
  const ControlClass* const known = FindControlClass(className);
  const QPointF size =
      known == nullptr ? QPointF(GridTwips, GridTwips) : QPointF(known->Width, known->Height);
  const QPointF corner = SnapToGrid(middle - size / 2);
  DropTool();
  Add(className, corner, corner + size);
}

void DesignerView::DrawNew(QPointF from, QPointF to) {
  const String className = tool_;
  DropTool();
  const ControlClass* const known = FindControlClass(className);
  if (from == to && known != nullptr) to = from + QPointF(known->Width, known->Height);
  Add(className, from, to);
}

void DesignerView::Add(StringView className, QPointF from, QPointF to) {
  model::DesignerNode* const root = editor_->Root();
  if (root == nullptr || className.empty()) return;
  const auto& tree = Component()->OwnDesigner()->Tree();
  const PlacedControl* const container = Layout().ContainerAt(from);
  if (!editor_->Try([&] { CheckPlace(*root, container, className); })) return;
  const String name = FreeControlName(tree, className);
  auto values = NewControlValues(tree, layout_, container, className, name, from, to);
  model::DesignerNode& holder = container == nullptr ? *root : *container->Node;
  model::DesignerNode* const added = editor_->Add(className, name, holder, std::move(values));
  if (added != nullptr) Select({added});
  Settle();
}

QSize DesignerView::sizeHint() const {
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return frame_.Whole.isEmpty() ? QScrollArea::sizeHint() : frame_.Whole + QSize(bar, bar) / 4;
}

void DesignerView::OpenCode() {
  const auto chosen = Selected();
  if (!chosen.empty()) OpenCodeOf(*chosen.back());
}

void DesignerView::OpenCodeOf(const model::DesignerNode& node) {
  if (OnOpenCode) OnOpenCode(Component(), NameInCode(node));
}

void DesignerView::StartRename() {
  const auto chosen = Selected();
  if (chosen.empty()) return;
  model::DesignerNode& node = *chosen.back();
  const PlacedControl* const control = layout_.Find(&node);
  const QRect place = control != nullptr       ? frame_.ToPixels(control->Bounds)
                      : frame_.Title.isEmpty() ? frame_.Body
                                               : frame_.Title;
  rename_ = new InlineRename(canvas_, ToQt(node.Name), place);
  rename_->OnDone = [this, weak = node.weak_from_this()](const QString& name) {
    FinishRename(weak, name);
  };
}

void DesignerView::FinishRename(const std::weak_ptr<model::DesignerNode>& node,
                                const QString& name) {
  const auto target = node.lock();
  if (!target || !Component()->OwnDesigner()->Tree().Holds(target.get())) return;
  (void)editor_->Rename(*target, FromQt(name.trimmed()));
  Settle();
}

}  // namespace tessel::workbench
