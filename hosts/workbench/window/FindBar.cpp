#include "hosts/workbench/window/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel::workbench {
namespace {

QPushButton* AddButton(QHBoxLayout& row, const QString& caption) {
  auto* const button = new QPushButton(caption);
  button->setAutoDefault(false);
  row.addWidget(button);
  return button;
}

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      what_(new QLineEdit),
      with_(new QLineEdit),
      matchCase_(new QCheckBox(tr("Match &case"))),
      wholeWord_(new QCheckBox(tr("&Whole words"))),
      message_(new QLabel),
      replaceRow_(new QWidget) {
  setObjectName(QStringLiteral("findBar"));
  Build();
  hide();
}

void FindBar::Build() {
  what_->setObjectName(QStringLiteral("findWhat"));
  with_->setObjectName(QStringLiteral("replaceWith"));
  what_->setPlaceholderText(tr("Find"));
  with_->setPlaceholderText(tr("Replace with"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 4, 6, 4);
  auto* const first = new QHBoxLayout;
  first->addWidget(what_, 1);
  QPushButton* const next = AddButton(*first, tr("Find &Next"));
  QPushButton* const before = AddButton(*first, tr("Find &Previous"));
  first->addWidget(matchCase_);
  first->addWidget(wholeWord_);
  first->addWidget(message_);
  QPushButton* const close = AddButton(*first, tr("Close"));
  auto* const second = new QHBoxLayout(replaceRow_);
  second->setContentsMargins({});
  second->addWidget(with_, 1);
  QPushButton* const replace = AddButton(*second, tr("&Replace"));
  QPushButton* const all = AddButton(*second, tr("Replace &All"));
  column->addLayout(first);
  column->addWidget(replaceRow_);
  connect(what_, &QLineEdit::returnPressed, this, [this] { FindNext(); });
  connect(with_, &QLineEdit::returnPressed, this, [this] { ReplaceNext(); });
  connect(next, &QPushButton::clicked, this, [this] { FindNext(); });
  connect(before, &QPushButton::clicked, this, [this] { FindNext(false); });
  connect(replace, &QPushButton::clicked, this, [this] { ReplaceNext(); });
  connect(all, &QPushButton::clicked, this, [this] {
    const int count = ReplaceAll();
    message_->setText(tr("%n replaced", nullptr, count));
  });
  connect(close, &QPushButton::clicked, this, [this] { hide(); });
}

void FindBar::Open(bool replace) {
  CodeEditor* const editor = Target ? Target() : nullptr;
  if (editor == nullptr) return;
  const QString selected = editor->selectedText();
  if (!selected.isEmpty() && !selected.contains(u'\n')) what_->setText(selected);
  message_->clear();
  replaceRow_->setVisible(replace);
  show();
  what_->setFocus();
  what_->selectAll();
}

bool FindBar::Find(CodeEditor& editor, bool forward, bool wrap) const {
  int line = -1, column = -1;
  if (!forward && editor.hasSelectedText()) {
    int endLine = 0, endColumn = 0;
    editor.getSelection(&line, &column, &endLine, &endColumn);
  }
  return editor.findFirst(what_->text(), false, matchCase_->isChecked(), wholeWord_->isChecked(),
                          wrap, forward, line, column, true);
}

void FindBar::FindNext(bool forward) {
  CodeEditor* const editor = Target ? Target() : nullptr;
  if (editor == nullptr || what_->text().isEmpty()) return;
  message_->setText(Find(*editor, forward, true) ? QString() : tr("Not found"));
}

bool FindBar::IsHit(const CodeEditor& editor) const {
  return editor.hasSelectedText() &&
         editor.selectedText().compare(
             what_->text(), matchCase_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive) == 0;
}

void FindBar::ReplaceNext() {
  CodeEditor* const editor = Target ? Target() : nullptr;
  if (editor == nullptr || what_->text().isEmpty()) return;
  if (IsHit(*editor)) editor->replaceSelectedText(with_->text());
  FindNext();
}

int FindBar::ReplaceAll() {
  CodeEditor* const editor = Target ? Target() : nullptr;
  if (editor == nullptr || what_->text().isEmpty()) return 0;
  int count = 0;
  editor->BeginGroup();
  editor->setCursorPosition(0, 0);
  while (Find(*editor, true, false)) {
    editor->replaceSelectedText(with_->text());
    ++count;
  }
  editor->EndGroup();
  return count;
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  hide();
  CodeEditor* const editor = Target ? Target() : nullptr;
  if (editor != nullptr) editor->setFocus();
}

}  // namespace tessel::workbench
