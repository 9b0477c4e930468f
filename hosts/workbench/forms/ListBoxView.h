#pragma once

#include <QListWidget>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class ListBoxView : public ControlView {
 public:
  ListBoxView(forms::ListBox& box, ViewHost& host);
  [[nodiscard]] QListWidget* Widget() const override { return widget_; }

 protected:
  void Update() override;

 private:
  void ShowSize(int twips);
  forms::ListBox& box_;
  QListWidget* widget_;
  std::vector<String> shown_;
};

}  // namespace tessel::workbench
