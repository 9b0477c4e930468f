#pragma once

#include <QGroupBox>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

/// A frame with a caption; without one, nothing of it is seen. The layout fills it.
class PanelView : public ControlView {
 public:
  PanelView(forms::Panel& panel, ViewHost& host);
  [[nodiscard]] QWidget* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  forms::Panel& panel_;
  QWidget* widget_;
};

}  // namespace tessel::workbench
