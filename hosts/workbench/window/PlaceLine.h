// What the status bar tells of the place that the user works at.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "hosts/model/Component.h"
#include "hosts/model/Project.h"

class QLabel;
class QMenu;
class QStatusBar;
class QToolButton;

namespace tessel::workbench {

class CodeWindow;

/// Member, line and column of the caret, and the code page of the component's file: a button under
/// which all others lie.
class PlaceLine : public QObject {
 public:
  /// Puts its fields into the bar, which owns them and this.
  explicit PlaceLine(QStatusBar& bar);
  /// `code` is the editor in front, null for none; so is `component`.
  void Show(const CodeWindow* code, const std::shared_ptr<model::VBComponent>& component);

  /// The component that the button is about when it is pressed; must be set.
  std::function<std::shared_ptr<model::VBComponent>()> Current;
  /// The user wants all files of a project read in that code page; must be set.
  std::function<void(const std::shared_ptr<model::VBProject>&, int codePage)> OnOpenAgain;

 private:
  void FillCodePages(QMenu& menu);

  QLabel *place_, *member_;
  QToolButton* codePage_;
};

}  // namespace tessel::workbench
