#include "hosts/workbench/forms/RichTextView.h"

#include <QApplication>
#include <QEvent>
#include <QTextCursor>
#include <algorithm>

#include "forms/User.h"
#include "hosts/workbench/forms/RunHighlighter.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int Columns = 72, Lines = 14;

}  // namespace

RichTextView::RichTextView(forms::RichTextBox& box, ViewHost& host)
    : ControlView(box, host),
      box_(box),
      widget_(new TextEdit(Columns, Lines)),
      colors_(new RunHighlighter(widget_->document())) {
  widget_->setLineWrapMode(QPlainTextEdit::NoWrap);
  UseFont();
  colors_->SetBackground(widget_->palette().color(QPalette::Base));
  widget_->installEventFilter(this);
  connect(widget_, &QPlainTextEdit::textChanged, widget_, [this] { SendText(); });
  connect(widget_, &QPlainTextEdit::cursorPositionChanged, widget_, [this] { SendSelection(); });
  connect(widget_, &QPlainTextEdit::selectionChanged, widget_, [this] { SendSelection(); });
}

/// The model's font is the least: a desktop with large letters has them here as well.
void RichTextView::UseFont() {
  QFont font(ToQt(box_.Font->Name));
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  font.setPointSizeF(std::max(box_.Font->Size, QApplication::font().pointSizeF()));
  font.setBold(box_.Font->Bold);
  font.setItalic(box_.Font->Italic);
  font.setUnderline(box_.Font->Underline);
  font.setStrikeOut(box_.Font->Strikethrough);
  if (widget_->font() != font) widget_->setFont(font);
}

bool RichTextView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    colors_->SetBackground(widget_->palette().color(QPalette::Base));
  }
  return QObject::eventFilter(watched, event);
}

bool RichTextView::InsertText(const QString& text) {
  widget_->insertPlainText(text);
  return true;
}

void RichTextView::SendText() {
  if (IsSyncing()) return;
  const QString text = widget_->PlainText();
  if (text == WithLf(box_.Text())) return;  // only colours
  Act([this, &text] {
    forms::user::Type(box_, WithModelEnds(text));
    SelectInModel(text);
  });
}

void RichTextView::SendSelection() {
  if (IsSyncing()) return;
  const QString text = widget_->PlainText();
  // On the way to another text the caret moves first.
  if (text != WithLf(box_.Text())) return;
  const QTextCursor cursor = widget_->textCursor();
  const int start = ModelPosition(text, cursor.selectionStart());
  const int end = ModelPosition(text, cursor.selectionEnd());
  if (start == box_.SelStart() && end - start == box_.SelLength()) return;
  Act([this, &text] { SelectInModel(text); });
}

void RichTextView::SelectInModel(const QString& text) {
  // A handler that put another text in, or sent the focus away, has the last word on the caret.
  if (!box_.Enabled() || !box_.HasFocus() || box_.Text() != WithModelEnds(text)) return;
  const QTextCursor cursor = widget_->textCursor();
  const int start = ModelPosition(text, cursor.selectionStart());
  forms::user::SelectText(box_, start, ModelPosition(text, cursor.selectionEnd()) - start);
}

void RichTextView::Update() {
  widget_->setReadOnly(box_.Locked);
  UseFont();
  const forms::ColoredText content = box_.Content();
  widget_->ShowPlainText(WithLf(content.Text));
  colors_->Show(content);
  widget_->Select(ShownPosition(content.Text, box_.SelStart()),
                  ShownPosition(content.Text, box_.SelStart() + box_.SelLength()));
}

}  // namespace tessel::workbench
