#pragma once

#include "forms/RichTextBox.h"
#include "hosts/workbench/forms/ControlView.h"
#include "hosts/workbench/forms/TextEdit.h"

namespace tessel::workbench {

class RunHighlighter;

/// A text with colours. Lines are not broken, as code isn't.
class RichTextView : public QObject, public ControlView {
 public:
  RichTextView(forms::RichTextBox& box, ViewHost& host);
  [[nodiscard]] TextEdit* Widget() const override { return widget_; }
  bool InsertText(const QString& text) override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void Update() override;

 private:
  void UseFont();
  void SendText();
  void SendSelection();
  void SelectInModel(const QString& text);

  forms::RichTextBox& box_;
  TextEdit* widget_;
  RunHighlighter* colors_;
};

}  // namespace tessel::workbench
