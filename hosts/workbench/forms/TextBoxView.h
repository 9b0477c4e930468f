// A text field of one line.
#pragma once

#include <QLineEdit>
#include <optional>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class TextBoxView : public ControlView {
 public:
  TextBoxView(forms::TextBox& box, ViewHost& host);
  [[nodiscard]] QLineEdit* Widget() const override { return widget_; }
  bool InsertText(const QString& text) override;
  void Settle() override;
  /// Makes the field one of a number between bounds: just wide enough for it. A number below the
  /// least one may be on its way to a larger one, so it is told when the user is through with it.
  void HoldNumber(int least, int most);
  /// While the field is empty, what its tool tip says ahead of a colon stands in it.
  void ShowHint();

 protected:
  void Update() override;

 private:
  void NarrowTo(int digits);
  [[nodiscard]] bool IsOnItsWay(const QString& text) const;
  void Send();

  forms::TextBox& box_;
  QLineEdit* widget_;
  std::optional<int> least_;
  bool held_ = false;  // what the field shows isn't told yet
};

}  // namespace tessel::workbench
