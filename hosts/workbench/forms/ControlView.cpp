#include "hosts/workbench/forms/ControlView.h"

#include <QScopedValueRollback>
#include <QTextDocument>

#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

void ControlView::Sync() {
  const QScopedValueRollback<bool> guard(syncing_, true);
  QWidget* const widget = Widget();
  const QString tip = ToQt(model_.ToolTipText());
  widget->setToolTip(Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip);
  widget->setEnabled(model_.Enabled());
  // Asking a visible widget to be so again would show a page that isn't in front.
  if (widget->isHidden() == model_.Visible()) widget->setVisible(model_.Visible());
  Update();
}

bool ControlView::InsertText(const QString&) { return false; }

void ControlView::Act(const std::function<void()>& action) {
  if (!syncing_ && bound_) host_.Act(*this, action);
}

void ControlView::LetGo() {
  bound_ = false;
  Released();
}

}  // namespace tessel::workbench
