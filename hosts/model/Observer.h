// What a screen in front of the model is told.
#pragma once

#include <memory>

namespace tessel::model {

class CodeModule;
class CodePane;
class VBComponent;

/// Hears of every change of the model behind the fact, whoever made it. The calls come from inside
/// the operations: an observer must not fail and must not change the model.
class Observer {
 public:
  virtual ~Observer() = default;
  /// The lines of a module are about to change.
  virtual void LinesChanging(CodeModule& /*module*/) {}
  /// `removed` lines from `line` went and `added` lines stand there now.
  virtual void LinesChanged(CodeModule& /*module*/, int /*line*/, int /*removed*/, int /*added*/) {}
  virtual void PaneShown(const std::shared_ptr<CodePane>& /*pane*/) {}
  virtual void PaneClosed(const CodeModule& /*module*/) {}
  virtual void SelectionSet(CodePane& /*pane*/) {}
  virtual void TopLineSet(CodePane& /*pane*/) {}
  virtual void DesignerShown(VBComponent& /*component*/) {}
  /// A control came, went or got another name, or a property changed.
  virtual void DesignerChanged(VBComponent& /*component*/) {}
  /// Projects or components came, went or got other names.
  virtual void ProjectsChanged() {}
  /// Another project is active or another component selected.
  virtual void ChoiceChanged() {}
  /// A tool window was made, opened or closed.
  virtual void ToolWindowsChanged() {}
  /// Controls of a command bar came, went or look otherwise.
  virtual void BarsChanged() {}
};

}  // namespace tessel::model
