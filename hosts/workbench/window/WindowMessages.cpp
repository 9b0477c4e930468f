#include "hosts/workbench/window/WindowMessages.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include "hosts/model/UserInput.h"
#include "hosts/workbench/designer/DesignerCanvas.h"
#include "hosts/workbench/designer/DesignerView.h"

namespace tessel::workbench {
namespace {

using platform::WindowHandle;

/// The widget or the one around it that is of a kind.
template <class Kind>
Kind* Around(QWidget* widget) {
  for (; widget != nullptr && !widget->isWindow(); widget = widget->parentWidget()) {
    if (auto* const found = dynamic_cast<Kind*>(widget)) return found;
  }
  return nullptr;
}

WindowHandle HandleOf(const CodeWindow& code) { return code.Pane()->OwnWindow().Handle(); }

WindowHandle HandleOf(const DesignerView& view) { return view.Component()->DesignerHandle(); }

/// 0 for a widget in no window of code or designer.
WindowHandle HandleAround(QWidget* widget) {
  if (const auto* const code = Around<CodeWindow>(widget)) return HandleOf(*code);
  if (const auto* const view = Around<DesignerView>(widget)) return HandleOf(*view);
  return 0;
}

/// Lists above the code; what scrolls is no child of its window.
bool IsChildOfCode(const CodeWindow& code, QWidget& widget) {
  return widget.parentWidget() == &code && &widget != &code.Editor();
}

}  // namespace

WindowMessages::WindowMessages(ChildWindows& children, model::WindowTable& windows)
    : children_(children), windows_(windows) {
  windows_.Deliver = [this](std::function<void()> send) {
    QTimer::singleShot(0, this, std::move(send));
  };
  windows_.PlaceOf = [this](WindowHandle window) { return PlaceOf(window); };
  windows_.FocusWanted = [this](WindowHandle window) { Focus(window); };
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { FocusMoved(now); });
  qApp->installEventFilter(this);
}

WindowMessages::~WindowMessages() {
  qApp->removeEventFilter(this);
  windows_.Deliver = nullptr;
  windows_.PlaceOf = nullptr;
  windows_.FocusWanted = nullptr;
}

void WindowMessages::FocusMoved(QWidget* now) {
  const WindowHandle window = HandleAround(now);
  windows_.FocusMoved(window);
  if (window != 0 && OnEntered) OnEntered();
}

/// Each event is taken at the widget that it is meant for: one that nobody wants comes again for
/// the widgets around it.
bool WindowMessages::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyRelease:
      if (watched->isWidgetType() && !static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
        KeyUp(*static_cast<QWidget*>(watched));
      }
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (watched->isWidgetType() && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        MouseDown(*static_cast<QWidget*>(watched));
      }
      break;
    case QEvent::MouseButtonRelease:
      if (watched->isWidgetType() && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        MouseUp(*static_cast<QWidget*>(watched));
      }
      break;
    case QEvent::Shortcut:
      Shortcut();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void WindowMessages::KeyUp(QWidget& widget) {
  const auto* const code = Around<CodeWindow>(&widget);
  if (code != nullptr && &widget == &code->Editor()) model::Key(windows_, HandleOf(*code));
  auto* const view = Around<DesignerView>(&widget);
  if (view != nullptr && &widget == &view->Canvas()) model::Key(windows_, HandleOf(*view));
}

void WindowMessages::MouseDown(QWidget& widget) {
  if (const auto* const code = Around<CodeWindow>(&widget)) {
    if (&widget == code->Editor().viewport()) model::ButtonDown(windows_, HandleOf(*code));
    if (IsChildOfCode(*code, widget)) model::ClickChild(windows_, HandleOf(*code));
  } else if (auto* const view = Around<DesignerView>(&widget)) {
    if (&widget == &view->Canvas()) model::ClickChild(windows_, HandleOf(*view));
  }
}

void WindowMessages::MouseUp(QWidget& widget) {
  if (const auto* const code = Around<CodeWindow>(&widget)) {
    if (&widget == code->Editor().viewport()) model::ButtonUp(windows_, HandleOf(*code));
  } else if (auto* const view = Around<DesignerView>(&widget)) {
    if (&widget == &view->Canvas()) model::ButtonUp(windows_, HandleOf(*view));
  }
}

/// The code window in front hears of commands that keys give.
void WindowMessages::Shortcut() {
  if (QApplication::activeModalWidget() != nullptr) return;
  if (const CodeWindow* const code = children_.CurrentCode()) {
    model::Accelerator(windows_, HandleOf(*code));
  }
}

QWidget* WindowMessages::ContentOf(WindowHandle window) const {
  for (const auto& [module, code] : children_.Codes()) {
    if (HandleOf(*code) == window) return code;
  }
  for (const auto& [component, view] : children_.Designers()) {
    if (HandleOf(*view) == window) return view;
  }
  return nullptr;
}

std::optional<platform::WindowRectangle> WindowMessages::PlaceOf(WindowHandle window) const {
  const QWidget* const content = ContentOf(window);
  if (content == nullptr) return std::nullopt;
  const QRect place(content->mapToGlobal(QPoint()), content->size());
  return platform::WindowRectangle{place.left(), place.top(), place.left() + place.width(),
                                   place.top() + place.height()};
}

void WindowMessages::Focus(WindowHandle window) const {
  QWidget* const content = ContentOf(window);
  if (content == nullptr) return;
  children_.setActiveSubWindow(qobject_cast<QMdiSubWindow*>(content->parentWidget()));
  content->activateWindow();
  content->setFocus(Qt::OtherFocusReason);
}

}  // namespace tessel::workbench
