// Find and replace below the code windows.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <functional>

#include "hosts/workbench/window/CodeEditor.h"

namespace tessel::workbench {

/// Works on the editor that `Target` names; null for none.
class FindBar : public QWidget {
 public:
  explicit FindBar(QWidget* parent);

  std::function<CodeEditor*()> Target;
  /// Shows the bar with the selected text of the editor.
  void Open(bool replace);
  void FindNext(bool forward = true);
  /// Replaces what is selected if it is a hit, and finds the next one.
  void ReplaceNext();
  /// Replaces all in one undo step; answers how many.
  int ReplaceAll();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build();
  [[nodiscard]] bool IsHit(const CodeEditor& editor) const;
  bool Find(CodeEditor& editor, bool forward, bool wrap) const;

  QLineEdit* what_;
  QLineEdit* with_;
  QCheckBox* matchCase_;
  QCheckBox* wholeWord_;
  QLabel* message_;
  QWidget* replaceRow_;
};

}  // namespace tessel::workbench
