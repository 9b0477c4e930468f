#include "hosts/workbench/forms/TextBoxView.h"

#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <utility>

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

TextBoxView::TextBoxView(forms::TextBox& box, ViewHost& host)
    : ControlView(box, host), box_(box), widget_(new QLineEdit) {
  constexpr int LeastColumns = 20;
  widget_->setMinimumWidth(LeastColumns * widget_->fontMetrics().averageCharWidth());
  QObject::connect(widget_, &QLineEdit::textEdited, widget_, [this](const QString& text) {
    held_ = IsOnItsWay(text);
    if (!held_) Send();
  });
  QObject::connect(widget_, &QLineEdit::editingFinished, widget_, [this] { Settle(); });
}

bool TextBoxView::IsOnItsWay(const QString& text) const {
  bool whole = false;
  const int number = text.toInt(&whole);
  return least_ && (text.isEmpty() || (whole && number >= 0 && number < *least_));
}

void TextBoxView::Send() {
  Act([this] { forms::user::Type(box_, FromQt(widget_->text())); });
}

void TextBoxView::Settle() {
  if (std::exchange(held_, false)) Send();
}

bool TextBoxView::InsertText(const QString& text) {
  widget_->insert(text);
  Send();
  return true;
}

void TextBoxView::HoldNumber(int least, int most) {
  least_ = least;
  NarrowTo(static_cast<int>(vb::Str(most).size()));
}

void TextBoxView::ShowHint() {
  const QString tip = ToQt(box_.ToolTipText());
  if (const auto colon = tip.indexOf(u':'); colon > 0) widget_->setPlaceholderText(tip.left(colon));
}

void TextBoxView::NarrowTo(int digits) {
  // Room for the caret and the frame's own margins is what the style adds to a blank field.
  const QFontMetrics metrics = widget_->fontMetrics();
  QStyleOptionFrame frame;
  frame.initFrom(widget_);
  const QSize text((digits + 1) * metrics.horizontalAdvance(u'0'), metrics.height());
  const QSize whole =
      widget_->style()->sizeFromContents(QStyle::CT_LineEdit, &frame, text, widget_);
  widget_->setFixedWidth(whole.width() + 2 * metrics.averageCharWidth());
}

void TextBoxView::Update() {
  widget_->setReadOnly(box_.Locked);
  if (held_) return;
  const QString text = ToQt(box_.Text());
  if (text == widget_->text()) return;
  // Where the user types, what stands behind the caret stays behind it; else the start is seen.
  const auto behind = widget_->text().size() - widget_->cursorPosition();
  widget_->setText(text);
  const auto caret = widget_->hasFocus() ? std::max<qsizetype>(0, text.size() - behind) : 0;
  widget_->setCursorPosition(static_cast<int>(caret));
}

}  // namespace tessel::workbench
