#include "hosts/workbench/forms/SurfaceWidget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "forms/User.h"
#include "hosts/workbench/forms/ActionGate.h"
#include "hosts/workbench/forms/ControlViews.h"
#include "hosts/workbench/forms/FormLayout.h"
#include "hosts/workbench/forms/LabelView.h"
#include "hosts/workbench/forms/MenuView.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int EnterKey = 13, LineFeedKey = 10, EscapeKey = 27;

/// The ASCII code that the model knows a key by, 0 for other keys.
int CodeOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  if (held & ~Qt::ControlModifier) return 0;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return held ? LineFeedKey : EnterKey;
    case Qt::Key_Escape:
      return held ? 0 : EscapeKey;
    default:
      return 0;
  }
}

void CollectControls(const forms::Layout& node, std::set<const forms::Control*>& found) {
  if (node.Content != nullptr) found.insert(node.Content);
  for (const forms::Layout& child : node.Children) CollectControls(child, found);
}

}  // namespace

SurfaceWidget::SurfaceWidget(const std::shared_ptr<forms::Surface>& surface, ActionGate& gate)
    : surface_(surface), gate_(gate) {
  BuildContent();
  LinkKeys();
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { NoteFocus(now); });
  surface->SetView(this);
}

SurfaceWidget::~SurfaceWidget() {
  const auto surface = surface_.lock();
  if (surface && surface->GetView() == this) surface->SetView(nullptr);
  Detach();
  delete content_;  // the widgets' last signals find their views alive
}

void SurfaceWidget::Finish() {
  if (surface_.expired()) return;
  DeliverFocus();
  Settle(nullptr);
}

void SurfaceWidget::BuildMenuBar() {
  const auto surface = surface_.lock();
  if (surface->Menus().empty()) return;
  menuBar_ = new QMenuBar(this);
  for (forms::MenuItem* const menu : surface->Menus()) {
    QMenu* const shown = menuBar_->addMenu(QString());
    const auto choose = [this](forms::MenuItem& item) {
      const String name = item.Name();
      Run([&] { forms::user::ChooseFromBar(item.Owner(), name); });
    };
    // Asked again at each opening; an empty menu would not open at all.
    FillMenu(*shown, *menu, choose);
    connect(shown, &QMenu::aboutToShow, this, [this, shown, menu, choose] {
      Run([menu] { menu->RaiseClick(); });
      FillMenu(*shown, *menu, choose);
    });
    menus_.emplace_back(menu, shown);
  }
  ShowMenuBar();
}

/// Menus that are visible stand in the bar; the others only pop up.
void SurfaceWidget::ShowMenuBar() {
  bool any = false;
  for (const auto& [menu, shown] : menus_) {
    shown->setTitle(ToQt(menu->Caption()));
    shown->menuAction()->setEnabled(menu->Enabled());
    shown->menuAction()->setVisible(menu->Visible());
    any = any || menu->Visible();
  }
  if (menuBar_) menuBar_->setVisible(any);
}

void SurfaceWidget::BuildContent() {
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  content_ = new QWidget;
  whole->addWidget(content_);
  const auto surface = surface_.lock();
  ViewHost& host = *this;
  views_ = std::make_unique<ControlViews>(*surface, host, *content_);
  PutAside(surface->Arrangement());
  ShowChanges();  // the layout asks for the size of captions
  FormLayout(*views_).Build(surface->Arrangement(), *content_);
  BuildMenuBar();
}

/// Controls that the arrangement leaves out have a widget and no place.
void SurfaceWidget::PutAside(const forms::Layout& arrangement) {
  std::set<const forms::Control*> placed;
  CollectControls(arrangement, placed);
  auto* const aside = new QWidget(content_);
  aside->hide();
  for (const auto& view : views_->All()) {
    changed_.insert(view.get());
    view->Widget()->setParent(placed.contains(&view->Model()) ? content_ : aside);
  }
}

void SurfaceWidget::LinkKeys() {
  QWidget* before = nullptr;
  for (const auto& view : views_->All()) {
    view->FocusWidget()->installEventFilter(this);
    if (auto* const label = dynamic_cast<LabelView*>(view.get())) {
      if (!label->HasKey()) continue;
      ControlView* const field = views_->FieldBehind(*view);
      if (field != nullptr) label->LeadTo(field->FocusWidget());
    } else if (view->Model().TakesFocus()) {
      if (before != nullptr) setTabOrder(before, view->FocusWidget());
      before = view->FocusWidget();
    }
  }
}

void SurfaceWidget::Detach() {
  surface_.reset();
  for (const auto& view : views_->All()) view->LetGo();
  changed_.clear();
  focusMoved_ = nullptr;
  for (QObject* const part : findChildren<QObject*>()) part->blockSignals(true);
}

void SurfaceWidget::ControlChanged(forms::Control& control) {
  changed_.insert(&views_->Of(control));
  PostRefresh();
}

void SurfaceWidget::FocusChanged(forms::Control*) {
  focusWanted_ = true;
  PostRefresh();
}

void SurfaceWidget::SurfaceChanged() {
  ShowMenuBar();
  if (FrameChanged) FrameChanged();
}

