#include "hosts/workbench/forms/GridTable.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>
#include <algorithm>

#include "hosts/workbench/forms/GridModel.h"

namespace tessel::workbench {
namespace {

constexpr int WantedLines = 14, LeastLines = 4, LeastColumns = 24, Padding = 3;

bool IsText(const QEvent* event) {
  const auto* const key = dynamic_cast<const QKeyEvent*>(event);
  if (key == nullptr || key->text().isEmpty()) return false;
  return key->text().front().isPrint() &&
         !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

QStringList FilesOf(const QMimeData* data) {
  QStringList files;
  for (const QUrl& address : data->urls()) {
    if (address.isLocalFile()) files.append(address.toLocalFile());
  }
  return files;
}

}  // namespace

GridTable::GridTable(GridModel& model) : grid_(model) {
  setModel(&model);
  Configure();
  connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
    if (RowDoubleClicked) RowDoubleClicked(GridModel::RowOf(index));
  });
  connect(this, &QTreeView::customContextMenuRequested, this, [this](const QPoint& place) {
    if (RowRightClicked) RowRightClicked(RowAt(place));
  });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    const int top = RowAt(QPoint(0, 0));
    if (top >= 0 && Scrolled) Scrolled(top);
  });
  header()->viewport()->installEventFilter(this);
}

void GridTable::Configure() {
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectItems);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(false);
  setAlternatingRowColors(true);
  setExpandsOnDoubleClick(true);
  setContextMenuPolicy(Qt::CustomContextMenu);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  header()->setSectionsMovable(false);
  header()->setSectionsClickable(false);
  header()->setHighlightSections(false);
}

void GridTable::ShowColumns(const std::vector<int>& chars, const std::vector<bool>& hidden) {
  chars_ = chars;
  hidden_ = hidden;
  setHeaderHidden(!grid_.HasHeading());
  setRootIsDecorated(grid_.HasOutline());
  setItemsExpandable(grid_.HasOutline());
  setTreePosition(grid_.TreeColumn());
  ApplyWidths();
}

/// The widest column takes the room that is left, unless the last one is to.
void GridTable::ApplyWidths() {
  const int count = grid_.columnCount();
  header()->setStretchLastSection(false);
  header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 2);
  std::vector<int> pixels;
  pixels.reserve(static_cast<std::size_t>(count));
  for (int col = 0; col < count; ++col) {
    header()->setSectionHidden(col, !Shows(col));
    pixels.push_back(Shows(col) ? PixelsOf(col) : 0);
  }
  const auto stretched = grid_.LastColumnStretches()
                             ? count - 1
                             : std::max_element(pixels.begin(), pixels.end()) - pixels.begin();
  for (int col = 0; col < count; ++col) {
    header()->setSectionResizeMode(
        col, col == stretched ? QHeaderView::Stretch : QHeaderView::Interactive);
    if (col != stretched) header()->resizeSection(col, pixels[static_cast<std::size_t>(col)]);
  }
  updateGeometry();
}

bool GridTable::Shows(int col) const {
  const auto at = static_cast<std::size_t>(col);
  return at >= hidden_.size() || !hidden_[at];
}

/// Each opening would lay all rows out anew; while a layout is due, it is only noted.
void GridTable::ShowOutline(const std::function<bool(int row)>& isCollapsed) {
  scheduleDelayedItemsLayout();
  for (const int row : grid_.Parents()) setExpanded(grid_.IndexOf(row, 0), !isCollapsed(row));
  executeDelayedItemsLayout();
}

void GridTable::ShowAtTop(int row) {
  const QModelIndex index = grid_.IndexOf(row, grid_.TreeColumn());
  if (index.isValid()) scrollTo(index, PositionAtTop);
}

void GridTable::EditNow(int row, int col) {
  const QScopedValueRollback<bool> guard(asked_, true);
  setFocus();
  edit(grid_.IndexOf(row, col), AllEditTriggers, nullptr);
}

void GridTable::ShowCellButton(bool wanted) {
  if (wanted && cellButton_ == nullptr) {
    cellButton_ = new QToolButton(viewport());
    cellButton_->setText(QStringLiteral("\u2026"));
    cellButton_->setFocusPolicy(Qt::NoFocus);
    connect(cellButton_, &QToolButton::clicked, this, [this] {
      const QModelIndex current = currentIndex();
      if (current.isValid() && CellButtonPressed) {
        CellButtonPressed(GridModel::RowOf(current), current.column());
      }
    });
  }
  if (cellButton_ == nullptr) return;
  cellButton_->setVisible(wanted);
  PlaceCellButton();
}

/// At the right end of the current cell, wherever that is scrolled to.
void GridTable::PlaceCellButton() {
  if (cellButton_ == nullptr || cellButton_->isHidden()) return;
  const QRect cell = visualRect(currentIndex());
  cellButton_->setGeometry(cell.right() - cell.height() + 1, cell.top(), cell.height(),
                           cell.height());
}

void GridTable::paintEvent(QPaintEvent* event) {
  PlaceCellButton();
  QTreeView::paintEvent(event);
}

void GridTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTreeView::closeEditor(editor, hint);
  if (EditLeft) EditLeft();
}

int GridTable::PixelsOf(int col) const {
  const QFontMetrics metrics = fontMetrics();
  const int heading = header()->sectionSizeHint(col);
  const auto at = static_cast<std::size_t>(col);
  if (at >= chars_.size()) return std::max(heading, sizeHintForColumn(col));
  return std::max(heading, (chars_[at] + Padding) * metrics.averageCharWidth());
}

