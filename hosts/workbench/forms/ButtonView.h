#pragma once

#include <QPushButton>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class ButtonView : public ControlView {
 public:
  ButtonView(forms::Button& button, ViewHost& host);
  [[nodiscard]] QPushButton* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  forms::Button& button_;
  QPushButton* widget_;
};

}  // namespace tessel::workbench
