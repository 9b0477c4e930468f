#include "hosts/workbench/forms/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <QWindow>

#include "forms/User.h"
#include "hosts/workbench/forms/ActionGate.h"
#include "hosts/workbench/forms/ControlViews.h"
#include "hosts/workbench/forms/FormLayout.h"
#include "hosts/workbench/forms/LabelView.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int EnterKey = 13, EscapeKey = 27, LeastColumns = 48;

Qt::WindowFlags FlagsOf(forms::BorderStyle border) {
  const Qt::WindowFlags frame = Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  switch (border) {
    case forms::BorderStyle::Sizable:
      return Qt::Dialog | frame | Qt::WindowMinMaxButtonsHint;
    case forms::BorderStyle::ToolWindow:
      return Qt::Tool | frame;
    default:
      return Qt::Dialog | frame;
  }
}

/// The ASCII code that the model knows a key by, 0 for other keys.
int CodeOf(const QKeyEvent& event) {
  if (event.modifiers() & ~Qt::KeypadModifier) return 0;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return EnterKey;
    case Qt::Key_Escape:
      return EscapeKey;
    default:
      return 0;
  }
}

void CollectControls(const forms::Layout& node, std::set<const forms::Control*>& found) {
  if (node.Content != nullptr) found.insert(node.Content);
  for (const forms::Layout& child : node.Children) CollectControls(child, found);
}

}  // namespace

FormWindow::FormWindow(const std::shared_ptr<forms::Form>& form, ActionGate& gate, QWidget* parent)
    : QDialog(parent, FlagsOf(form->Border)), form_(form), gate_(gate) {
  setObjectName(ToQt(form->Name()));
  ShowFrame();
  BuildContent();
  LinkKeys();
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { NoteFocus(now); });
  form->SetView(this);
}

FormWindow::~FormWindow() {
  const auto form = form_.lock();
  if (form && form->GetView() == this) form->SetView(nullptr);
  Detach();
  delete content_;  // the widgets' last signals find their views alive
}

void FormWindow::ShowFrame() {
  const auto form = form_.lock();
  setWindowTitle(ToQt(form->Caption()));
  if (form->Icon != 0) setWindowIcon(Picture(form->Icon));
}

void FormWindow::BuildContent() {
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  content_ = new QWidget;
  // A minimum of the widget itself would hide what its layout needs.
  whole->addStrut(LeastColumns * fontMetrics().averageCharWidth());
  whole->addWidget(content_);
  const auto form = form_.lock();
  ViewHost& host = *this;
  views_ = std::make_unique<ControlViews>(*form, host, *content_);
  PutAside(form->Arrangement());
  ShowChanges();  // the layout asks for the size of captions
  FormLayout(*views_).Build(form->Arrangement(), *content_);
}

/// Controls that the arrangement leaves out have a widget and no place.
void FormWindow::PutAside(const forms::Layout& arrangement) {
  std::set<const forms::Control*> placed;
  CollectControls(arrangement, placed);
  auto* const aside = new QWidget(content_);
  aside->hide();
  for (const auto& view : views_->All()) {
    changed_.insert(view.get());
    view->Widget()->setParent(placed.contains(&view->Model()) ? content_ : aside);
  }
}

void FormWindow::LinkKeys() {
  QWidget* before = nullptr;
  for (const auto& view : views_->All()) {
    view->FocusWidget()->installEventFilter(this);
    if (auto* const label = dynamic_cast<LabelView*>(view.get())) {
      ControlView* const next = views_->NextWithFocus(*view);
      if (next != nullptr) label->LeadTo(next->FocusWidget());
    } else if (view->Model().TakesFocus()) {
      if (before != nullptr) setTabOrder(before, view->FocusWidget());
      before = view->FocusWidget();
    }
  }
}

void FormWindow::Open(bool blocks, QWidget* behind) {
  setWindowModality(blocks ? Qt::ApplicationModal : Qt::NonModal);
  Refresh();
  FocusFirst();
  place_.Prepare();
  StandInFrontOf(behind);
  if (place_.IsMaximized()) {
    showMaximized();
  } else {
    show();
  }
  raise();
  activateWindow();
}

void FormWindow::StandInFrontOf(QWidget* behind) {
  if (behind == nullptr || behind == this) return;
  winId();
  if (QWindow* const other = behind->window()->windowHandle()) {
    windowHandle()->setTransientParent(other);
  }
}

void FormWindow::StopBlocking() {
  if (wait_ || !isVisible() || windowModality() == Qt::NonModal) return;
  // The modality of a window in sight can't be changed.
  hide();
  setWindowModality(Qt::NonModal);
  show();
}

void FormWindow::WaitUntilHidden() {
  QEventLoop loop;
  wait_ = &loop;
  loop.exec();
}

void FormWindow::Leave() {
  hide();
  if (wait_) wait_->quit();
}

void FormWindow::Detach() {
  form_.reset();
  changed_.clear();
  focusMoved_ = nullptr;
  for (QObject* const part : findChildren<QObject*>()) part->blockSignals(true);
  Leave();
}

