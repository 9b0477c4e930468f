#include "hosts/workbench/designer/Toolbox.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

#include "hosts/workbench/designer/ControlClasses.h"
#include "hosts/workbench/designer/ToolIcons.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int IconSide = 20, CellSide = 30, Columns = 3;

/// Shows the chosen tool as a pressed button, in the colours of the palette: a style marks nothing
/// but the text of an item, and tools have none.
class ToolDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    constexpr int Tint = 90;
    if (option.state.testFlag(QStyle::State_Selected)) {
      const QColor edge = option.palette.color(QPalette::Active, QPalette::Highlight);
      QColor fill = edge;
      fill.setAlpha(Tint);
      painter->fillRect(option.rect, fill);
      painter->setPen(edge);
      painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    const QRect icon =
        QStyle::alignedRect(option.direction, Qt::AlignCenter, option.decorationSize, option.rect);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, icon);
  }
};

}  // namespace

Toolbox::Toolbox(QWidget* parent) : QListWidget(parent) {
  setViewMode(QListView::IconMode);
  setMovement(QListView::Static);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  setIconSize({IconSide, IconSide});
  setGridSize({CellSide, CellSide});
  setAccessibleName(QStringLiteral("Toolbox"));
  setItemDelegate(new ToolDelegate(this));
  AddTool({}, QStringLiteral("Pointer"));
  for (const ControlClass& one : ToolboxClasses()) {
    AddTool(ToQt(one.Name), ToQt(ShortName(one.Name)));
  }
  DrawIcons();
  setCurrentRow(0);
  QObject::connect(this, &QListWidget::currentRowChanged, this, [this] {
    if (OnTool) OnTool(Tool());
  });
  // Not itemActivated: some desktops activate on the first click.
  QObject::connect(this, &QListWidget::itemDoubleClicked, this, [this] { AddChosen(); });
}

void Toolbox::AddChosen() {
  const String tool = Tool();
  if (!tool.empty() && OnAdd) OnAdd(tool);
}

void Toolbox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return AddChosen();
  QListWidget::keyPressEvent(event);
}

void Toolbox::AddTool(const QString& className, const QString& tip) {
  auto* const item = new QListWidgetItem(this);
  item->setData(Qt::UserRole, className);
  item->setToolTip(tip);
  item->setData(Qt::AccessibleTextRole, tip);
  item->setSizeHint({CellSide, CellSide});
}

void Toolbox::DrawIcons() {
  for (int row = 0; row < count(); ++row) {
    const ControlClass* const one =
        FindControlClass(FromQt(item(row)->data(Qt::UserRole).toString()));
    item(row)->setIcon(ToolIcon(one == nullptr ? nullptr : &one->Style, palette()));
  }
}

void Toolbox::changeEvent(QEvent* event) {
  QListWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) DrawIcons();
}

void Toolbox::Reset() { setCurrentRow(0); }

String Toolbox::Tool() const {
  const QListWidgetItem* const chosen = currentItem();
  return chosen == nullptr ? String() : FromQt(chosen->data(Qt::UserRole).toString());
}

QSize Toolbox::sizeHint() const {
  const int rows = (count() + Columns - 1) / Columns;
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return {Columns * CellSide + bar + 2 * frameWidth() + 4, rows * CellSide + 2 * frameWidth() + 4};
}

}  // namespace tessel::workbench
