#include "hosts/workbench/forms/ComboBoxView.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLineEdit>
#include <algorithm>

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

ComboBoxView::ComboBoxView(forms::ComboBox& box, ViewHost& host)
    : ControlView(box, host), box_(box), widget_(new QComboBox) {
  constexpr int VisibleItems = 20;
  widget_->setMaxVisibleItems(VisibleItems);
  widget_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  if (box.BoxStyle() == forms::ComboBox::Style::Editable) MakeEditable();
  QObject::connect(widget_, &QComboBox::activated, widget_,
                   [this](int index) { Act([this, index] { forms::user::Pick(box_, index); }); });
}

void ComboBoxView::MakeEditable() {
  widget_->setEditable(true);
  widget_->setInsertPolicy(QComboBox::NoInsert);
  widget_->setDuplicatesEnabled(true);
  widget_->setCompleter(nullptr);
  // The widget would pick the item of a typed text by itself; only the user picks.
  QLineEdit* const line = widget_->lineEdit();
  QObject::disconnect(line, &QLineEdit::editingFinished, widget_, nullptr);
  QObject::disconnect(line, &QLineEdit::returnPressed, widget_, nullptr);
  QObject::connect(line, &QLineEdit::textEdited, widget_, [this](const QString& text) {
    Act([this, typed = FromQt(text)] { forms::user::Type(box_, typed); });
  });
}

bool ComboBoxView::InsertText(const QString& text) {
  if (!widget_->isEditable()) return false;
  widget_->lineEdit()->insert(text);
  Act([this] { forms::user::Type(box_, FromQt(widget_->currentText())); });
  return true;
}

/// Items that are padded with blanks line up in letters of one width.
void ComboBoxView::LineUp(const QStringList& items) {
  const bool padded = std::any_of(items.begin(), items.end(), [](const QString& item) {
    return item.trimmed().contains(QStringLiteral("  "));
  });
  QFont font = padded ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QApplication::font();
  font.setPointSizeF(QApplication::font().pointSizeF());
  widget_->setFont(font);
}

void ComboBoxView::ShowItems() {
  constexpr int MostColumns = 60;
  shown_ = box_.List();
  QStringList items;
  for (const String& text : shown_) items.append(ToQt(text));
  LineUp(items);
  widget_->clear();
  widget_->addItems(items);
  // The widget's own least width is that of the items which it had first, and it rounds down.
  const int unit = widget_->fontMetrics().averageCharWidth();
  widget_->setMinimumWidth(std::min(widget_->sizeHint().width() + unit, MostColumns * unit));
}

void ComboBoxView::Update() {
  if (shown_ != box_.List()) ShowItems();
  if (widget_->currentIndex() != box_.ListIndex()) widget_->setCurrentIndex(box_.ListIndex());
  const QString text = ToQt(box_.Text());
  if (!widget_->isEditable() || widget_->currentText() == text) return;
  const auto behind = widget_->currentText().size() - widget_->lineEdit()->cursorPosition();
  widget_->setEditText(text);
  widget_->lineEdit()->setCursorPosition(
      static_cast<int>(std::max<qsizetype>(0, text.size() - behind)));
}

}  // namespace tessel::workbench
