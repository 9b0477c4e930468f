// A text field of one line.
#pragma once

#include <QLineEdit>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class TextBoxView : public ControlView {
 public:
  TextBoxView(forms::TextBox& box, ViewHost& host);
  [[nodiscard]] QLineEdit* Widget() const override { return widget_; }
  bool InsertText(const QString& text) override;
  /// Makes the field just wide enough for so many digits.
  void NarrowTo(int digits);

 protected:
  void Update() override;

 private:
  forms::TextBox& box_;
  QLineEdit* widget_;
};

}  // namespace tessel::workbench
