// The rows of a grid as Qt's views read them.
#pragma once

#include <QAbstractItemModel>
#include <functional>
#include <optional>
#include <vector>

#include "forms/Grid.h"

namespace tessel::workbench {

/// Fixed rows are the heading; the outline levels of the others make a tree. Cells are read from
/// the grid when they are drawn; the shape of the tree is that which `Take` saw last.
class GridModel : public QAbstractItemModel {
 public:
  GridModel(const forms::Grid& grid, QObject* parent) : QAbstractItemModel(parent), grid_(grid) {}

  /// What the user does to a cell; rows and columns as the grid counts them.
  std::function<void(int row, int col, const QString& text)> Edited;
  /// Many cells are others: what is in sight is to be drawn again.
  std::function<void()> ManyChanged;

  /// Takes over what has changed in the grid. True when the rows had to be laid out anew: views
  /// have then lost what was open and current.
  bool Take(const forms::GridChanges& changes);

  /// The grid goes: from here on the model has no rows and reads none.
  void LetGo();

  [[nodiscard]] QModelIndex IndexOf(int row, int col) const;
  /// The row of the grid, -1 for none.
  [[nodiscard]] static int RowOf(const QModelIndex& index);
  /// Column that carries outline and picture.
  [[nodiscard]] int TreeColumn() const;
  [[nodiscard]] bool HasOutline() const { return outline_; }
  [[nodiscard]] bool LastColumnStretches() const { return cols_ > 0 && grid_.LastColumnStretches; }
  [[nodiscard]] bool HasHeading() const { return fixedRows_ > 0; }
  /// The rows that have others below them.
  [[nodiscard]] const std::vector<int>& Parents() const { return parents_; }
  /// Opens one cell for an edit though the grid is not editable; nothing: none.
  void AllowEdit(std::optional<forms::GridCell> cell) { open_ = cell; }
  /// The first tick box of a row at or behind a column, invalid for none.
  [[nodiscard]] QModelIndex TickBoxOf(const QModelIndex& index) const;

  [[nodiscard]] QModelIndex index(int row, int col, const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  /// Where a row stands in the tree; row -1 is the root. Its children are `Count` entries of
  /// `children_`.
  struct Place {
    int Parent = -1, Position = 0, First = 0, Count = 0;
  };
  void LayOut();
  [[nodiscard]] Place& PlaceOfRow(int row) {
    return row < 0 ? root_ : places_[static_cast<std::size_t>(row)];
  }
  void TellCells(int first, int last);
  [[nodiscard]] const Place& PlaceOf(const QModelIndex& index) const;
  /// Whether the grid still has the cell; its handlers may be ahead of what is shown.
  [[nodiscard]] bool IsThere(int row, int col) const;
  [[nodiscard]] bool IsTickCell(int row, int col) const;

  const forms::Grid& grid_;
  std::vector<Place> places_;
  Place root_;
  std::vector<int> children_;  // of the root, then of each row
  std::vector<int> parents_;
  std::optional<forms::GridCell> open_;
  int cols_ = 0, fixedRows_ = 0;
  bool outline_ = false;
};

}  // namespace tessel::workbench
