#pragma once

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"
#include "hosts/workbench/forms/SpinArrows.h"

namespace tessel::workbench {

/// The arrows alone: the number stands in the field beside them.
class SpinButtonView : public ControlView {
 public:
  SpinButtonView(forms::SpinButton& spin, ViewHost& host);
  [[nodiscard]] SpinArrows* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  forms::SpinButton& spin_;
  SpinArrows* widget_;
};

}  // namespace tessel::workbench
