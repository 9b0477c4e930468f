#include "forms/Grid.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "vb/Failure.h"

namespace tessel::forms {
namespace {

constexpr std::size_t FewRows = 50;
constexpr StringView True = u"True", False = u"False";

[[noreturn]] void Outside(const Grid& grid, int row, int col) {
  throw vb::Failure(381, u"Subscript out of range: " + grid.Name() + u", row " + vb::Str(row) +
                             u", column " + vb::Str(col));
}

/// Drops the cells behind the last column.
void CutTo(GridRow& row, int cols) {
  if (row.Cells.size() > static_cast<std::size_t>(cols)) {
    row.Cells.resize(static_cast<std::size_t>(cols));
  }
}

}  // namespace

Grid::Grid(Surface* owner, std::string_view name) : Control(owner, name) {}

// What a design brings back can be anything.
void Grid::RestoreDesign() {
  editing_.reset();
  topRow_ = 0;
  redraw_ = true;
  treeIsOld_ = changes_.Shape = true;
  Control::RestoreDesign();
}

void Grid::Changed() {
  if (redraw_) {
    Control::Changed();
  } else {
    unseen_ = true;
  }
}

void Grid::SetRedraw(bool on) {
  redraw_ = on;
  if (on && std::exchange(unseen_, false)) Changed();
}

GridChanges Grid::TakeChanges() { return std::exchange(changes_, {}); }

void Grid::ShapeChanged() {
  treeIsOld_ = changes_.Shape = true;
  if (editing_ && editing_->Row >= Rows()) editing_.reset();
  topRow_ = std::clamp(topRow_, 0, std::max(0, Rows() - 1));
  Changed();
}

void Grid::Touch(int row) {
  changes_.FirstRow = std::min(changes_.FirstRow, row);
  changes_.LastRow = std::max(changes_.LastRow, row);
  Changed();
}

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
  row_ = std::min<int>(row_, count - 1);
  ShapeChanged();
}

void Grid::SetCols(int count) {
  if (count < 0) Outside(*this, 0, count);
  cols_ = count;
  columns_.InPlace().resize(static_cast<std::size_t>(count));
  for (GridRow& row : rows_.InPlace()) CutTo(row, count);
  col_ = std::clamp<int>(col_, 0, std::max(0, count - 1));
  ShapeChanged();
}

void Grid::SetFixedRows(int count) {
  fixedRows_ = count;
  ShapeChanged();
}

void Grid::SetFixedCols(int count) {
  fixedCols_ = count;
  ShapeChanged();
}

const GridColumn& Grid::ColumnAt(int col) const {
  if (col < 0 || col >= cols_) Outside(*this, 0, col);
  return (*columns_)[static_cast<std::size_t>(col)];
}

GridColumn& Grid::ColumnIn(int col) {
  static_cast<void>(ColumnAt(col));
  changes_.Shape = true;
  return columns_.InPlace()[static_cast<std::size_t>(col)];
}

void Grid::SetColHidden(int col, bool hidden) {
  ColumnIn(col).Hidden = hidden;
  Changed();
}

void Grid::SetColTicks(int col, bool ticks) {
  ColumnIn(col).Ticks = ticks;
  Changed();
}

void Grid::SetColButton(int col, bool button) {
  ColumnIn(col).Button = button;
  Changed();
}

String Grid::TextMatrix(int row, int col) const { return CellAt(row, col); }

const vb::SharedText& Grid::CellAt(int row, int col) const {
  static const vb::SharedText None;
  const GridRow& found = RowAt(row);
  if (col < 0 || col >= cols_) Outside(*this, row, col);
  const auto at = static_cast<std::size_t>(col);
  return at < found.Cells.size() ? found.Cells[at] : None;
}

void Grid::SetTextMatrix(int row, int col, vb::SharedText text) {
  GridRow& found = At(row);
  if (col < 0 || col >= cols_) Outside(*this, row, col);
  const auto at = static_cast<std::size_t>(col);
  if (at >= found.Cells.size()) found.Cells.resize(at + 1);
  found.Cells[at] = std::move(text);
  Touch(row);
}

void Grid::SetRowLevel(int row, int level) {
  if (std::exchange(At(row).Level, level) != level) ShapeChanged();
}

void Grid::SetRowData(int row, std::int64_t data) { At(row).Data = data; }

void Grid::SetCellData(int row, vb::SharedText data) { At(row).CellData = std::move(data); }

void Grid::SetRowPicture(int row, int picture) {
  At(row).Picture = picture;
  Touch(row);
}

void Grid::SetRowBold(int row, bool bold) {
  At(row).Bold = bold;
  Touch(row);
}

