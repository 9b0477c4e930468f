#include "hosts/workbench/forms/GridView.h"

#include <QScrollBar>
#include <algorithm>

#include "forms/User.h"
#include "hosts/workbench/forms/GridModel.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

GridView::GridView(forms::Grid& grid, ViewHost& host)
    : ControlView(grid, host),
      grid_(grid),
      model_(new GridModel(grid, nullptr)),
      table_(new GridTable(*model_)) {
  model_->setParent(table_);
  Wire();
  WireEdits();
  WireOutline();
}

void GridView::Wire() {
  table_->Chosen = [this](int row, int col) { Choose(row, col); };
  table_->RowDoubleClicked = [this](int row) {
    if (IsBound() && grid_.DblClick) Act([this, row] { forms::user::DoubleClick(grid_, row); });
  };
  table_->RowRightClicked = [this](int row) {
    if (IsBound() && grid_.MouseDown) Act([this, row] { forms::user::RightClick(grid_, row); });
  };
  table_->Dropped = [this](int row, const QStringList& names) {
    std::vector<String> files;
    for (const QString& name : names) files.push_back(FromQt(name));
    Act([this, row, &files] { forms::user::Drop(grid_, row, files); });
  };
  // Told at once and without a round through the handlers: nothing else follows from a scrolling.
  table_->Scrolled = [this](int row) {
    if (!IsSyncing() && IsBound() && row < grid_.Rows()) forms::user::Scroll(grid_, row);
  };
  table_->Resized = [this](int col, int chars) {
    Act([this, col, chars] { forms::user::ResizeColumn(grid_, col, chars); });
  };
}

void GridView::WireEdits() {
  model_->Edited = [this](int row, int col, const QString& text) { Edit(row, col, text); };
  model_->ManyChanged = [this] { table_->viewport()->update(); };
  table_->MayEdit = [this](int row, int col) { return MayEdit(row, col); };
  table_->EditLeft = [this] {
    model_->AllowEdit(std::nullopt);
    if (IsBound()) forms::user::LeaveEdit(grid_);
  };
  table_->CellButtonPressed = [this](int row, int col) {
    Act([this, row, col] { forms::user::PressCell(grid_, row, col); });
  };
}

void GridView::WireOutline() {
  QObject::connect(table_, &QTreeView::expanded, table_, [this](const QModelIndex& index) {
    const int row = GridModel::RowOf(index);
    Act([this, row] { forms::user::Expand(grid_, row); });
  });
  QObject::connect(table_, &QTreeView::collapsed, table_, [this](const QModelIndex& index) {
    const int row = GridModel::RowOf(index);
    Act([this, row] { forms::user::Collapse(grid_, row); });
  });
}

/// A press on a fixed column chooses its row and leaves the column as it is.
void GridView::Choose(int row, int col) {
  if (!IsBound()) return;
  const int open =
      std::min(std::max(grid_.Col(), grid_.FixedCols()), std::max(0, grid_.Cols() - 1));
  const int chosen = col < grid_.FixedCols() ? open : col;
  Act([this, row, chosen] { forms::user::SelectRow(grid_, row, chosen); });
}

// The edit itself asks again; asking ahead of it keeps a refused cell from opening.
bool GridView::MayEdit(int row, int col) {
  bool refused = false;
  Act([this, row, col, &refused] {
    if (const auto handler = grid_.BeforeEdit) handler(row, col, refused);
  });
  return !refused;
}

void GridView::Edit(int row, int col, const QString& text) {
  const String typed = FromQt(text);
  if (!IsBound() || row >= grid_.Rows() || grid_.TextMatrix(row, col) == typed) return;
  if (grid_.Ticked(row, col) && !MayEdit(row, col)) return;
  Act([this, row, col, &typed] { forms::user::EditCell(grid_, row, col, typed); });
}

void GridView::Settle() { table_->FinishEdit(); }

void GridView::Released() { model_->LetGo(); }

void GridView::Update() {
  if (!grid_.Redraw()) return;
  const forms::GridChanges changes = grid_.TakeChanges();
  table_->setAcceptDrops(static_cast<bool>(grid_.FilesDropped));
  // A double click that does something of its own doesn't open the row as well.
  table_->setExpandsOnDoubleClick(!grid_.DblClick);
  ShowRows(changes);
  ShowCurrent();
  ShowPlace(changes);
  ShowEdit(changes);
}

std::vector<bool> GridView::HiddenColumns() const {
  std::vector<bool> hidden;
  hidden.reserve(static_cast<std::size_t>(grid_.Cols()));
  for (int col = 0; col < grid_.Cols(); ++col) hidden.push_back(grid_.ColumnAt(col).Hidden);
  return hidden;
}

void GridView::ShowRows(const forms::GridChanges& changes) {
  const int scrolled = table_->verticalScrollBar()->value();
  const bool anew = model_->Take(changes);
  if (anew || shownWidths_ != *grid_.ColumnWidths) {
    shownWidths_ = grid_.ColumnWidths;
    table_->ShowColumns(shownWidths_, HiddenColumns());
  }
  ShowOutline(changes, anew);
  if (anew) table_->verticalScrollBar()->setValue(scrolled);
}

void GridView::ShowOutline(const forms::GridChanges& changes, bool anew) {
  if (anew || changes.Outline) {
    table_->ShowOutline([this](int row) { return grid_.RowAt(row).Collapsed; });
    return;
  }
  for (const int row : changes.Toggled) {
    const QModelIndex index = model_->IndexOf(row, 0);
    if (index.isValid()) table_->setExpanded(index, !grid_.RowAt(row).Collapsed);
  }
}

void GridView::ShowCurrent() {
  // A row that becomes current opens all above it; one that doesn't show has nothing to mark.
  const bool shows = grid_.Row() >= 0 && grid_.RowShows(grid_.Row());
  const QModelIndex wanted = shows ? model_->IndexOf(grid_.Row(), grid_.Col()) : QModelIndex();
  if (wanted != table_->currentIndex()) table_->setCurrentIndex(wanted);
  table_->ShowCellButton(wanted.isValid() && grid_.ColumnAt(grid_.Col()).Button);
}

void GridView::ShowPlace(const forms::GridChanges& changes) {
  if (changes.TopRow) table_->ShowAtTop(*changes.TopRow);
  if (changes.Reveal) table_->scrollTo(model_->IndexOf(*changes.Reveal, grid_.Col()));
}

void GridView::ShowEdit(const forms::GridChanges& changes) {
  if (!changes.Edit || !grid_.Editing()) return;
  model_->AllowEdit(grid_.Editing());
  table_->EditNow(grid_.Editing()->Row, grid_.Editing()->Col);
}

}  // namespace tessel::workbench
