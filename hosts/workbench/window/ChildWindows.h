// The windows of code and designers inside the main window.
#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "hosts/model/Vbe.h"
#include "hosts/review/RunReview.h"
#include "hosts/workbench/window/CodeWindow.h"
#include "hosts/workbench/window/EditorShelf.h"

namespace tessel::workbench {

class DesignerView;

/// Opens, finds and closes them, and keeps them and the model in step. What a tool changes goes
/// into their undo histories as one step of each.
class ChildWindows : public QMdiArea {
 public:
  explicit ChildWindows(std::shared_ptr<model::Vbe> vbe, QWidget* parent);
  ~ChildWindows() override;

  /// The options of editors that are opened from now on.
  std::function<EditorOptions()> Options;
  /// Another window is in front, or none.
  std::function<void()> OnActivated;
  /// The caret of a code window moved or its text changed.
  std::function<void()> OnMoved;
  /// A component holds again what its file does.
  std::function<void()> OnUnchanged;
  /// The run of a dialog that an action belongs to which begins now; nothing for other actions.
  std::function<std::optional<review::RunKind>()> RunUnderWay;
  /// A run is over that changed something.
  std::function<void(const std::shared_ptr<review::RunReview>&)> OnRun;
  /// Told of each designer that is opened, to connect it.
  std::function<void(DesignerView&)> OnDesigner;

  /// Null when the component has no open window of that kind.
  [[nodiscard]] CodeWindow* CodeOf(const model::CodeModule& module) const;
  [[nodiscard]] DesignerView* DesignerOf(const model::VBComponent& component) const;
  /// The window in front when it is one of that kind, else null.
  [[nodiscard]] CodeWindow* CurrentCode() const;
  [[nodiscard]] DesignerView* CurrentDesigner() const;
  /// The component of the window in front; null for none, and for one that is on its way out.
  [[nodiscard]] std::shared_ptr<model::VBComponent> CurrentComponent() const;
  [[nodiscard]] const std::map<const model::CodeModule*, CodeWindow*>& Codes() const {
    return codes_;
  }
  [[nodiscard]] const std::map<const model::VBComponent*, DesignerView*>& Designers() const {
    return designers_;
  }

  /// Brings the window of a pane or a designer to the front, opening it when there is none.
  void ShowPane(const std::shared_ptr<model::CodePane>& pane);
  void ShowDesigner(model::VBComponent& component);
  void ClosePane(const model::CodeModule& module);
  /// Closes windows whose components are gone, and names the others anew.
  void CloseGone();
  /// Gives every open editor the options that `Options` answers now.
  void ApplyOptions();
  /// Puts what the user has entered and not left yet into its final form.
  void TidyEntered();
  /// Notes that what counts as unchanged now is what the files hold: undo back to here counts as
  /// unchanged again.
  void NoteSaved();

  /// Gives a module the text that it had ahead of a tool's edits, by its undo history where a step
  /// of that leads there. False, changing nothing, when it isn't `after` any more.
  bool TakeBack(model::VBComponent& component, const String& before, const String& after);

  /// Runs what one action of the user makes the tools do. May be called inside itself.
  void RunTool(const std::function<void()>& action);

  /// Runs the loading of a component from its file, as one step of its window's undo history. What
  /// the window shows stays in sight.
  void Reload(const model::VBComponent& component, const std::function<void()>& load);

  // What the model tells, passed on by its observer.
  void LinesChanging(model::CodeModule& module);
  void LinesChanged(model::CodeModule& module, int line, int removed, int added);
  void SelectionSet(const model::CodePane& pane);
  void TopLineSet(const model::CodePane& pane);
  void DesignerChanged(model::VBComponent& component);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] CodeEditor* EditorOf(const model::CodeModule& module) const;
  QMdiSubWindow* AddFrame(QWidget& content, const model::VBComponent& component);
  [[nodiscard]] QRect PlaceOfNext() const;
  void CodeClosed(const std::shared_ptr<model::CodePane>& pane);
  void Forget(std::map<const model::CodeModule*, CodeWindow*>::iterator code);
  void EndToolEdits();
  void NoteSaved(CodeEditor& editor);
  void DropStepsOfOldForms(const model::VBComponent& component, DesignerView& view);
  void WatchSavePoint(CodeEditor& editor);
  void WatchSavePoint(DesignerView& view);
  void ShowColors();

  std::shared_ptr<model::Vbe> vbe_;
  QStyle* frameStyle_;
  std::map<const model::CodeModule*, CodeWindow*> codes_;
  std::map<const model::VBComponent*, DesignerView*> designers_;
  std::map<const DesignerView*, std::weak_ptr<model::Designer>> shownForms_;
  int toolDepth_ = 0;
  bool stepping_ = false;  // an editor goes along its undo history
  std::optional<review::RunKind> runKind_;
  std::shared_ptr<review::RunReview> run_;
  std::set<CodeEditor*> grouped_;
  /// Editors whose save point holds what the file does.
  std::set<const CodeEditor*> saved_;
  EditorShelf shelf_;
};

}  // namespace tessel::workbench
