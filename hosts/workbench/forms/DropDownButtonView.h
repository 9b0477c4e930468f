#pragma once

#include <vector>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

class QAbstractButton;
class QMenu;

namespace tessel::workbench {

/// A button that has a click of its own is split; else all of it opens the list.
class DropDownButtonView : public ControlView {
 public:
  DropDownButtonView(forms::DropDownButton& button, ViewHost& host);
  [[nodiscard]] QWidget* Widget() const override;

 protected:
  void Update() override;

 private:
  [[nodiscard]] QAbstractButton* MakeSplit();
  [[nodiscard]] QAbstractButton* MakeWhole();
  void FillMenu();
  forms::DropDownButton& button_;
  QMenu* menu_;
  QAbstractButton* widget_;
};

}  // namespace tessel::workbench
