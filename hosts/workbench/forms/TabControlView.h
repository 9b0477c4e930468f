#pragma once

#include <QTabWidget>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class TabControlView : public ControlView {
 public:
  TabControlView(forms::TabControl& tabs, ViewHost& host);
  [[nodiscard]] QTabWidget* Widget() const override { return widget_; }
  [[nodiscard]] QWidget* FocusWidget() const override;
  /// Gives the next page of the control its content.
  void AddPage(QWidget* content);

 protected:
  void Update() override;

 private:
  forms::TabControl& tabs_;
  QTabWidget* widget_;
};

}  // namespace tessel::workbench
