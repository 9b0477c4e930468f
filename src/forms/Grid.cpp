#include "forms/Grid.h"

#include <algorithm>

#include "forms/Form.h"
#include "vb/Failure.h"

namespace tessel::forms {

struct Grid::Design {
  std::vector<GridRow> Rows;
  int Cols, FixedRows, FixedCols, Row, Col;
};

namespace {

[[noreturn]] void Outside(const Grid& grid, int row, int col) {
  throw vb::Failure(381, u"Subscript out of range: " + grid.Name() + u", row " + vb::Str(row) +
                             u", column " + vb::Str(col));
}

}  // namespace

Grid::Grid(Form* owner, std::string_view name) : Control(owner, name) {}

GridRow& Grid::At(int row) {
  if (row < 0 || row >= Rows()) Outside(*this, row, 0);
  return rows_[static_cast<std::size_t>(row)];
}

const GridRow& Grid::RowAt(int row) const {
  if (row < 0 || row >= Rows()) Outside(*this, row, 0);
  return rows_[static_cast<std::size_t>(row)];
}

void Grid::SetRows(int count) {
  if (count < 0) Outside(*this, count, 0);
  rows_.resize(static_cast<std::size_t>(count));
  for (GridRow& row : rows_) row.Cells.resize(static_cast<std::size_t>(cols_));
  row_ = std::min(row_, count - 1);
  Changed();
}

void Grid::SetCols(int count) {
  if (count < 0) Outside(*this, 0, count);
  cols_ = count;
  for (GridRow& row : rows_) row.Cells.resize(static_cast<std::size_t>(count));
  col_ = std::clamp(col_, 0, std::max(0, count - 1));
  Changed();
}

void Grid::SetFixedRows(int count) {
  fixedRows_ = count;
  Changed();
}

void Grid::SetFixedCols(int count) {
  fixedCols_ = count;
  Changed();
}

const String& Grid::TextMatrix(int row, int col) const {
  const GridRow& found = RowAt(row);
  if (col < 0 || col >= cols_) Outside(*this, row, col);
  return found.Cells[static_cast<std::size_t>(col)];
}

void Grid::SetTextMatrix(int row, int col, StringView text) {
  GridRow& found = At(row);
  if (col < 0 || col >= cols_) Outside(*this, row, col);
  found.Cells[static_cast<std::size_t>(col)] = text;
  Changed();
}

void Grid::SetRowLevel(int row, int level) {
  At(row).Level = level;
  Changed();
}

void Grid::SetRowData(int row, long data) { At(row).Data = data; }

void Grid::SetCellData(int row, StringView data) { At(row).CellData = data; }

void Grid::SetRowPicture(int row, int picture) {
  At(row).Picture = picture;
  Changed();
}

void Grid::SetTicked(int row, std::optional<bool> ticked) {
  GridRow& found = At(row);
  if (found.Ticked == ticked) return;
  found.Ticked = ticked;
  Changed();
  if (const auto handler = TickChanged) handler(row);
}

void Grid::SetCollapsed(int row, bool collapsed) {
  GridRow& found = At(row);
  if (found.Collapsed == collapsed) return;
  found.Collapsed = collapsed;
  Changed();
  if (const auto handler = AfterCollapse) handler(row);
}

bool Grid::RowShows(int row) const {
  int level = RowAt(row).Level;
  for (int above = row - 1; above >= fixedRows_ && level > 0; --above) {
    const GridRow& one = RowAt(above);
    if (one.Level >= level) continue;
    if (one.Collapsed) return false;
    level = one.Level;
  }
  return true;
}

int Grid::AddItem(std::vector<String> cells, std::optional<int> before) {
  const int row = before.value_or(Rows());
  if (row < 0 || row > Rows()) Outside(*this, row, 0);
  cells.resize(static_cast<std::size_t>(cols_));
  GridRow added;
  added.Cells = std::move(cells);
  rows_.insert(rows_.begin() + row, std::move(added));
  if (row_ >= row) ++row_;
  Changed();
  return row;
}

void Grid::RemoveItem(int row) {
  if (row < 0 || row >= Rows()) Outside(*this, row, 0);
  rows_.erase(rows_.begin() + row);
  if (row_ > row || row_ >= Rows()) --row_;
  Changed();
}

void Grid::ClearRows() { SetRows(std::min(fixedRows_, Rows())); }

void Grid::Select(int row, int col) {
  if (row < -1 || row >= Rows()) Outside(*this, row, col);
  if (col < 0 || col >= std::max(1, cols_)) Outside(*this, row, col);
  if (row_ == row && col_ == col) return;
  row_ = row;
  col_ = col;
  Changed();
  if (const auto handler = AfterSelChange) handler();
}

void Grid::SaveDesign() {
  Control::SaveDesign();
  design_ = std::make_shared<Design>(Design{rows_, cols_, fixedRows_, fixedCols_, row_, col_});
}

void Grid::RestoreDesign() {
  Control::RestoreDesign();
  if (!design_) return;
  rows_ = design_->Rows;
  cols_ = design_->Cols;
  fixedRows_ = design_->FixedRows;
  fixedCols_ = design_->FixedCols;
  row_ = design_->Row;
  col_ = design_->Col;
}

}  // namespace tessel::forms
