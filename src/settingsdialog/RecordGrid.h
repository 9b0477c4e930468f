// A grid in which a table is edited: each row is a record, each edit goes into the table at once.
#pragma once

#include <span>
#include <vector>

#include "forms/Grid.h"
#include "foundation/Routine.h"
#include "store/Recordset.h"

namespace tessel {

/// Holds the records of one table behind the rows of one grid. Column 1 of the grid is the name.
class RecordGrid {
 public:
  struct Column {
    StringView Field;  ///< its name is the heading as well
    int Width;         ///< in twips
    bool Ticks = false;
  };
  static constexpr int NameColumn = 1;

  /// The grid outlives this object.
  explicit RecordGrid(forms::Grid& grid) : grid_(grid) {}

  /// Reads the rows and shows them; the first one becomes current. Fails with `StoreFailure`, and
  /// with 91 when the shared database isn't there.
  void Open(StringView statement, std::span<const Column> columns);
  /// Whether a row has that name, without regard to case.
  [[nodiscard]] bool Has(StringView name) const;
  /// Adds a record of that name; its row becomes current. Nothing is added when it fails.
  void Add(StringView name);
  /// Name of the current row; empty for none.
  [[nodiscard]] String CurrentName() const;
  /// Deletes the current row and its record.
  void DeleteCurrent();
  /// Takes the text of an edited cell into its record; a text that can't be is taken back.
  void StoreCell(int row, int col, const Statements& run);
  /// No effect when it isn't open.
  void Close() { records_.Close(); }

 private:
  [[nodiscard]] std::vector<String> CellsOfCurrent() const;
  void MoveTo(int row) { records_.MoveTo(static_cast<std::size_t>(row - grid_.FixedRows())); }

  forms::Grid& grid_;
  std::span<const Column> columns_;
  store::Recordset records_;
};

}  // namespace tessel
