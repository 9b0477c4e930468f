// A line of text, or a paragraph where it has a line to itself.
#pragma once

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class WrappedLabel;

class LabelView : public ControlView {
 public:
  LabelView(forms::Label& label, ViewHost& host);
  [[nodiscard]] QWidget* Widget() const override;
  /// Whether the label had an access key when its window was made, from its class or from loading;
  /// an "&" that comes later is one to be read.
  [[nodiscard]] bool HasKey() const { return hasKey_; }
  /// The control that the label's access key leads to.
  void LeadTo(QWidget* widget);
  /// The label stands in a line of its own: a long text is broken.
  void AllowWrapping();

 protected:
  void Update() override;

 private:
  forms::Label& label_;
  WrappedLabel* widget_;
  bool hasKey_;
};

}  // namespace tessel::workbench
