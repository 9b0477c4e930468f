#include "hosts/workbench/forms/MultiLineView.h"

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int Columns = 64, Lines = 12;

}  // namespace

MultiLineView::MultiLineView(forms::TextBox& box, ViewHost& host)
    : ControlView(box, host), box_(box), widget_(new TextEdit(Columns, Lines)) {
  QObject::connect(widget_, &QPlainTextEdit::textChanged, widget_, [this] {
    const QString text = widget_->PlainText();
    if (text == WithLf(box_.Text())) return;
    Act([this, &text] { forms::user::Type(box_, WithModelEnds(text)); });
  });
}

bool MultiLineView::InsertText(const QString& text) {
  widget_->insertPlainText(text);
  return true;
}

void MultiLineView::Update() {
  widget_->setReadOnly(box_.Locked);
  widget_->ShowPlainText(WithLf(box_.Text()));
}

}  // namespace tessel::workbench
