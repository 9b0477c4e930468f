#include "hosts/workbench/forms/ToolWindowDocks.h"

#include <QEvent>
#include <algorithm>

#include "forms/Document.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int LeastHeight = 60;  // pixels

/// The first time it stands there it takes half of its side; later the user's own height holds.
void GiveRoomOnceShown(QMainWindow& window, QDockWidget* dock) {
  const auto give = [&window, dock](bool visible) {
    if (visible) window.resizeDocks({dock}, {window.height() / 2}, Qt::Vertical);
  };
  QObject::connect(dock, &QDockWidget::visibilityChanged, &window, give, Qt::SingleShotConnection);
}

}  // namespace

ToolWindowDocks::ToolWindowDocks(QMainWindow& window, QtDesktop& desktop, ToolWindows toolWindows)
    : window_(window), desktop_(desktop), toolWindows_(std::move(toolWindows)) {}

ToolWindowDocks::~ToolWindowDocks() {
  for (Dock& dock : docks_) {
    delete dock.Widget.data();
  }
}

void ToolWindowDocks::FollowSoon() {
  if (std::exchange(posted_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        posted_ = false;
        Follow();
      },
      Qt::QueuedConnection);
}

QDockWidget* ToolWindowDocks::DockOf(StringView document) const {
  for (const Dock& dock : docks_) {
    const auto held = dock.Document.lock();
    if (held && vb::SameText(held->Name(), document)) return dock.Widget;
  }
  return nullptr;
}

bool ToolWindowDocks::Has(const model::ToolWindow& toolWindow) const {
  return std::any_of(docks_.begin(), docks_.end(), [&](const Dock& dock) {
    return dock.Frame.lock() == toolWindow.Frame.lock();
  });
}

void ToolWindowDocks::Follow() {
  std::erase_if(docks_, [](Dock& dock) {
    if (!dock.Frame.expired() && !dock.Document.expired()) return false;
    Drop(dock);
    return true;
  });
  for (const model::ToolWindow& toolWindow : toolWindows_()) {
    if (!toolWindow.Document.expired() && !Has(toolWindow)) Make(toolWindow);
  }
  for (const Dock& dock : docks_) {
    const auto document = dock.Document.lock();
    if (dock.Widget && dock.Widget->isHidden() == document->Visible()) {
      dock.Widget->setVisible(document->Visible());
      // From behind the others of its place, without the keys.
      if (document->Visible()) dock.Widget->raise();
    }
  }
}

void ToolWindowDocks::Make(const model::ToolWindow& toolWindow) {
  const auto document = toolWindow.Document.lock();
  auto* const dock = new QDockWidget(ToQt(toolWindow.Frame.lock()->Caption()), &window_);
  auto* const content = new SurfaceWidget(document, desktop_.Gate());
  dock->setObjectName(ToQt(toolWindow.Guid));
  dock->setWidget(content);
  // However much stands in it: a window must not be pushed off a small screen.
  content->setMinimumHeight(LeastHeight);
  dock->installEventFilter(this);
  dock->hide();
  if (!window_.restoreDockWidget(dock)) {
    window_.addDockWidget(Qt::RightDockWidgetArea, dock);
    GiveRoomOnceShown(window_, dock);
  }
  content->Refresh();
  docks_.push_back({toolWindow.Frame, toolWindow.Document, dock, content});
}

/// A handler of the document can be at work on behalf of the widget.
void ToolWindowDocks::Drop(Dock& dock) {
  if (dock.Content) dock.Content->Detach();
  if (!dock.Widget) return;
  dock.Widget->hide();
  dock.Widget->deleteLater();
}

/// The user closes a dock by its own button: that closes the window.
bool ToolWindowDocks::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close) {
    for (const Dock& dock : docks_) {
      const auto frame = dock.Widget == watched ? dock.Frame.lock() : nullptr;
      if (frame) desktop_.RunAction([&] { frame->SetVisible(false); });
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tessel::workbench
