// The rows of a grid as Qt's views read them.
#pragma once

#include <QAbstractItemModel>
#include <functional>
#include <vector>

#include "forms/Grid.h"

namespace tessel::workbench {

/// Fixed rows are the heading; the outline levels of the others make a tree. Holds a copy of the
/// rows, so that a change is found by comparing.
class GridModel : public QAbstractItemModel {
 public:
  explicit GridModel(QObject* parent) : QAbstractItemModel(parent) {}

  // What the user does to cells; rows and columns as the grid counts them.
  std::function<void(int row, int col, const QString& text)> Edited;
  std::function<void(int row, bool ticked)> Ticked;

  /// Takes over what the grid holds. True when the rows had to be laid out anew: views have then
  /// lost what was open and current.
  bool Take(const forms::Grid& grid);

  [[nodiscard]] QModelIndex IndexOf(int row, int col) const;
  /// The row of the grid, -1 for none.
  [[nodiscard]] static int RowOf(const QModelIndex& index);
  /// Column that carries outline, picture and tick box.
  [[nodiscard]] int TreeColumn() const { return fixedCols_; }
  [[nodiscard]] bool HasOutline() const { return outline_; }
  [[nodiscard]] bool HasHeading() const { return fixedRows_ > 0; }
  /// Whether every cell of the column is "True" or "False", which then show as tick boxes.
  [[nodiscard]] bool IsBoolean(int col) const;

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
  /// Where a row stands in the tree; row -1 is the root.
  struct Place {
    int Parent = -1, Position = 0;
    std::vector<int> Children;
  };
  [[nodiscard]] bool HasShapeOf(const forms::Grid& grid) const;
  void LayOut(const forms::Grid& grid);
  void BuildTree();
  void FindBooleans();
  void TakeCells(const forms::Grid& grid);
  [[nodiscard]] const Place& PlaceOf(const QModelIndex& index) const;
  [[nodiscard]] QVariant CheckState(int row, int col) const;

  std::vector<forms::GridRow> rows_;
  std::vector<Place> places_;
  Place root_;
  std::vector<bool> booleans_;
  int cols_ = 0, fixedRows_ = 0, fixedCols_ = 0;
  bool editable_ = false, outline_ = false;
};

}  // namespace tessel::workbench
