#include "hosts/workbench/forms/GridModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <algorithm>

#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int FewRows = 200;

}  // namespace

bool GridModel::Take(const forms::GridChanges& changes) {
  if (!changes.Shape) {
    TellCells(changes.FirstRow, changes.LastRow);
    return false;
  }
  beginResetModel();
  LayOut();
  endResetModel();
  return true;
}

/// Views aren't told: they may be in the middle of what made the grid go.
void GridModel::LetGo() {
  places_.clear();
  root_ = {};
  children_.clear();
  parents_.clear();
  open_.reset();
  cols_ = fixedRows_ = 0;
  outline_ = false;
}

void GridModel::LayOut() {
  cols_ = grid_.Cols();
  fixedRows_ = std::min(grid_.FixedRows(), grid_.Rows());
  places_.assign(static_cast<std::size_t>(grid_.Rows()), {});
  root_ = {};
  parents_.clear();
  for (int row = fixedRows_; row < grid_.Rows(); ++row) {
    Place& place = PlaceOfRow(row);
    place.Parent = grid_.ParentOf(row);
    place.Position = PlaceOfRow(place.Parent).Count++;
  }
  children_.assign(places_.size(), 0);
  int first = root_.Count;
  for (int row = fixedRows_; row < grid_.Rows(); ++row) {
    Place& place = PlaceOfRow(row);
    place.First = first;
    first += place.Count;
    if (place.Count > 0) parents_.push_back(row);
    const int at = PlaceOfRow(place.Parent).First + place.Position;
    children_[static_cast<std::size_t>(at)] = row;
  }
  outline_ = !parents_.empty();
}

void GridModel::TellCells(int first, int last) {
  if (first > last || cols_ == 0) return;
  if (first < fixedRows_) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
  const int from = std::max(first, fixedRows_);
  const int end = std::min(last, static_cast<int>(places_.size()) - 1);
  if (end - from > FewRows && ManyChanged) return ManyChanged();
  for (int row = from; row <= end; ++row) {
    emit dataChanged(IndexOf(row, 0), IndexOf(row, cols_ - 1));
  }
}

QModelIndex GridModel::IndexOf(int row, int col) const {
  if (row < fixedRows_ || row >= static_cast<int>(places_.size())) return {};
  if (col < 0 || col >= cols_) return {};
  return createIndex(places_[static_cast<std::size_t>(row)].Position, col,
                     static_cast<quintptr>(row));
}

int GridModel::RowOf(const QModelIndex& index) {
  return index.isValid() ? static_cast<int>(index.internalId()) : -1;
}

int GridModel::TreeColumn() const {
  if (cols_ == 0) return 0;
  int col = std::clamp(grid_.FixedCols(), 0, std::max(0, cols_ - 1));
  while (col + 1 < std::min(cols_, grid_.Cols()) && grid_.ColumnAt(col).Hidden) ++col;
  return col;
}

bool GridModel::IsThere(int row, int col) const {
  return row < static_cast<int>(places_.size()) && col < cols_ && row < grid_.Rows() &&
         col < grid_.Cols();
}

bool GridModel::IsTickCell(int row, int col) const {
  return IsThere(row, col) && grid_.Ticked(row, col).has_value();
}

QModelIndex GridModel::TickBoxOf(const QModelIndex& index) const {
  for (int step = 0; step < cols_; ++step) {
    const int col = (index.column() + step) % cols_;
    if (IsTickCell(RowOf(index), col)) return index.siblingAtColumn(col);
  }
  return {};
}

const GridModel::Place& GridModel::PlaceOf(const QModelIndex& index) const {
  const int row = RowOf(index);
  const bool known = row >= 0 && row < static_cast<int>(places_.size());
  return known ? places_[static_cast<std::size_t>(row)] : root_;
}

QModelIndex GridModel::index(int row, int col, const QModelIndex& parent) const {
  const Place& place = PlaceOf(parent);
  if (row < 0 || row >= place.Count) return {};
  return IndexOf(children_[static_cast<std::size_t>(place.First) + static_cast<std::size_t>(row)],
                 col);
}

QModelIndex GridModel::parent(const QModelIndex& index) const {
  const int row = index.isValid() ? PlaceOf(index).Parent : -1;
  return row < 0 ? QModelIndex() : IndexOf(row, 0);
}

int GridModel::rowCount(const QModelIndex& parent) const {
  if (parent.column() > 0) return 0;
  return PlaceOf(parent).Count;
}

int GridModel::columnCount(const QModelIndex&) const { return cols_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = RowOf(index), col = index.column();
  if (!index.isValid() || !IsThere(row, col)) return {};
  const forms::GridRow& one = grid_.RowAt(row);
  switch (role) {
    case Qt::DisplayRole:
      if (IsTickCell(row, col)) return {};
      return ToQt(grid_.TextMatrix(row, col));
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
      return ToQt(grid_.TextMatrix(row, col));
    case Qt::DecorationRole:
      if (col != TreeColumn() || one.Picture == 0) return {};
      return Picture(one.Picture);
    case Qt::CheckStateRole: {
      const auto ticked = grid_.Ticked(row, col);
      if (!ticked) return {};
      return *ticked ? Qt::Checked : Qt::Unchecked;
    }
    case Qt::FontRole: {
      if (!one.Bold) return {};
      QFont font = QApplication::font();
      font.setBold(true);
      return font;
    }
    case Qt::BackgroundRole:
      if (col >= grid_.FixedCols()) return {};
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
    lines.append(IsThere(row, section) ? ToQt(grid_.TextMatrix(row, section)) : QString());
  }
  return lines.join(u'\n');
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  const int row = RowOf(index), col = index.column();
  if (!index.isValid() || !IsThere(row, col)) return {};
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  const bool opened = open_ == forms::GridCell{row, col};
  const bool free = opened || (grid_.Editable && col >= grid_.FixedCols());
  if (free && IsTickCell(row, col)) return flags | Qt::ItemIsUserCheckable;
  // An empty cell among tick boxes has nothing to be written into.
  return free && !grid_.ColumnAt(col).Ticks ? flags | Qt::ItemIsEditable : flags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || !Edited) return false;
  if (role == Qt::EditRole) {
    Edited(RowOf(index), index.column(), value.toString());
    return true;
  }
  if (role != Qt::CheckStateRole) return false;
  const bool on = value.toInt() == Qt::Checked;
  Edited(RowOf(index), index.column(), on ? QStringLiteral("True") : QStringLiteral("False"));
  return true;
}

}  // namespace tessel::workbench
