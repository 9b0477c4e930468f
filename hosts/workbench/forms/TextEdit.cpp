#include "hosts/workbench/forms/TextEdit.h"

#include <QScrollBar>
#include <QTextDocument>
#include <algorithm>

#include "forms/RichTextBox.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int LeastColumns = 24, LeastLines = 3;

}  // namespace

TextEdit::TextEdit(int columns, int lines) : columns_(columns), lines_(lines) {
  setTabChangesFocus(true);
}

// Not toPlainText(), which turns fixed blanks into plain ones.
QString TextEdit::PlainText() const {
  QString text = document()->toRawText();
  std::replace_if(
      text.begin(), text.end(),
      [](QChar unit) { return unit == QChar::ParagraphSeparator || unit == QChar::LineSeparator; },
      QChar(u'\n'));
  return text;
}

void TextEdit::ShowPlainText(const QString& text) {
  const QString now = PlainText();
  if (now == text) return;
  const auto shorter = std::min(now.size(), text.size());
  const auto differs = std::mismatch(now.begin(), now.begin() + shorter, text.begin());
  const auto head = differs.first - now.begin();
  qsizetype tail = 0;
  while (tail < shorter - head && now[now.size() - 1 - tail] == text[text.size() - 1 - tail]) {
    ++tail;
  }
  QTextCursor cursor(document());
  cursor.setPosition(static_cast<int>(head));
  cursor.setPosition(static_cast<int>(now.size() - tail), QTextCursor::KeepAnchor);
  cursor.insertText(text.mid(head, text.size() - head - tail));
}

void TextEdit::Select(int start, int end) {
  QTextCursor cursor = textCursor();
  if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
  cursor.setPosition(start);
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

QSize TextEdit::SizeOf(int columns, int lines) const {
  const QFontMetrics metrics = fontMetrics();
  const int border = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  return {
      columns * metrics.horizontalAdvance(u'0') + border + verticalScrollBar()->sizeHint().width(),
      lines * metrics.lineSpacing() + border + horizontalScrollBar()->sizeHint().height()};
}

QSize TextEdit::sizeHint() const { return SizeOf(columns_, lines_); }

QSize TextEdit::minimumSizeHint() const { return SizeOf(LeastColumns, LeastLines); }

QString WithLf(StringView text) {
  return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

String WithModelEnds(const QString& text) { return forms::WithCrLf(FromQt(text)); }

int ShownPosition(StringView text, int position) {
  const StringView head = text.substr(0, static_cast<std::size_t>(position));
  return position - static_cast<int>(std::count(head.begin(), head.end(), u'\r'));
}

int ModelPosition(const QString& text, int position) {
  return position + static_cast<int>(QStringView(text).left(position).count(u'\n'));
}

}  // namespace tessel::workbench
