#include "hosts/workbench/designer/PropertyDelegate.h"

#include <QComboBox>
#include <QLineEdit>

namespace tessel::workbench {

PropertyDelegate::PropertyDelegate(QObject* parent, std::function<QStringList(int)> choices)
    : QStyledItemDelegate(parent), choices_(std::move(choices)) {}

QWidget* PropertyDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                        const QModelIndex& index) const {
  const QStringList choices = choices_(index.row());
  if (choices.isEmpty()) {
    auto* const field = new QLineEdit(parent);
    field->setFrame(false);
    return field;
  }
  auto* const list = new QComboBox(parent);
  list->setFrame(false);
  list->addItems(choices);
  // A choice is taken at once.
  auto* const self = const_cast<PropertyDelegate*>(this);
  QObject::connect(list, &QComboBox::activated, list, [self, list] {
    emit self->commitData(list);
    emit self->closeEditor(list);
  });
  return list;
}

void PropertyDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QString value = index.data(Qt::EditRole).toString();
  if (auto* const list = qobject_cast<QComboBox*>(editor)) {
    list->setCurrentIndex(list->findText(value));
  } else if (auto* const field = qobject_cast<QLineEdit*>(editor)) {
    if (field->text() != value) field->setText(value);
  }
}

void PropertyDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const {
  if (const auto* const list = qobject_cast<QComboBox*>(editor)) {
    if (list->currentIndex() >= 0) model->setData(index, list->currentText());
  } else if (const auto* const field = qobject_cast<QLineEdit*>(editor)) {
    model->setData(index, field->text());
  }
}

}  // namespace tessel::workbench
