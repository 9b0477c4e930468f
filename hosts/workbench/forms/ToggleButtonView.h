#pragma once

#include <QPushButton>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class ToggleButtonView : public ControlView {
 public:
  ToggleButtonView(forms::ToggleButton& button, ViewHost& host);
  [[nodiscard]] QPushButton* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  forms::ToggleButton& button_;
  QPushButton* widget_;
};

}  // namespace tessel::workbench
