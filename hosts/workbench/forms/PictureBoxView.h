#pragma once

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

class QToolButton;

namespace tessel::workbench {

class PictureBoxView : public ControlView {
 public:
  PictureBoxView(forms::PictureBox& box, ViewHost& host);
  [[nodiscard]] QWidget* Widget() const override;

 protected:
  void Update() override;

 private:
  forms::PictureBox& box_;
  QToolButton* widget_;
};

}  // namespace tessel::workbench
