// Tick boxes of the grids in which components and objects are chosen.
#pragma once

#include <vector>

#include "forms/Grid.h"

namespace tessel {

/// What a cell with an empty tick box holds.
inline constexpr StringView Unticked = u"False";

/// Ticks or clears each box of a column.
void TickRows(forms::Grid& grid, int column, bool ticked);
/// The rows whose box is ticked, from the top.
[[nodiscard]] std::vector<int> TickedRows(const forms::Grid& grid, int column);

}  // namespace tessel