void SurfaceWidget::PostRefresh() {
  if (refreshPosted_) return;
  refreshPosted_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        refreshPosted_ = false;
        DeliverFocus();
        Refresh();
      },
      Qt::QueuedConnection);
}

void SurfaceWidget::Refresh() {
  if (syncing_ || !surface_.lock()) return;
  {
    const QScopedValueRollback<bool> guard(syncing_, true);
    ShowChanges();
    ShowFocus();
  }
  AdoptFocus();
}

void SurfaceWidget::ShowChanges() {
  const auto changed = std::exchange(changed_, {});
  for (ControlView* const view : changed) view->Sync();
}

/// Follows the surface's own move of the focus.
void SurfaceWidget::ShowFocus() {
  if (!std::exchange(focusWanted_, false)) return;
  const forms::Control* const active = surface_.lock()->ActiveControl();
  if (active == nullptr) return;
  focusMoved_ = nullptr;
  QWidget* const widget = views_->Of(*active).FocusWidget();
  // The editor of a cell lies inside the grid.
  if (widget != focusWidget() && !widget->isAncestorOf(focusWidget())) widget->setFocus();
}

/// A control that was switched off under the focus has passed it on to another.
void SurfaceWidget::AdoptFocus() {
  const forms::Control* const active = surface_.lock()->ActiveControl();
  if (active == nullptr || !isActiveWindow()) return;
  const QWidget* const widget = views_->Of(*active).FocusWidget();
  if (!widget->isEnabled() || !widget->isVisibleTo(this)) NoteFocus(focusWidget());
}

void SurfaceWidget::NoteFocus(QWidget* now) {
  const auto surface = surface_.lock();
  if (syncing_ || !surface || now == nullptr || !isAncestorOf(now)) return;
  ControlView* const view = views_->Around(now);
  if (view == nullptr || !view->Model().TakesFocus()) return;
  focusMoved_ = surface->ActiveControl() == &view->Model() ? nullptr : view;
  // Told later: a handler may show a message, and a press of the mouse must reach its widget first.
  if (focusMoved_ != nullptr) PostRefresh();
}

void SurfaceWidget::DeliverFocus() {
  const auto surface = surface_.lock();
  ControlView* const moved = std::exchange(focusMoved_, nullptr);
  if (moved == nullptr || !surface || !surface->Visible()) return;
  forms::Control& control = moved->Model();
  if (surface->ActiveControl() == &control || !control.Enabled() || !control.Visible()) return;
  Run([&] { forms::user::Focus(control); });
}

void SurfaceWidget::FocusFirst() {
  if (surface_.lock()->ActiveControl() != nullptr) {
    focusWanted_ = true;
    Refresh();
    return;
  }
  for (const auto& view : views_->All()) {
    const forms::Control& control = view->Model();
    QWidget* const widget = view->FocusWidget();
    if (!control.TakesFocus() || !control.Enabled() || !widget->isVisibleTo(this)) continue;
    widget->setFocus();
    return;
  }
}

void SurfaceWidget::Settle(const ControlView* except) {
  for (const auto& view : views_->All()) {
    if (view.get() != except) view->Settle();
  }
}

void SurfaceWidget::Act(ControlView& source, const std::function<void()>& action) {
  if (surface_.expired()) return;
  DeliverFocus();
  Settle(&source);
  changed_.insert(&source);
  Run(action);
}

void SurfaceWidget::Run(const std::function<void()>& action) {
  const auto surface = surface_.lock();
  if (!surface) return;
  const QPointer<SurfaceWidget> self(this);
  gate_.Run(action);
  if (self) Refresh();
}

ControlView* SurfaceWidget::KeyTarget() const {
  if (ControlView* const view = views_->Around(focusWidget())) return view;
  for (const auto& view : views_->All()) {
    const forms::Control& control = view->Model();
    if (control.TakesFocus() && control.Enabled() && control.Visible()) return view.get();
  }
  return nullptr;
}

void SurfaceWidget::keyPressEvent(QKeyEvent* event) {
  const int code = CodeOf(*event);
  ControlView* const target = code == 0 || !surface_.lock() ? nullptr : KeyTarget();
  if (target != nullptr) {
    Act(*target, [&] { forms::user::Key(target->Model(), code); });
  } else {
    event->ignore();
  }
}

bool SurfaceWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && surface_.lock()) {
    ControlView* const view = views_->Around(qobject_cast<QWidget*>(watched));
    if (view != nullptr && FilterKey(*view, static_cast<QKeyEvent&>(*event))) return true;
  }
  return QWidget::eventFilter(watched, event);
}

/// Shows a control's handler the keys that give a character; true when it took the key.
bool SurfaceWidget::FilterKey(ControlView& view, QKeyEvent& event) {
  const auto handler = view.Model().KeyPress;
  // Enter and Escape come back by way of the surface, which shows them to the handler itself.
  if (!handler || event.text().size() != 1 || CodeOf(event) != 0) return false;
  const int typed = event.text().front().unicode();
  int key = typed;
  DeliverFocus();
  Run([&] { handler(key); });
  if (key == typed) return false;
  return key == 0 || view.InsertText(QString(QChar(key)));
}

}  // namespace tessel::workbench
