#include "hosts/workbench/window/RunDock.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include "hosts/workbench/forms/FormWindow.h"
#include "hosts/workbench/window/ChildWindows.h"

namespace tessel::workbench {
namespace {

constexpr int ListHeight = 170;

/// The run whose dialog is open.
std::optional<review::RunKind> RunOfOpenDialog() {
  for (QWidget* const top : QApplication::topLevelWidgets()) {
    const auto* const window = dynamic_cast<FormWindow*>(top);
    const auto form = window != nullptr && window->isVisible() ? window->FormOf() : nullptr;
    const auto kind = form ? review::RunOfForm(form->Name()) : std::nullopt;
    if (kind) return kind;
  }
  return std::nullopt;
}

}  // namespace

RunDock::RunDock(ChildWindows& children, QWidget* parent)
    : QDockWidget(tr("Run"), parent), list_(new RunList(this)) {
  setObjectName(QStringLiteral("run"));
  setWidget(list_);
  hide();
  list_->OnDone = [this] { hide(); };
  children.RunUnderWay = RunOfOpenDialog;
  children.OnRun = [this](const auto& run) {
    // Not from inside the run's own action, which a dialog may still have to end.
    QTimer::singleShot(0, this, [this, run] { Show(*run); });
  };
}

void RunDock::Show(const review::RunReview& run) {
  if (!list_->Show(run)) {
    hide();
    return OnMessage(
        tr("The run changed the layout of %1").arg(CountOfModules(run.Changed().size())));
  }
  OnShow();
  if (auto* const window = qobject_cast<QMainWindow*>(parentWidget())) {
    window->resizeDocks({this}, {ListHeight}, Qt::Vertical);
  }
}

}  // namespace tessel::workbench
