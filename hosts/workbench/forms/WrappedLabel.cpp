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
  const int line = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  setMinimumWidth(std::min(line, columns_ * fontMetrics().averageCharWidth()));
  setMinimumHeight(heightForWidth(std::max(width(), minimumWidth())));
}

// A layout asks for the height of a broken text only on its way down, never for a window's minimum.
void WrappedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (wordWrap()) setMinimumHeight(heightForWidth(event->size().width()));
}

}  // namespace tessel::workbench
