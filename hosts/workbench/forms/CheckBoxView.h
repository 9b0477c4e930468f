#pragma once

#include <QCheckBox>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class CheckBoxView : public ControlView {
 public:
  CheckBoxView(forms::CheckBox& box, ViewHost& host);
  [[nodiscard]] QCheckBox* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  forms::CheckBox& box_;
  QCheckBox* widget_;
};

}  // namespace tessel::workbench
