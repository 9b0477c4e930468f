#pragma once

#include <QRadioButton>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

class QButtonGroup;

namespace tessel::workbench {

class OptionButtonView : public ControlView {
 public:
  /// `group` holds the buttons that exclude each other, which the arrow keys walk through.
  OptionButtonView(forms::OptionButton& option, QButtonGroup& group, ViewHost& host);
  [[nodiscard]] QRadioButton* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  forms::OptionButton& option_;
  QButtonGroup& group_;
  QRadioButton* widget_;
};

}  // namespace tessel::workbench
