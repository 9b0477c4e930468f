#include "hosts/workbench/window/FindBar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

QPushButton* AddButton(QLayout& row, const QString& caption, const char* name) {
  auto* const button = new QPushButton(caption);
  button->setAutoDefault(false);
  button->setObjectName(QString::fromLatin1(name));
  row.addWidget(button);
  return button;
}

bool IsAhead(const editing::SearchHit& hit, int line, int column) {
  return hit.Line < line || (hit.Line == line && hit.Column < column);
}

}  // namespace

FindBar::FindBar(FindGround ground, QWidget* parent)
    : QWidget(parent),
      ground_(std::move(ground)),
      what_(new QLineEdit),
      with_(new QLineEdit),
      scope_(new QComboBox),
      matchCase_(new QCheckBox(tr("Match &case"))),
      wholeWord_(new QCheckBox(tr("Whole wor&ds"))),
      message_(new QLabel),
      replaceRow_(new QWidget),
      hits_(new HitList(this)) {
  setObjectName(QStringLiteral("findBar"));
  Build();
  hide();
}

void FindBar::Build() {
  what_->setObjectName(QStringLiteral("findWhat"));
  with_->setObjectName(QStringLiteral("replaceWith"));
  scope_->setObjectName(QStringLiteral("findScope"));
  message_->setObjectName(QStringLiteral("findMessage"));
  what_->setPlaceholderText(tr("Find"));
  with_->setPlaceholderText(tr("Replace with"));
  scope_->addItems({tr("Selection"), tr("Module"), tr("Project")});
  scope_->setCurrentIndex(InModule);
  scope_->setToolTip(tr("Where to look"));
  scope_->setAccessibleName(tr("Where to look"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 4, 6, 4);
  auto* const first = new QHBoxLayout;
  auto* const second = new QHBoxLayout(replaceRow_);
  second->setContentsMargins({});
  first->addWidget(what_, 1);
  second->addWidget(with_, 1);
  BuildFirstRow(*first);
  BuildSecondRow(*second);
  auto* const third = new QHBoxLayout;
  third->addWidget(matchCase_);
  third->addWidget(wholeWord_);
  third->addWidget(message_, 1);
  column->addLayout(first);
  column->addWidget(replaceRow_);
  column->addLayout(third);
  column->addWidget(hits_);
  hits_->hide();
  hits_->OnChosen = [this](const ModuleHit& hit) {
    const auto module = hit.Module.lock();
    if (!module || !module->Component()) return;
    ShowHit(*module, hit.Place);
    if (CodeEditor* const editor = Target()) editor->setFocus();
  };
  connect(scope_, &QComboBox::activated, this, [this] { ScopeChosen(); });
  connect(what_, &QLineEdit::returnPressed, this, [this] { FindNext(); });
  connect(with_, &QLineEdit::returnPressed, this, [this] { ReplaceNext(); });
}

void FindBar::BuildFirstRow(QLayout& row) {
  row.addWidget(scope_);
  const QPushButton* const next = AddButton(row, tr("Find &Next"), "findNext");
  const QPushButton* const before = AddButton(row, tr("Find Previou&s"), "findPrevious");
  const QPushButton* const all = AddButton(row, tr("F&ind All"), "findAll");
  const QPushButton* const close = AddButton(row, tr("Close"), "findClose");
  connect(next, &QPushButton::clicked, this, [this] { FindNext(); });
  connect(before, &QPushButton::clicked, this, [this] { FindNext(false); });
  connect(all, &QPushButton::clicked, this, [this] { FindAll(); });
  connect(close, &QPushButton::clicked, this, [this] { hide(); });
}

void FindBar::BuildSecondRow(QLayout& row) {
  const QPushButton* const replace = AddButton(row, tr("&Replace"), "replaceNext");
  const QPushButton* const all = AddButton(row, tr("Rep&lace All"), "replaceAll");
  connect(replace, &QPushButton::clicked, this, [this] { ReplaceNext(); });
  connect(all, &QPushButton::clicked, this,
          [this] { message_->setText(tr("%n replaced", nullptr, ReplaceAll())); });
}

CodeEditor* FindBar::Target() const { return ground_.Current ? ground_.Current() : nullptr; }

FindBar::Scope FindBar::CurrentScope() const { return static_cast<Scope>(scope_->currentIndex()); }

editing::SearchText FindBar::Wanted() const {
  return {FromQt(what_->text()), matchCase_->isChecked(), wholeWord_->isChecked()};
}

void FindBar::KeepSelection(const CodeEditor& editor) {
  const host::Selection chosen = editor.Selected();
  selectedIn_ = editor.Module();
  selected_ = {chosen.StartLine, chosen.StartColumn, chosen.EndLine, chosen.EndColumn};
}

void FindBar::SetScope(Scope scope) {
  scope_->setCurrentIndex(scope);
  ScopeChosen();
}

void FindBar::ScopeChosen() {
  const CodeEditor* const editor = Target();
  if (CurrentScope() == InSelection && editor != nullptr && editor->hasSelectedText()) {
    KeepSelection(*editor);
  }
}

void FindBar::Open(bool replace) {
  const CodeEditor* const editor = Target();
  if (editor == nullptr) return;
  const QString selected = editor->selectedText();
  if (selected.contains(u'\n')) {
    SetScope(InSelection);
  } else {
    if (CurrentScope() == InSelection) SetScope(InModule);
    if (!selected.isEmpty()) what_->setText(selected);
  }
  message_->clear();
  replaceRow_->setVisible(replace);
  show();
  what_->setFocus();
  what_->selectAll();
}

std::vector<FindBar::Part> FindBar::Parts() const {
  std::vector<Part> parts;
  const CodeEditor* const editor = Target();
  if (CurrentScope() == InProject && ground_.Modules) {
    for (const auto& module : ground_.Modules()) {
      parts.push_back({module, editing::WholeRange(module->Buffer())});
    }
  } else if (const auto selected = selectedIn_.lock(); CurrentScope() == InSelection && selected) {
    parts.push_back({selected, selected_});
  } else if (editor != nullptr) {
    parts.push_back({editor->Module(), editing::WholeRange(editor->Module()->Buffer())});
  }
  return parts;
}

std::vector<editing::SearchHit> FindBar::HitsIn(const Part& part) const {
  return editing::FindAll(part.Module->Buffer(), part.Range, Wanted());
}

void FindBar::ShowHit(model::CodeModule& module, const editing::SearchHit& hit) {
  CodeEditor* editor = Target();
  if (editor == nullptr || editor->Module().get() != &module) {
    // Another window takes the keys as it comes to the front; the field that has them keeps them.
    const QPointer<QWidget> typing = QApplication::focusWidget();
    editor = ground_.Open ? ground_.Open(module) : nullptr;
    if (editor == nullptr) return;
    if (typing != nullptr && isAncestorOf(typing)) typing->setFocus();
  }
  const int length = static_cast<int>(what_->text().size());
  editor->ensureLineVisible(hit.Line - 1);
  editor->Select({hit.Line, hit.Column, hit.Line, hit.Column + length});
  editor->ensureCursorVisible();
}

/// Goes round all parts, from the caret on and back to it.
bool FindBar::Find(CodeEditor& editor, bool forward) {
  auto parts = Parts();
  if (!forward) std::reverse(parts.begin(), parts.end());
  const auto own = std::find_if(parts.begin(), parts.end(),
                                [&](const Part& part) { return part.Module == editor.Module(); });
  if (own != parts.end()) std::rotate(parts.begin(), own, parts.end());
  const host::Selection caret = editor.Selected();
  if (own != parts.end() && !parts.empty()) parts.push_back(parts.front());
  for (std::size_t at = 0; at < parts.size(); ++at) {
    auto hits = HitsIn(parts[at]);
    if (at == 0 && parts[at].Module == editor.Module()) {
      std::erase_if(hits, [&](const editing::SearchHit& hit) {
        return forward ? IsAhead(hit, caret.EndLine, caret.EndColumn)
                       : !IsAhead(hit, caret.StartLine, caret.StartColumn);
      });
    }
    if (hits.empty()) continue;
    ShowHit(*parts[at].Module, forward ? hits.front() : hits.back());
    return true;
  }
  return false;
}

void FindBar::FindNext(bool forward) {
  CodeEditor* const editor = Target();
  if (editor == nullptr || what_->text().isEmpty()) return;
  message_->setText(Find(*editor, forward) ? QString() : tr("Not found"));
}

void FindBar::FindAll() {
  std::vector<ModuleHit> all;
  int modules = 0;
  for (const Part& part : Parts()) {
    const auto hits = HitsIn(part);
    if (!hits.empty()) ++modules;
    for (const auto& hit : hits) all.push_back({part.Module, hit});
  }
  const auto count = static_cast<int>(all.size());
  message_->setText(count == 0     ? tr("Not found")
                    : modules == 1 ? tr("%n found", nullptr, count)
                                   : tr("%1 found in %2 modules").arg(count).arg(modules));
  hits_->Show(std::move(all));
}

bool FindBar::IsHit(const CodeEditor& editor) const {
  const host::Selection chosen = editor.Selected();
  if (!editor.hasSelectedText() || chosen.StartLine != chosen.EndLine) return false;
  const auto length = static_cast<int>(what_->text().size());
  if (chosen.EndColumn - chosen.StartColumn != length) return false;
  for (const Part& part : Parts()) {
    if (part.Module != editor.Module()) continue;
    const auto hits = HitsIn(part);
    return std::find(hits.begin(), hits.end(),
                     editing::SearchHit{chosen.StartLine, chosen.StartColumn}) != hits.end();
  }
  return false;
}

void FindBar::ReplaceNext() {
  CodeEditor* const editor = Target();
  if (editor == nullptr || what_->text().isEmpty()) return;
  if (IsHit(*editor)) editor->replaceSelectedText(with_->text());
  FindNext();
}

int FindBar::ReplaceIn(const Part& part) {
  const auto hits = HitsIn(part);
  const auto length = static_cast<std::size_t>(what_->text().size());
  const String with = FromQt(with_->text());
  for (auto first = hits.begin(); first != hits.end();) {
    const int line = first->Line;
    const auto last =
        std::find_if(first, hits.end(), [&](const auto& hit) { return hit.Line != line; });
    const String text(part.Module->Buffer().Line(line));
    part.Module->ReplaceLine(line, editing::ReplaceHits(text, {first, last}, length, with));
    const auto growth = static_cast<int>(with.size()) - static_cast<int>(length);
    if (line == selected_.LastLine && part.Module == selectedIn_.lock()) {
      selected_.LastColumn += growth * static_cast<int>(last - first);
    }
    first = last;
  }
  return static_cast<int>(hits.size());
}

int FindBar::ReplaceAll() {
  if (what_->text().isEmpty() || !ground_.Run) return 0;
  int count = 0;
  ground_.Run([&] {
    for (const Part& part : Parts()) count += ReplaceIn(part);
  });
  hits_->Show({});
  return count;
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  hide();
  if (CodeEditor* const editor = Target()) editor->setFocus();
}

}  // namespace tessel::workbench
