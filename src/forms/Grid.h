// A table of cells with fixed rows and columns, outline levels, data, pictures and tick boxes.
#pragma once

#include <optional>
#include <vector>

#include "forms/Control.h"

namespace tessel::forms {

struct GridRow {
  std::vector<String> Cells;
  int Level = 0;
  long Data = 0;
  String CellData;
  int Picture = 0;
  bool Collapsed = false;
  std::optional<bool> Ticked;  ///< nothing: no tick box
};

/// Rows and columns count from 0, fixed ones included. Writing outside fails with 381.
class Grid : public Control {
 public:
  Grid(Surface* owner, std::string_view name);
  [[nodiscard]] std::string_view Kind() const override { return "Grid"; }

  [[nodiscard]] int Rows() const { return static_cast<int>(rows_->size()); }
  /// New rows are empty. The current row is pulled into what is left.
  void SetRows(int count);
  [[nodiscard]] int Cols() const { return cols_; }
  void SetCols(int count);
  [[nodiscard]] int FixedRows() const { return fixedRows_; }
  void SetFixedRows(int count);
  [[nodiscard]] int FixedCols() const { return fixedCols_; }
  void SetFixedCols(int count);

  [[nodiscard]] const String& TextMatrix(int row, int col) const;
  void SetTextMatrix(int row, int col, StringView text);
  [[nodiscard]] const GridRow& RowAt(int row) const;
  void SetRowLevel(int row, int level);
  void SetRowData(int row, long data);
  void SetCellData(int row, StringView data);
  void SetRowPicture(int row, int picture);
  void SetTicked(int row, std::optional<bool> ticked);
  void SetCollapsed(int row, bool collapsed);
  /// Whether a row shows, that is, no row above it in the outline is collapsed.
  [[nodiscard]] bool RowShows(int row) const;

  /// Adds a row at the end or ahead of `before`; returns its index.
  int AddItem(std::vector<String> cells, std::optional<int> before = std::nullopt);
  void RemoveItem(int row);
  /// Drops all rows but the fixed ones.
  void ClearRows();

  [[nodiscard]] int Row() const { return row_; }
  [[nodiscard]] int Col() const { return col_; }
  /// -1 row: none. Another cell raises AfterSelChange.
  void Select(int row, int col);

  Designed<std::vector<int>> ColumnWidths{this};  ///< in characters; empty: by content
  Designed<bool> Editable{this};

  /// A handler that sets `cancel` refuses the edit.
  std::function<void(int row, int col, bool& cancel)> BeforeEdit;
  std::function<void(int row, int col)> AfterEdit;
  std::function<void()> AfterSelChange;
  std::function<void()> Click;
  std::function<void()> DblClick;
  /// Button 1 left, 2 right; the row under the pointer, -1 for none.
  std::function<void(int button, int row)> MouseDown;
  std::function<void(int row)> AfterCollapse;
  std::function<void(int row)> TickChanged;
  std::function<void(int row, const std::vector<String>& files)> FilesDropped;

 private:
  [[nodiscard]] GridRow& At(int row);
  Designed<std::vector<GridRow>> rows_{this};
  Designed<int> cols_{this}, fixedRows_{this}, fixedCols_{this}, row_{this, -1}, col_{this};
};

}  // namespace tessel::forms
