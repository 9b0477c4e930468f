#include "snippets/GridTicks.h"

namespace tessel {

void TickRows(forms::Grid& grid, int column, bool ticked) {
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (grid.Ticked(row, column)) grid.SetTextMatrix(row, column, ticked ? u"True" : Unticked);
  }
}

std::vector<int> TickedRows(const forms::Grid& grid, int column) {
  std::vector<int> rows;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (grid.Ticked(row, column).value_or(false)) rows.push_back(row);
  }
  return rows;
}

}  // namespace tessel
