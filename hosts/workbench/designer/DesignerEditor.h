// What is done to a designer by hand, with a way back.
#pragma once

#include <QUndoStack>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/workbench/designer/EditSteps.h"

namespace tessel::workbench {

/// New raw values of one control's properties.
struct PropertyEdits {
  model::DesignerNode* Node = nullptr;
  std::vector<NamedValue> Values;
};

/// Edits one component's designer. Every edit goes on the undo stack; one that fails changes
/// nothing, leaves no trace on the stack and is told to `OnFailure`. Each operation answers whether
/// it was done. Blocks that are passed in must stand in the tree.
class DesignerEditor {
 public:
  explicit DesignerEditor(std::shared_ptr<model::VBComponent> component);

  /// Gets the text of a failure.
  std::function<void(const String&)> OnFailure;

  /// Called around each edit, whose events tools may answer with edits of their own; it must call
  /// its argument once. None: the argument is just called.
  std::function<void(const std::function<void()>&)> RunTool;

  /// Takes back what a tool made of the code when a control was renamed. None: who hears of the
  /// name is asked once more.
  TakeBackCode OnTakeBack;

  [[nodiscard]] const std::shared_ptr<model::VBComponent>& Component() const { return component_; }
  /// The outermost block; null for a component without a designer.
  [[nodiscard]] model::DesignerNode* Root() const;
  [[nodiscard]] QUndoStack& UndoStack() { return stack_; }

  /// A new control on top of the others in its container, whatever those who heard of it called it.
  /// Null when it failed, and when it was taken away again.
  model::DesignerNode* Add(StringView className, StringView name, model::DesignerNode& container,
                           std::vector<NamedValue> properties);
  /// Removes controls; those inside another one of the list go with it.
  bool Remove(const std::vector<model::DesignerNode*>& nodes);
  /// Renames a control, or the component for the outermost block.
  bool Rename(model::DesignerNode& node, StringView name);
  /// Sets properties in one edit named `text`. With `kind` other than -1, an edit of the same kind
  /// and properties ahead of it becomes one with it.
  bool SetValues(const std::vector<PropertyEdits>& edits, const QString& text, int kind = -1);
  void Undo();
  void Redo();
  /// Runs something that may fail, as an edit: what it throws is told to `OnFailure`.
  bool Try(const std::function<void()>& action);

 private:
  bool Push(const QString& text, int kind, std::vector<std::unique_ptr<EditStep>> steps);

  std::shared_ptr<model::VBComponent> component_;
  QUndoStack stack_;
};

}  // namespace tessel::workbench