void FormWindow::ControlChanged(forms::Control& control) {
  changed_.insert(&views_->Of(control));
  PostRefresh();
}

void FormWindow::FocusChanged(forms::Control*) {
  focusWanted_ = true;
  PostRefresh();
}

void FormWindow::SurfaceChanged() { ShowFrame(); }

void FormWindow::PostRefresh() {
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

void FormWindow::Refresh() {
  if (syncing_ || !form_.lock()) return;
  {
    const QScopedValueRollback<bool> guard(syncing_, true);
    ShowChanges();
    ShowFocus();
  }
  AdoptFocus();
}

void FormWindow::ShowChanges() {
  const auto changed = std::exchange(changed_, {});
  for (ControlView* const view : changed) view->Sync();
}

/// Follows the form's own move of the focus.
void FormWindow::ShowFocus() {
  if (!std::exchange(focusWanted_, false)) return;
  const forms::Control* const active = form_.lock()->ActiveControl();
  if (active == nullptr) return;
  focusMoved_ = nullptr;
  QWidget* const widget = views_->Of(*active).FocusWidget();
  // The editor of a cell lies inside the grid.
  if (widget != focusWidget() && !widget->isAncestorOf(focusWidget())) widget->setFocus();
}

/// A control that was switched off under the focus has passed it on to another.
void FormWindow::AdoptFocus() {
  const forms::Control* const active = form_.lock()->ActiveControl();
  if (active == nullptr || !isActiveWindow()) return;
  const QWidget* const widget = views_->Of(*active).FocusWidget();
  if (!widget->isEnabled() || !widget->isVisibleTo(this)) NoteFocus(focusWidget());
}

void FormWindow::NoteFocus(QWidget* now) {
  const auto form = form_.lock();
  if (syncing_ || !form || now == nullptr || !isAncestorOf(now)) return;
  ControlView* const view = views_->Around(now);
  if (view == nullptr || !view->Model().TakesFocus()) return;
  focusMoved_ = form->ActiveControl() == &view->Model() ? nullptr : view;
  // Told later: a handler may show a message, and a press of the mouse must reach its widget first.
  if (focusMoved_ != nullptr) PostRefresh();
}

void FormWindow::DeliverFocus() {
  const auto form = form_.lock();
  ControlView* const moved = std::exchange(focusMoved_, nullptr);
  if (moved == nullptr || !form || !form->Visible()) return;
  forms::Control& control = moved->Model();
  if (form->ActiveControl() == &control || !control.Enabled() || !control.Visible()) return;
  Run([&] { forms::user::Focus(control); });
}

void FormWindow::FocusFirst() {
  if (form_.lock()->ActiveControl() != nullptr) {
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

void FormWindow::Settle(const ControlView* except) {
  for (const auto& view : views_->All()) {
    if (view.get() != except) view->Settle();
  }
}

void FormWindow::Act(ControlView& source, const std::function<void()>& action) {
  DeliverFocus();
  Settle(&source);
  changed_.insert(&source);
  Run(action);
}

void FormWindow::Run(const std::function<void()>& action) {
  const auto form = form_.lock();
  if (!form) return;
  const QPointer<FormWindow> self(this);
  gate_.Run(action);
  if (self) Refresh();
}

void FormWindow::reject() {}  // Escape is the Cancel button's, the frame asks the form

void FormWindow::closeEvent(QCloseEvent* event) {
  CloseByFrame();
  event->setAccepted(!isVisible());
}

void FormWindow::CloseByFrame() {
  const auto form = form_.lock();
  if (!form || !form->Visible()) return;
  DeliverFocus();
  Settle(nullptr);
  Run([&] { forms::user::Close(*form); });
}

ControlView* FormWindow::KeyTarget() const {
  if (ControlView* const view = views_->Around(focusWidget())) return view;
  for (const auto& view : views_->All()) {
    const forms::Control& control = view->Model();
    if (control.TakesFocus() && control.Enabled() && control.Visible()) return view.get();
  }
  return nullptr;
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  const int code = CodeOf(*event);
  ControlView* const target = code == 0 || !form_.lock() ? nullptr : KeyTarget();
  if (target != nullptr) {
    Act(*target, [&] { forms::user::Key(target->Model(), code); });
  } else {
    event->ignore();
  }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && form_.lock()) {
    ControlView* const view = views_->Around(qobject_cast<QWidget*>(watched));
    if (view != nullptr && FilterKey(*view, static_cast<QKeyEvent&>(*event))) return true;
  }
  return QDialog::eventFilter(watched, event);
}

/// Shows a control's handler the keys that give a character; true when it took the key.
bool FormWindow::FilterKey(ControlView& view, QKeyEvent& event) {
  const auto handler = view.Model().KeyPress;
  // Enter and Escape come back by way of the form, which shows them to the handler itself.
  if (!handler || event.text().size() != 1 || CodeOf(event) != 0) return false;
  const int typed = event.text().front().unicode();
  int key = typed;
  DeliverFocus();
  Run([&] { handler(key); });
  if (key == typed) return false;
  return key == 0 || view.InsertText(QString(QChar(key)));
}

}  // namespace tessel::workbench
