// A field of several lines whose size follows its font.
#pragma once

#include <QPlainTextEdit>

#include "vb/Text.h"

namespace tessel::workbench {

/// Counts positions in units, a line end being one, where the model's line ends are CR LF and count
/// two.
class TextEdit : public QPlainTextEdit {
 public:
  /// Wanted size in characters and lines.
  TextEdit(int columns, int lines);

  /// The text with LF as line ends, character for character.
  [[nodiscard]] QString PlainText() const;
  /// Puts another text (LF as line ends) in, leaving alone what is equal at both ends, and with it
  /// caret, scroll position and undo list.
  void ShowPlainText(const QString& text);
  /// The selected range; its ends are equal when there is only a caret.
  void Select(int start, int end);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  [[nodiscard]] QSize SizeOf(int columns, int lines) const;
  int columns_, lines_;
};

/// A text of the model as a TextEdit has it, and back.
[[nodiscard]] QString WithLf(StringView text);
[[nodiscard]] String WithModelEnds(const QString& text);
/// A position in a text of CR LF lines as one in the same text of LF lines.
[[nodiscard]] int ShownPosition(StringView text, int position);
/// A position in a text of LF lines as one in the same text of CR LF lines.
[[nodiscard]] int ModelPosition(const QString& text, int position);

}  // namespace tessel::workbench
