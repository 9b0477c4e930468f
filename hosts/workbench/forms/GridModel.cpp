#include "hosts/workbench/forms/GridModel.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>

#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr StringView True = u"True", False = u"False";

bool SameCells(const forms::GridRow& one, const forms::GridRow& other) {
  return one.Cells == other.Cells && one.Picture == other.Picture && one.Ticked == other.Ticked;
}

}  // namespace

bool GridModel::Take(const forms::Grid& grid) {
  editable_ = grid.Editable;
  if (HasShapeOf(grid)) {
    TakeCells(grid);
    return false;
  }
  beginResetModel();
  LayOut(grid);
  endResetModel();
  return true;
}

bool GridModel::HasShapeOf(const forms::Grid& grid) const {
  if (grid.Rows() != static_cast<int>(rows_.size()) || grid.Cols() != cols_ ||
      grid.FixedRows() != fixedRows_ || grid.FixedCols() != fixedCols_) {
    return false;
  }
  for (int row = 0; row < grid.Rows(); ++row) {
    if (grid.RowAt(row).Level != rows_[static_cast<std::size_t>(row)].Level) return false;
  }
  return true;
}

void GridModel::LayOut(const forms::Grid& grid) {
  cols_ = grid.Cols();
  fixedRows_ = std::min(grid.FixedRows(), grid.Rows());
  fixedCols_ = std::clamp(grid.FixedCols(), 0, std::max(0, cols_ - 1));
  rows_.clear();
  rows_.reserve(static_cast<std::size_t>(grid.Rows()));
  for (int row = 0; row < grid.Rows(); ++row) rows_.push_back(grid.RowAt(row));
  BuildTree();
  FindBooleans();
}

void GridModel::BuildTree() {
  places_.assign(rows_.size(), {});
  root_ = {};
  std::vector<int> above;  // the rows that can still take children, outermost first
  for (int row = fixedRows_; row < static_cast<int>(rows_.size()); ++row) {
    const auto level = [&](int one) { return rows_[static_cast<std::size_t>(one)].Level; };
    while (!above.empty() && level(above.back()) >= level(row)) above.pop_back();
    Place& place = places_[static_cast<std::size_t>(row)];
    place.Parent = above.empty() ? -1 : above.back();
    Place& parent = above.empty() ? root_ : places_[static_cast<std::size_t>(above.back())];
    place.Position = static_cast<int>(parent.Children.size());
    parent.Children.push_back(row);
    above.push_back(row);
  }
  outline_ = root_.Children.size() + static_cast<std::size_t>(fixedRows_) < rows_.size();
}

void GridModel::FindBooleans() {
  const bool any = static_cast<int>(rows_.size()) > fixedRows_;
  booleans_.assign(static_cast<std::size_t>(cols_), any);
  for (auto row = static_cast<std::size_t>(fixedRows_); row < rows_.size(); ++row) {
    for (std::size_t col = 0; col < booleans_.size(); ++col) {
      const String& text = rows_[row].Cells[col];
      if (text != True && text != False) booleans_[col] = false;
    }
  }
}

void GridModel::TakeCells(const forms::Grid& grid) {
  const std::vector<bool> before = booleans_;
  bool changed = false;
  for (int row = 0; row < grid.Rows(); ++row) {
    forms::GridRow& shown = rows_[static_cast<std::size_t>(row)];
    const bool same = SameCells(shown, grid.RowAt(row));
    shown = grid.RowAt(row);
    if (same) continue;
    if (row < fixedRows_) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    if (row >= fixedRows_) emit dataChanged(IndexOf(row, 0), IndexOf(row, cols_ - 1));
    changed = true;
  }
  if (!changed) return;
  FindBooleans();
  if (before != booleans_ && !root_.Children.empty()) {
    emit dataChanged(index(0, 0), index(rowCount() - 1, cols_ - 1));
  }
}

QModelIndex GridModel::IndexOf(int row, int col) const {
  if (row < fixedRows_ || row >= static_cast<int>(rows_.size())) return {};
  if (col < 0 || col >= cols_) return {};
  return createIndex(places_[static_cast<std::size_t>(row)].Position, col,
                     static_cast<quintptr>(row));
}

int GridModel::RowOf(const QModelIndex& index) {
  return index.isValid() ? static_cast<int>(index.internalId()) : -1;
}

bool GridModel::IsBoolean(int col) const {
  return col >= fixedCols_ && col < cols_ && booleans_[static_cast<std::size_t>(col)];
}

const GridModel::Place& GridModel::PlaceOf(const QModelIndex& index) const {
  return index.isValid() ? places_[static_cast<std::size_t>(RowOf(index))] : root_;
}

QModelIndex GridModel::index(int row, int col, const QModelIndex& parent) const {
  const auto& children = PlaceOf(parent).Children;
  if (row < 0 || row >= static_cast<int>(children.size())) return {};
  return IndexOf(children[static_cast<std::size_t>(row)], col);
}

QModelIndex GridModel::parent(const QModelIndex& index) const {
  const int row = index.isValid() ? PlaceOf(index).Parent : -1;
  return row < 0 ? QModelIndex() : IndexOf(row, 0);
}

int GridModel::rowCount(const QModelIndex& parent) const {
  if (parent.column() > 0) return 0;
  return static_cast<int>(PlaceOf(parent).Children.size());
}

int GridModel::columnCount(const QModelIndex&) const { return cols_; }

QVariant GridModel::CheckState(int row, int col) const {
  const forms::GridRow& one = rows_[static_cast<std::size_t>(row)];
  std::optional<bool> on;
  if (IsBoolean(col)) on = one.Cells[static_cast<std::size_t>(col)] == True;
  if (col == TreeColumn() && one.Ticked) on = one.Ticked;
  return on ? QVariant(*on ? Qt::Checked : Qt::Unchecked) : QVariant();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int row = RowOf(index), col = index.column();
  const forms::GridRow& one = rows_[static_cast<std::size_t>(row)];
  switch (role) {
    case Qt::DisplayRole:
      if (IsBoolean(col)) return {};
      return ToQt(one.Cells[static_cast<std::size_t>(col)]);
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
      return ToQt(one.Cells[static_cast<std::size_t>(col)]);
    case Qt::DecorationRole:
      if (col != TreeColumn() || one.Picture == 0) return {};
      return Picture(one.Picture);
    case Qt::CheckStateRole:
      return CheckState(row, col);
    case Qt::BackgroundRole:
      if (col >= fixedCols_) return {};
      return QApplication::palette().button();
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= cols_) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  QStringList lines;
  for (int row = 0; row < fixedRows_; ++row) {
    lines.append(
        ToQt(rows_[static_cast<std::size_t>(row)].Cells[static_cast<std::size_t>(section)]));
  }
  return lines.join(u'\n');
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  const int col = index.column();
  const bool open = editable_ && col >= fixedCols_;
  if (open && !IsBoolean(col)) flags |= Qt::ItemIsEditable;
  const bool ticks = col == TreeColumn() && rows_[static_cast<std::size_t>(RowOf(index))].Ticked;
  if (ticks || (open && IsBoolean(col))) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid()) return false;
  const int row = RowOf(index), col = index.column();
  if (role == Qt::EditRole && Edited) {
    Edited(row, col, value.toString());
    return true;
  }
  if (role != Qt::CheckStateRole) return false;
  const bool on = value.toInt() == Qt::Checked;
  if (IsBoolean(col) && Edited) {
    Edited(row, col, ToQt(on ? True : False));
  } else if (Ticked) {
    Ticked(row, on);
  }
  return true;
}

}  // namespace tessel::workbench
