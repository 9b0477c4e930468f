// Colours of a text by runs.
#pragma once

#include <QSyntaxHighlighter>
#include <map>
#include <vector>

#include "forms/RichTextBox.h"

namespace tessel::workbench {

/// A colour that can be read on a background: as it is where the contrast is good enough, else
/// lightened or darkened until it is.
[[nodiscard]] QColor ReadableColor(const QColor& color, const QColor& background);

/// Keeps the colours beside the text, so that they leave no trace in its undo list.
class RunHighlighter : public QSyntaxHighlighter {
 public:
  using QSyntaxHighlighter::QSyntaxHighlighter;

  /// Colours the document, which holds the same text with LF line ends. Only lines whose colours
  /// differ are drawn again.
  void Show(const forms::ColoredText& content);
  /// The background that the text stands on. Draws every line again when it is another.
  void SetBackground(const QColor& background);

 protected:
  void highlightBlock(const QString& text) override;

 private:
  QColor background_ = Qt::white;
  std::map<forms::Color, QColor> readable_;  ///< colours of the model on that background
};

}  // namespace tessel::workbench
