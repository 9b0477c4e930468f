// How the cells of the properties window are edited.
#pragma once

#include <QStyledItemDelegate>
#include <functional>

namespace tessel::workbench {

/// A field, or a list to choose from where the value is one of a few.
class PropertyDelegate : public QStyledItemDelegate {
 public:
  /// `choices` answers the values to choose from for a row, empty for a free text.
  PropertyDelegate(QObject* parent, std::function<QStringList(int row)> choices);

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;

 private:
  std::function<QStringList(int)> choices_;
};

}  // namespace tessel::workbench
