// The widget of a grid.
#pragma once

#include <QPointer>
#include <QTreeView>
#include <functional>
#include <vector>

class QHelpEvent;
class QToolButton;

namespace tessel::workbench {

class GridModel;

/// Tells what the user does by rows and columns of the grid.
class GridTable : public QTreeView {
 public:
  explicit GridTable(GridModel& model);

  // What the user does.
  std::function<void(int row, int col)> Chosen;  ///< by mouse or key, also the current cell again
  std::function<void(int row)> RowDoubleClicked;
  std::function<void(int row)> RowRightClicked;  ///< -1: beside all rows
  /// Whether a cell may be edited; asked ahead of its editor.
  std::function<bool(int row, int col)> MayEdit;
  std::function<void(int row, const QStringList& files)> Dropped;
  /// The user has made a column wider or narrower; the width in characters.
  std::function<void(int col, int chars)> Resized;
  /// Another row is the first in sight.
  std::function<void(int row)> Scrolled;
  /// The editor of a cell was closed, with its text taken or not.
  std::function<void()> EditLeft;
  std::function<void(int row, int col)> CellButtonPressed;

  /// Follows the shape of the rows. Wanted widths in characters; none: by content. `hidden` tells
  /// which columns don't show.
  void ShowColumns(const std::vector<int>& chars, const std::vector<bool>& hidden);
  /// Opens and closes all rows at once.
  void ShowOutline(const std::function<bool(int row)>& isCollapsed);
  /// Scrolls so that a row is the first in sight.
  void ShowAtTop(int row);
  /// Opens the editor of a cell without asking.
  void EditNow(int row, int col);
  /// Puts a button into the current cell, or takes it away.
  void ShowCellButton(bool wanted);
  /// Commits the edit of a cell that is under way.
  void FinishEdit();
  [[nodiscard]] bool IsEditing() const { return state() == EditingState; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Configure();
  void TellWidths();
  void TellWidth(int col, int pixels);
  void ApplyWidths();
  [[nodiscard]] int PixelsOf(int col) const;
  [[nodiscard]] bool AllowsEdit(const QModelIndex& index, EditTrigger trigger, QEvent* event);
  [[nodiscard]] int RowAt(const QPoint& place) const;
  void PlaceCellButton();
  void ShowWhole(const QHelpEvent& event) const;
  [[nodiscard]] bool Shows(int col) const;

  GridModel& grid_;
  std::vector<int> chars_;
  std::vector<bool> hidden_;
  std::vector<int> pressedWidths_;
  QToolButton* cellButton_ = nullptr;
  bool pressing_ = false, asked_ = false;
};

}  // namespace tessel::workbench
