#include "forms/Grid.h"

#include <algorithm>

#include "vb/Failure.h"

namespace tessel::forms {

namespace {

[[noreturn]] void Outside(const Grid& grid, int row, int col) {
  throw vb::Failure(381, u"Subscript out of range: " + grid.Name() + u", row " + vb::Str(row) +
                             u", column " + vb::Str(col));
}

}  // namespace

Grid::Grid(Surface* owner, std::string_view name) : Control(owner, name) {}

GridRow& Grid::At(int row) {
  if (row < 0 || row >= Rows()) Outside(*this, row, 0);
  return rows_.InPlace()[static_cast<std::size_t>(row)];
}

const GridRow& Grid::RowAt(int row) const {
  if (row < 0 || row >= Rows()) Outside(*this, row, 0);
  return (*rows_)[static_cast<std::size_t>(row)];
}

void Grid::SetRows(int count) {
  if (count < 0) Outside(*this, count, 0);
  rows_.InPlace().resize(static_cast<std::size_t>(count));
  for (GridRow& row : rows_.InPlace()) row.Cells.resize(static_cast<std::size_t>(cols_));
  row_ = std::min<int>(row_, count - 1);
  Changed();
}

void Grid::SetCols(int count) {
  if (count < 0) Outside(*this, 0, count);
  cols_ = count;
  for (GridRow& row : rows_.InPlace()) row.Cells.resize(static_cast<std::size_t>(count));
  col_ = std::clamp<int>(col_, 0, std::max(0, count - 1));
  Changed();
}

void Grid::SetFixedRows(int count) { fixedRows_ = count; }

void Grid::SetFixedCols(int count) { fixedCols_ = count; }

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
  Raise(*this, TickChanged, row);
}

void Grid::SetCollapsed(int row, bool collapsed) {
  GridRow& found = At(row);
  if (found.Collapsed == collapsed) return;
  found.Collapsed = collapsed;
  Changed();
  Raise(*this, AfterCollapse, row);
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
  rows_.InPlace().insert(rows_->begin() + row, std::move(added));
  if (row_ >= row) row_ = row_ + 1;
  Changed();
  return row;
}

void Grid::RemoveItem(int row) {
  if (row < 0 || row >= Rows()) Outside(*this, row, 0);
  rows_.InPlace().erase(rows_->begin() + row);
  if (row_ > row || row_ >= Rows()) row_ = row_ - 1;
  Changed();
}

void Grid::ClearRows() { SetRows(std::min<int>(fixedRows_, Rows())); }

void Grid::Select(int row, int col) {
  if (row < -1 || row >= Rows()) Outside(*this, row, col);
  if (col < 0 || col >= std::max<int>(1, cols_)) Outside(*this, row, col);
  if (row_ == row && col_ == col) return;
  row_ = row;
  col_ = col;
  Raise(*this, AfterSelChange);
}

}  // namespace tessel::forms
