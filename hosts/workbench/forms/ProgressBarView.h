#pragma once

#include <QProgressBar>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class ProgressBarView : public ControlView {
 public:
  ProgressBarView(forms::ProgressBar& bar, ViewHost& host);
  [[nodiscard]] QProgressBar* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  forms::ProgressBar& bar_;
  QProgressBar* widget_;
};

}  // namespace tessel::workbench
