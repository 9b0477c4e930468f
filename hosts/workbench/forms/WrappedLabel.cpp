#include "hosts/workbench/forms/WrappedLabel.h"

#include <QResizeEvent>
#include <algorithm>

namespace tessel::workbench {

void WrappedLabel::SetColumns(int columns) {
  columns_ = columns;
  setWordWrap(true);
  Measure();
}

void WrappedLabel::ShowText(const QString& text) {
  if (text == this->text()) return;
  setText(text);
  Measure();
}

void WrappedLabel::Measure() {
  if (!wordWrap()) return;
  const int line = fontMetrics().size(TextFlags(), text()).width();
  const int wanted = std::min(line, columns_ * fontMetrics().averageCharWidth());
  setMinimumWidth(std::max(wanted, LongestWord()));
  setMinimumHeight(std::max(0, heightForWidth(std::max(width(), minimumWidth()))));
}

/// Without a control that it leads to, the label shows every "&".
int WrappedLabel::TextFlags() const { return buddy() != nullptr ? Qt::TextShowMnemonic : 0; }

/// Width of what can't be broken.
int WrappedLabel::LongestWord() const {
  int width = 0;
  for (const QString& word : text().split(u' ')) {
    width = std::max(width, fontMetrics().size(TextFlags(), word).width());
  }
  return width;
}

// A layout asks for the height of a broken text only on its way down, never for a window's minimum.
void WrappedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (wordWrap()) setMinimumHeight(std::max(0, heightForWidth(event->size().width())));
}

}  // namespace tessel::workbench
