// A code window: the editor with the lists of objects and procedures above it.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "hosts/workbench/window/CodeEditor.h"
#include "hosts/workbench/window/CodeObjects.h"
#include "hosts/workbench/window/ListOnDemand.h"

namespace tessel::workbench {

class CodeWindow : public QWidget {
 public:
  /// `editor` is one of the same module that was kept aside, or null; it becomes the window's.
  CodeWindow(const std::shared_ptr<model::CodePane>& pane, const EditorOptions& options,
             CodeEditor* editor);
  ~CodeWindow() override;

  [[nodiscard]] CodeEditor& Editor() const { return *editor_; }
  [[nodiscard]] const std::shared_ptr<model::CodePane>& Pane() const { return pane_; }
  [[nodiscard]] std::shared_ptr<model::VBComponent> Component() const;

  /// The pane's selection or top line was set by a tool.
  void FollowSelection();
  void FollowTopLine();
  /// Tells the pane where the user is; done with every movement as well, but only when it is
  /// painted.
  void TellPane() { pane_->Follow(editor_->Selected(), editor_->TopLine()); }
  /// The objects or the lines changed; the lists follow when the window is idle.
  void ListsChanged();
  /// Puts the caret into a member; an event that has no procedure yet gets one.
  void OpenProcedure(StringView object, StringView event);

  /// The user closes the window.
  std::function<void()> OnClosed;
  /// The caret moved or the text changed.
  std::function<void()> OnMoved;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Build();
  void Moved();
  void ShowPlace();
  void ReadLists();
  [[nodiscard]] bool ShowsMember(StringView member, host::vbext_ProcKind kind) const;
  void FillProcedures(std::size_t object);
  void PickObject(int index);
  void PickProcedure(int index);
  void AddProcedure(const CodeProcedure& procedure);

  std::shared_ptr<model::CodePane> pane_;
  CodeEditor* editor_;
  ListOnDemand* objectBox_;
  ListOnDemand* procedureBox_;
  QTimer listTimer_;
  std::vector<CodeObject> objects_;
  std::vector<CodeProcedure> procedures_;
  bool listsStale_ = true;
};

}  // namespace tessel::workbench
