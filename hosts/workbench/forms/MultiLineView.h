// A text box of several lines.
#pragma once

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"
#include "hosts/workbench/forms/TextEdit.h"

namespace tessel::workbench {

class MultiLineView : public ControlView {
 public:
  MultiLineView(forms::TextBox& box, ViewHost& host);
  [[nodiscard]] TextEdit* Widget() const override { return widget_; }
  bool InsertText(const QString& text) override;

 protected:
  void Update() override;

 private:
  forms::TextBox& box_;
  TextEdit* widget_;
};

}  // namespace tessel::workbench