QSize GridTable::sizeHint() const {
  int width = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  for (int col = 0; col < grid_.columnCount(); ++col) width += Shows(col) ? PixelsOf(col) : 0;
  const int height =
      header()->sizeHint().height() + WantedLines * fontMetrics().lineSpacing() * 5 / 4;
  return QSize(width, height).expandedTo(minimumSizeHint());
}

QSize GridTable::minimumSizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {LeastColumns * metrics.averageCharWidth(), LeastLines * metrics.lineSpacing() * 2};
}

// The header tells of every change of a width, also of its own; only a drag is the user's.
bool GridTable::eventFilter(QObject* watched, QEvent* event) {
  if (watched == header()->viewport()) {
    if (event->type() == QEvent::MouseButtonPress) {
      pressedWidths_.clear();
      for (int col = 0; col < header()->count(); ++col) {
        pressedWidths_.push_back(header()->sectionSize(col));
      }
    } else if (event->type() == QEvent::MouseButtonRelease) {
      TellWidths();
    }
  }
  return QTreeView::eventFilter(watched, event);
}

void GridTable::TellWidths() {
  for (std::size_t at = 0; at < pressedWidths_.size(); ++at) {
    const int col = static_cast<int>(at), width = header()->sectionSize(col);
    if (width != pressedWidths_[at]) TellWidth(col, width);
  }
  pressedWidths_.clear();
}

void GridTable::TellWidth(int col, int pixels) {
  const auto at = static_cast<std::size_t>(col);
  if (at >= chars_.size()) return;
  chars_[at] = std::max(1, pixels / fontMetrics().averageCharWidth() - Padding);
  if (Resized) Resized(col, chars_[at]);
}

// A table of one column is as wide as that column: it is the bar beside the table that is dragged.
void GridTable::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  const bool wider =
      event->oldSize().isValid() && event->size().width() != event->oldSize().width();
  const bool dragged = isVisible() && QApplication::mouseButtons() != Qt::NoButton;
  if (wider && dragged && header()->count() == 1) TellWidth(0, event->size().width());
}

bool GridTable::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
  ShowWhole(static_cast<const QHelpEvent&>(*event));
  return true;
}

/// The tip of a cell that is too narrow is its text; of any other, the grid's own.
void GridTable::ShowWhole(const QHelpEvent& event) const {
  const QModelIndex index = indexAt(event.pos());
  const QRect cell = visualRect(index);
  const bool cut = index.isValid() && sizeHintForIndex(index).width() > cell.width();
  const QString text = cut ? index.data().toString() : QString();
  const QString whole = Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
  QToolTip::showText(event.globalPos(), cut ? whole : toolTip(), viewport(), cut ? cell : QRect());
}

bool GridTable::AllowsEdit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (trigger == AnyKeyPressed && !IsText(event)) return false;
  return asked_ || !MayEdit || MayEdit(GridModel::RowOf(index), index.column());
}

bool GridTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool asked = trigger == AllEditTriggers || editTriggers().testFlag(trigger);
  const bool opens =
      asked && !IsEditing() && index.isValid() && index.flags().testFlag(Qt::ItemIsEditable);
  if (!opens) return QTreeView::edit(index, trigger, event);
  const int row = GridModel::RowOf(index), col = index.column();
  if (!AllowsEdit(index, trigger, event)) return false;
  // The question may have led to other rows.
  return QTreeView::edit(grid_.IndexOf(row, col), trigger, event);
}

void GridTable::FinishEdit() {
  if (!IsEditing()) return;
  // Cells are edited in a line edit below the viewport.
  for (QLineEdit* const editor : viewport()->findChildren<QLineEdit*>()) {
    if (!editor->isVisible()) continue;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    return;
  }
}

void GridTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  // A press chooses by itself, whether the cell was current or not.
  if (!pressing_ && current.isValid() && Chosen) {
    Chosen(GridModel::RowOf(current), current.column());
  }
}

void GridTable::mousePressEvent(QMouseEvent* event) {
  const QPersistentModelIndex pressed = indexAt(event->position().toPoint());
  {
    const QScopedValueRollback<bool> guard(pressing_, true);
    QTreeView::mousePressEvent(event);
  }
  if (event->button() == Qt::LeftButton && pressed.isValid() && Chosen) {
    Chosen(GridModel::RowOf(pressed), pressed.column());
  }
}

void GridTable::keyPressEvent(QKeyEvent* event) {
  const QModelIndex current = currentIndex();
  if (event->key() == Qt::Key_Space && current.isValid() && !IsEditing()) {
    const QModelIndex box = grid_.TickBoxOf(current);
    if (box.flags().testFlag(Qt::ItemIsUserCheckable)) {
      const bool on = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
      grid_.setData(box, on ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
      return;
    }
  }
  const bool menuKey = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
  if (menuKey && current.isValid() && !IsEditing()) {
    emit customContextMenuRequested(visualRect(current).center());
    return;
  }
  QTreeView::keyPressEvent(event);
}

int GridTable::RowAt(const QPoint& place) const { return GridModel::RowOf(indexAt(place)); }

void GridTable::dragEnterEvent(QDragEnterEvent* event) {
  if (!FilesOf(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void GridTable::dragMoveEvent(QDragMoveEvent* event) {
  if (RowAt(event->position().toPoint()) >= 0) {
    event->acceptProposedAction();
  } else {
    event->ignore();
  }
}

void GridTable::dropEvent(QDropEvent* event) {
  const int row = RowAt(event->position().toPoint());
  const QStringList files = FilesOf(event->mimeData());
  if (row < 0 || files.isEmpty() || !Dropped) return;
  event->acceptProposedAction();
  Dropped(row, files);
}

}  // namespace tessel::workbench
