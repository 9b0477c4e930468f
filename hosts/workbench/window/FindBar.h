// Find and replace below the code windows.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/editing/TextSearch.h"
#include "hosts/workbench/window/CodeEditor.h"
#include "hosts/workbench/window/HitList.h"

namespace tessel::workbench {

/// What the bar works on.
struct FindGround {
  /// The editor in front; null for none.
  std::function<CodeEditor*()> Current;
  /// The modules of the project in front.
  std::function<std::vector<std::shared_ptr<model::CodeModule>>()> Modules;
  /// Brings a module's window to the front, opening it when there is none.
  std::function<CodeEditor*(model::CodeModule&)> Open;
  /// Makes what is done one step of each window's undo.
  std::function<void(const std::function<void()>&)> Run;
};

class FindBar : public QWidget {
 public:
  enum Scope { InSelection, InModule, InProject };

  FindBar(FindGround ground, QWidget* parent);

  /// Shows the bar. A selection of one line is what is looked for, one of several lines is where.
  void Open(bool replace);
  void FindNext(bool forward = true);
  /// Lists all places.
  void FindAll();
  /// Replaces what is selected if it is a hit, and finds the next one.
  void ReplaceNext();
  /// Replaces all in one undo step; answers how many.
  int ReplaceAll();
  void SetScope(Scope scope);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Part {
    std::shared_ptr<model::CodeModule> Module;
    editing::SearchRange Range;
  };
  void Build();
  void BuildFirstRow(QLayout& row);
  void BuildSecondRow(QLayout& row);
  void ScopeChosen();
  void KeepSelection(const CodeEditor& editor);
  [[nodiscard]] Scope CurrentScope() const;
  [[nodiscard]] CodeEditor* Target() const;
  [[nodiscard]] editing::SearchText Wanted() const;
  [[nodiscard]] std::vector<Part> Parts() const;
  [[nodiscard]] std::vector<editing::SearchHit> HitsIn(const Part& part) const;
  [[nodiscard]] bool IsHit(const CodeEditor& editor) const;
  bool Find(CodeEditor& editor, bool forward);
  void ShowHit(model::CodeModule& module, const editing::SearchHit& hit);
  int ReplaceIn(const Part& part);

  FindGround ground_;
  QLineEdit* what_;
  QLineEdit* with_;
  QComboBox* scope_;
  QCheckBox* matchCase_;
  QCheckBox* wholeWord_;
  QLabel* message_;
  QWidget* replaceRow_;
  HitList* hits_;
  /// Where "Selection" looks, and in what.
  std::weak_ptr<model::CodeModule> selectedIn_;
  editing::SearchRange selected_;
};

}  // namespace tessel::workbench
