// The properties of what is chosen, to be read and changed.
#pragma once

#include <QComboBox>
#include <QTableWidget>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/workbench/designer/DesignerEditor.h"
#include "hosts/workbench/designer/PropertyRows.h"

namespace tessel::workbench {

/// A list of the objects of a designer above the table of the chosen ones' properties, for a dock.
/// Changes go through the editor that was handed in, so that they can be undone where it is; its
/// OnFailure gets what is refused.
class PropertiesWindow : public QWidget {
 public:
  explicit PropertiesWindow(QWidget* parent = nullptr);
  ~PropertiesWindow() override;

  /// Gets the text of a failure when no editor was handed in.
  std::function<void(const String& text)> OnFailure;
  /// Another object was chosen in the list above.
  std::function<void(model::DesignerNode* node)> OnChosen;

  /// Shows controls of a component's designer; without any, its form, or for a component without a
  /// designer the component itself. Null shows nothing.
  void ShowObjects(std::shared_ptr<model::VBComponent> component,
                   const std::vector<model::DesignerNode*>& nodes,
                   std::shared_ptr<DesignerEditor> editor = nullptr);
  /// Reads the values again. May be called from inside an operation of the model: it only notes the
  /// change.
  void Refresh();
  /// Puts the caret into the value of a property; no effect when it isn't there.
  void EditProperty(StringView property);

  [[nodiscard]] const std::shared_ptr<model::VBComponent>& Component() const { return component_; }
  [[nodiscard]] QTableWidget& Table() { return *table_; }
  [[nodiscard]] QComboBox& Objects() { return *objects_; }
  /// What the table shows now.
  [[nodiscard]] const std::vector<PropertyRow>& Rows();

 private:
  /// An entry of the list above; without a block, the component itself.
  struct Object {
    QString Text;
    model::DesignerNode* Node;
  };
  void SetUpTable();
  [[nodiscard]] QStringList ChoicesOfRow(int row) const;
  void Edit(int row);
  void Settle();
  [[nodiscard]] std::vector<Object> ReadObjects() const;
  void ListObjects();
  void FillAnew(StringView current);
  void FillTable(const std::vector<PropertyRow>& rows);
  void FillRow(int row);
  void CellChanged(int row);
  void Apply(const PropertyRow& row, const String& shown);
  void ApplyToHost(const PropertyRow& row, const String& shown);
  [[nodiscard]] std::vector<model::DesignerNode*> Shown() const;
  [[nodiscard]] std::vector<PropertyRow> ReadRows() const;
  void ObjectActivated(int index);

  QComboBox* objects_;
  QTableWidget* table_;
  std::shared_ptr<model::VBComponent> component_;
  std::shared_ptr<DesignerEditor> editor_;
  std::vector<std::weak_ptr<model::DesignerNode>> nodes_;
  /// The blocks that the list above names, in its order.
  std::vector<std::weak_ptr<model::DesignerNode>> listed_;
  std::vector<PropertyRow> rows_;
  bool filling_ = false, waiting_ = false;
};

}  // namespace tessel::workbench
