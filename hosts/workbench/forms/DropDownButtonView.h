#pragma once

#include <vector>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

class QMenu;
class QToolButton;

namespace tessel::workbench {

/// A button that has a click of its own is split; else all of it opens the list.
class DropDownButtonView : public ControlView {
 public:
  DropDownButtonView(forms::DropDownButton& button, ViewHost& host);
  [[nodiscard]] QWidget* Widget() const override;

 protected:
  void Update() override;

 private:
  void FillMenu();
  forms::DropDownButton& button_;
  QToolButton* widget_;
  QMenu* menu_;
};

}  // namespace tessel::workbench
