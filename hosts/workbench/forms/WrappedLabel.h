// A label that is always as high as its broken text.
#pragma once

#include <QLabel>

namespace tessel::workbench {

class WrappedLabel : public QLabel {
 public:
  using QLabel::QLabel;
  /// Short texts stay in one line; longer ones are broken at about `columns` characters or wider.
  void SetColumns(int columns);
  /// The same as setText, with the measures of the new text.
  void ShowText(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Measure();
  [[nodiscard]] int TextFlags() const;
  [[nodiscard]] int LongestWord() const;
  int columns_ = 0;
};

}  // namespace tessel::workbench
