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
      model_(new GridModel(nullptr)),
      table_(new GridTable(*model_)) {
  model_->setParent(table_);
  Wire();
  WireOutline();
}

void GridView::Wire() {
  model_->Edited = [this](int row, int col, const QString& text) { Edit(row, col, text); };
  model_->Ticked = [this](int row, bool ticked) {
    Act([this, row, ticked] { forms::user::Tick(grid_, row, ticked); });
  };
  table_->Chosen = [this](int row, int col) { Choose(row, col); };
  table_->MayEdit = [this](int row, int col) { return MayEdit(row, col); };
  table_->RowDoubleClicked = [this](int row) {
    if (grid_.DblClick) Act([this, row] { forms::user::DoubleClick(grid_, row); });
  };
  table_->RowRightClicked = [this](int row) {
    if (grid_.MouseDown) Act([this, row] { forms::user::RightClick(grid_, row); });
  };
  table_->Dropped = [this](int row, const QStringList& names) {
    std::vector<String> files;
    for (const QString& name : names) files.push_back(FromQt(name));
    Act([this, row, &files] { forms::user::Drop(grid_, row, files); });
  };
  table_->Resized = [this](int col, int chars) {
    const auto at = static_cast<std::size_t>(col);
    std::vector<int> widths = grid_.ColumnWidths;
    if (at >= widths.size()) return;
    widths[at] = chars;
    shownWidths_ = widths;
    grid_.ColumnWidths = widths;
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
  if (row >= grid_.Rows() || grid_.TextMatrix(row, col) == typed) return;
  if (model_->IsBoolean(col) && !MayEdit(row, col)) return;
  Act([this, row, col, &typed] { forms::user::EditCell(grid_, row, col, typed); });
}

void GridView::Settle() { table_->FinishEdit(); }

void GridView::Update() {
  table_->setAcceptDrops(static_cast<bool>(grid_.FilesDropped));
  ShowRows();
  ShowOutline();
  ShowCurrent();
}

void GridView::ShowRows() {
  const int scrolled = table_->verticalScrollBar()->value();
  const bool anew = model_->Take(grid_);
  if (anew || shownWidths_ != *grid_.ColumnWidths) {
    shownWidths_ = grid_.ColumnWidths;
    table_->ShowColumns(shownWidths_);
  }
  if (!anew) return;
  ShowOutline();
  table_->verticalScrollBar()->setValue(scrolled);
}

void GridView::ShowOutline() {
  if (!model_->HasOutline()) return;
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
    const QModelIndex index = model_->IndexOf(row, 0);
    if (model_->rowCount(index) > 0) table_->setExpanded(index, !grid_.RowAt(row).Collapsed);
  }
}

void GridView::ShowCurrent() {
  const QModelIndex wanted = model_->IndexOf(grid_.Row(), grid_.Col());
  if (wanted != table_->currentIndex()) table_->setCurrentIndex(wanted);
}

}  // namespace tessel::workbench
