// A component's form, drawn as its file says, to be edited with mouse and keys.
#pragma once

#include <QPointer>
#include <QScrollArea>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/workbench/designer/DesignerEditor.h"
#include "hosts/workbench/designer/FormFrame.h"
#include "hosts/workbench/designer/InlineRename.h"
#include "hosts/workbench/designer/Selection.h"

namespace tessel::workbench {

class DesignerCanvas;

/// Shows the designer of a form, MDI form, user control, property page or user document. All edits
/// go through its editor; after a change from elsewhere call Refresh.
class DesignerView : public QScrollArea {
 public:
  explicit DesignerView(std::shared_ptr<model::VBComponent> component, QWidget* parent = nullptr);
  ~DesignerView() override;

  /// Asked to open the procedure of a control, a menu, or of the form itself under the name that it
  /// has in code ("Form", "UserControl" ...).
  std::function<void(const std::shared_ptr<model::VBComponent>&, const String& controlName)>
      OnOpenCode;
  /// Gets the text of a failure.
  std::function<void(const String& text)> OnFailure;
  /// Told what is chosen now, the leading control last; the form's own block when no control is.
  std::function<void(const std::vector<model::DesignerNode*>&)> OnSelection;
  /// The chosen tool was used or given up: the toolbox goes back to the pointer.
  std::function<void()> OnToolUsed;

  /// Reads the tree again. May be called from inside an operation of the model: it only notes the
  /// change; the drawing and the selection follow when the operation is over.
  void Refresh();

  [[nodiscard]] const std::shared_ptr<model::VBComponent>& Component() const;
  /// Shared with the properties window, so that its edits can be undone here.
  [[nodiscard]] const std::shared_ptr<DesignerEditor>& Editor() const { return editor_; }
  [[nodiscard]] QUndoStack& UndoStack() { return editor_->UndoStack(); }

  /// The class that the next press of the mouse draws; empty for choosing.
  void SetTool(StringView className);
  [[nodiscard]] const String& Tool() const { return tool_; }
  /// Goes back to choosing, and tells.
  void DropTool();
  /// Adds a control of its class's own size in the middle of what is seen, and drops the tool.
  void AddControl(StringView className);

  /// 1 draws fifteen twips as one pixel of a screen with 96 dots an inch.
  void SetZoom(double zoom);
  [[nodiscard]] double Zoom() const { return zoom_; }

  /// What is chosen; empty only for a component without a form.
  [[nodiscard]] std::vector<model::DesignerNode*> Selected();
  void Select(const std::vector<model::DesignerNode*>& nodes);
  void SelectAll();
  void DeleteSelected();
  /// Opens a field over the leading control that takes its new name.
  void StartRename();
  /// Opens the procedure of the leading control.
  void OpenCode();
  void OpenCodeOf(const model::DesignerNode& node);

  /// Moves or enlarges what is chosen by steps of the grid.
  void MoveSelected(int columns, int rows);
  void SizeSelected(int columns, int rows);
  /// Chooses the next or previous control in the order of the file.
  void SelectNext(bool forward);
  /// Chooses the container of the leading control.
  void SelectContainer();

  /// Adds a control of the tool's class with these corners (twips of the body).
  void DrawNew(QPointF from, QPointF to);

  [[nodiscard]] const FormLayout& Layout();
  [[nodiscard]] const FormFrame& Frame();
  [[nodiscard]] const Selection& Chosen() const { return selection_; }
  [[nodiscard]] DesignerCanvas& Canvas() { return *canvas_; }
  /// Copies of the chosen controls' places, those inside chosen ones left out.
  [[nodiscard]] std::vector<PlacedControl> ChosenPlaces();
  /// Room for the whole form.
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;

 private:
  void ReadLayout();
  void Settle();
  void Report();
  void Add(StringView className, QPointF from, QPointF to);
  void FinishRename(const std::weak_ptr<model::DesignerNode>& node, const QString& name);
  using Change = std::function<PropertyEdits(const PlacedControl&)>;
  void ChangeSelected(const Change& change, const QString& text, int kind);

  std::shared_ptr<DesignerEditor> editor_;
  DesignerCanvas* canvas_;
  QPointer<InlineRename> rename_;
  Selection selection_;
  FormLayout layout_;
  FormFrame frame_;
  String tool_;
  double zoom_ = 1;
  bool stale_ = true, settling_ = false, unreported_ = false;
};

}  // namespace tessel::workbench
