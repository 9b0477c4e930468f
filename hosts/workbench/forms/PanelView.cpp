#include "hosts/workbench/forms/PanelView.h"

#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

PanelView::PanelView(forms::Panel& panel, ViewHost& host)
    : ControlView(panel, host),
      panel_(panel),
      widget_(panel.Caption().empty() ? new QWidget : new QGroupBox) {}

void PanelView::Update() {
  if (auto* const group = qobject_cast<QGroupBox*>(widget_))
    group->setTitle(ToQt(panel_.Caption()));
}

}  // namespace tessel::workbench
