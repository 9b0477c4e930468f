#include "forms/Outline.h"

#include "forms/Grid.h"

namespace tessel::forms {

void Outline::Read(std::span<const GridRow> rows, int first) {
  const int count = static_cast<int>(rows.size());
  places_.assign(rows.size(), {});
  std::vector<int> above;  // the rows that can still take others below them, outermost first
  const auto close = [&](int end) {
    places_[static_cast<std::size_t>(above.back())].End = end;
    above.pop_back();
  };
  for (int row = 0; row < count; ++row) {
    const auto at = static_cast<std::size_t>(row);
    places_[at].End = row + 1;
    if (row < first) continue;
    const auto level = [&](int one) { return rows[static_cast<std::size_t>(one)].Level; };
    while (!above.empty() && level(above.back()) >= level(row)) close(row);
    if (!above.empty()) places_[at].Parent = above.back();
    above.push_back(row);
  }
  while (!above.empty()) close(count);
}

}  // namespace tessel::forms