std::optional<bool> Grid::Ticked(int row, int col) const {
  const vb::SharedText& text = CellAt(row, col);
  if (!ColumnAt(col).Ticks || row < fixedRows_ || (text != True && text != False)) {
    return std::nullopt;
  }
  return text == True;
}

std::optional<int> Grid::TickColumnOf(int row) const {
  for (int col = 0; col < cols_; ++col) {
    if (Ticked(row, col)) return col;
  }
  return std::nullopt;
}

const Outline& Grid::Tree() const {
  if (std::exchange(treeIsOld_, false)) tree_.Read(*rows_, fixedRows_);
  return tree_;
}

int Grid::ParentOf(int row) const {
  static_cast<void>(RowAt(row));
  return Tree().ParentOf(row);
}

int Grid::EndOf(int row) const {
  static_cast<void>(RowAt(row));
  return Tree().EndOf(row);
}

bool Grid::RowShows(int row) const {
  for (int above = ParentOf(row); above >= 0; above = Tree().ParentOf(above)) {
    if (RowAt(above).Collapsed) return false;
  }
  return true;
}

void Grid::SetCollapsed(int row, bool collapsed) {
  if (std::exchange(At(row).Collapsed, collapsed) == collapsed) return;
  if (changes_.Toggled.size() < FewRows) {
    changes_.Toggled.push_back(row);
  } else {
    changes_.Outline = true;
  }
  Changed();
  Raise(*this, AfterCollapse, row);
}

void Grid::SetOutline(int level) {
  for (int row = fixedRows_; row < Rows(); ++row) {
    GridRow& one = At(row);
    one.Collapsed = one.Level >= level && EndOf(row) > row + 1;
  }
  changes_.Outline = true;
  Changed();
}

int Grid::AddItem(const std::vector<String>& cells, std::optional<int> before) {
  GridRow row;
  row.Cells.assign(cells.begin(), cells.end());
  return AddRow(std::move(row), before);
}

int Grid::AddRow(GridRow added, std::optional<int> before) {
  std::vector<GridRow> rows;
  rows.push_back(std::move(added));
  return AddRows(std::move(rows), before);
}

int Grid::AddRows(std::vector<GridRow> added, std::optional<int> before) {
  const int row = before.value_or(Rows());
  if (row < 0 || row > Rows()) Outside(*this, row, 0);
  const int count = static_cast<int>(added.size());
  for (GridRow& one : added) CutTo(one, cols_);
  if (rows_->empty()) {
    rows_.InPlace() = std::move(added);
  } else {
    // All rows behind the place move anyway: there is no need to keep room for twice as many.
    const std::size_t wanted = rows_->size() + added.size();
    if (row < Rows() && wanted > rows_->capacity()) {
      rows_.InPlace().reserve(wanted + rows_->size() / 8);
    }
    rows_.InPlace().insert(rows_->begin() + row, std::make_move_iterator(added.begin()),
                           std::make_move_iterator(added.end()));
  }
  if (row_ >= row) row_ = row_ + count;
  ShapeChanged();
  return row;
}

void Grid::RemoveItems(int row, int count) {
  if (row < 0 || count < 0 || row + count > Rows()) Outside(*this, row, 0);
  const auto first = rows_->begin() + row;
  rows_.InPlace().erase(first, first + count);
  if (row_ >= row + count) {
    row_ = row_ - count;
  } else if (row_ >= row) {
    row_ = std::min(row, Rows() - 1);
  }
  ShapeChanged();
}

void Grid::ClearRows() { SetRows(std::min<int>(fixedRows_, Rows())); }

void Grid::Select(int row, int col) {
  if (row < -1 || row >= Rows()) Outside(*this, row, col);
  if (col < 0 || col >= std::max<int>(1, cols_)) Outside(*this, row, col);
  if (row_ == row && col_ == col) return;
  editing_.reset();
  row_ = row;
  col_ = col;
  Raise(*this, AfterSelChange);
}

void Grid::SetTopRow(int row) {
  topRow_ = std::clamp(row, 0, std::max(0, Rows() - 1));
  changes_.TopRow = topRow_;
  changes_.Reveal.reset();
  Changed();
}

void Grid::OpenAbove(int row) {
  for (int above = ParentOf(row); above >= 0 && above < Rows(); above = ParentOf(above)) {
    SetCollapsed(above, false);
  }
}

void Grid::ShowCell(int row, int col) {
  static_cast<void>(TextMatrix(row, col));
  OpenAbove(row);
  changes_.Reveal = row;
  Changed();
}

void Grid::EditCell(int row, int col) {
  ShowCell(row, col);
  Select(row, col);
  bool cancel = false;
  Raise(*this, BeforeEdit, row, col, cancel);
  if (cancel || row >= Rows() || col >= cols_) return;
  editing_ = GridCell{row, col};
  changes_.Edit = true;
  Changed();
}

}  // namespace tessel::forms
