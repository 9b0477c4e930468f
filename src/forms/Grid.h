// A table of cells with fixed rows and columns, outline levels, data, pictures and tick boxes.
#pragma once

#include <climits>
#include <cstdint>
#include <optional>
#include <vector>

#include "forms/Control.h"
#include "forms/Outline.h"
#include "vb/SharedText.h"

namespace tessel::forms {

struct GridRow {
  /// From the first column on; those behind the last are empty.
  std::vector<vb::SharedText> Cells{};
  int Level = 0;
  int Picture = 0;
  std::int64_t Data = 0;
  vb::SharedText CellData{};
  bool Collapsed = false;
  bool Bold = false;
};

/// How a column differs from a plain one.
struct GridColumn {
  bool Hidden = false;
  /// Cells that read "True" or "False" are tick boxes, empty ones have none.
  bool Ticks = false;
  /// The current cell has a button.
  bool Button = false;
  bool operator==(const GridColumn&) const = default;
};

struct GridCell {
  int Row, Col;
  bool operator==(const GridCell&) const = default;
};

/// What a view has to show again.
struct GridChanges {
  bool Shape = false;                    ///< rows or columns came or went, or levels are others
  bool Outline = false;                  ///< many rows were opened or closed
  std::vector<int> Toggled{};            ///< the ones, when there were few
  int FirstRow = INT_MAX, LastRow = -1;  ///< rows whose cells are others
  std::optional<int> TopRow{};           ///< the row that must be the first in sight
  std::optional<int> Reveal{};           ///< a row that must be in sight
  bool Edit = false;                     ///< the cell that is edited from code must open
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

  [[nodiscard]] const GridColumn& ColumnAt(int col) const;
  void SetColHidden(int col, bool hidden);
  void SetColTicks(int col, bool ticks);
  void SetColButton(int col, bool button);

  [[nodiscard]] String TextMatrix(int row, int col) const;
  /// The same as it is kept, for who reads many.
  [[nodiscard]] const vb::SharedText& CellAt(int row, int col) const;
  void SetTextMatrix(int row, int col, vb::SharedText text);
  [[nodiscard]] const GridRow& RowAt(int row) const;
  void SetRowLevel(int row, int level);
  void SetRowData(int row, std::int64_t data);
  void SetCellData(int row, vb::SharedText data);
  void SetRowPicture(int row, int picture);
  void SetRowBold(int row, bool bold);
  /// State of a cell's tick box, nothing for a cell without one.
  [[nodiscard]] std::optional<bool> Ticked(int row, int col) const;
  /// The column of a row's first tick box, nothing when it has none.
  [[nodiscard]] std::optional<int> TickColumnOf(int row) const;

  /// Another state raises AfterCollapse.
  void SetCollapsed(int row, bool collapsed);
  /// Rows above that level are open, rows of it and below it closed: 0 leaves those of level 0.
  /// Raises no events.
  void SetOutline(int level);
  /// The row above in the outline, -1 for none.
  [[nodiscard]] int ParentOf(int row) const;
  /// The first row behind all that stand below a row in the outline.
  [[nodiscard]] int EndOf(int row) const;
  /// Whether a row shows, that is, no row above it in the outline is collapsed.
  [[nodiscard]] bool RowShows(int row) const;

  /// Adds a row at the end or ahead of `before`; returns its index.
  int AddItem(const std::vector<String>& cells, std::optional<int> before = std::nullopt);
  int AddRow(GridRow row, std::optional<int> before = std::nullopt);
  /// The same for many rows at once; returns the index of the first.
  int AddRows(std::vector<GridRow> rows, std::optional<int> before = std::nullopt);
  void RemoveItem(int row) { RemoveItems(row, 1); }
  void RemoveItems(int row, int count);
  /// Drops all rows but the fixed ones.
  void ClearRows();

  [[nodiscard]] int Row() const { return row_; }
  [[nodiscard]] int Col() const { return col_; }
  /// -1 row: none. Another cell raises AfterSelChange and ends an edit that came from code.
  void Select(int row, int col);
  /// The first row in sight below the fixed ones.
  [[nodiscard]] int TopRow() const { return topRow_; }
  /// Scrolls so that the row is the first in sight; pulled into the rows that there are.
  void SetTopRow(int row);
  /// Opens what stands above the row in the outline and scrolls it into sight, no further than
  /// needed.
  void ShowCell(int row, int col);
  /// Lets the user type into a cell at once, also where the grid is not editable. The cell becomes
  /// current; nothing more happens when BeforeEdit refuses.
  void EditCell(int row, int col);
  /// The cell that `EditCell` has opened.
  [[nodiscard]] const std::optional<GridCell>& Editing() const { return editing_; }
  void EndEdit() { editing_.reset(); }

  /// Off: nothing is shown until it is on again.
  void SetRedraw(bool on);
  [[nodiscard]] bool Redraw() const { return redraw_; }

  Designed<std::vector<int>> ColumnWidths{this};  ///< in characters; empty: by content
  /// The last column takes the room that is left, and all others have their widths; else the widest
  /// takes it.
  Designed<bool> LastColumnStretches{this};
  static constexpr int TwipsOfCharacter = 120;
  /// Characters that a width in twips holds, rounded.
  [[nodiscard]] static constexpr int CharactersOf(int twips) {
    return (twips + TwipsOfCharacter / 2) / TwipsOfCharacter;
  }
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
  std::function<void(int row, int col)> CellButtonClick;
  std::function<void(int row, const std::vector<String>& files)> FilesDropped;

  void RestoreDesign() override;

  // The view's side.
  /// What has changed since the last call.
  [[nodiscard]] GridChanges TakeChanges();
  /// The user has scrolled.
  void NoteTopRow(int row) { topRow_ = row; }

 protected:
  void Changed() override;

 private:
  [[nodiscard]] GridRow& At(int row);
  [[nodiscard]] GridColumn& ColumnIn(int col);
  void ShapeChanged();
  void Touch(int row);
  void OpenAbove(int row);
  [[nodiscard]] const Outline& Tree() const;

  Designed<std::vector<GridRow>> rows_{this};
  Designed<std::vector<GridColumn>> columns_{this};
  Designed<int> cols_{this}, fixedRows_{this}, fixedCols_{this}, row_{this, -1}, col_{this};
  int topRow_ = 0;
  std::optional<GridCell> editing_;
  bool redraw_ = true, unseen_ = false;
  GridChanges changes_{.Shape = true};
  mutable Outline tree_;
  mutable bool treeIsOld_ = true;
};

}  // namespace tessel::forms
