// The tree that the outline levels of rows make.
#pragma once

#include <span>
#include <vector>

namespace tessel::forms {

struct GridRow;

/// Where each row stands in the tree: below the nearest row above it of a lower level. Read once
/// for all rows; a question about one then costs no more than its depth.
class Outline {
 public:
  /// Rows from `first` on; the ones ahead of it are headings.
  void Read(std::span<const GridRow> rows, int first);
  /// The row above in the tree, -1 for none.
  [[nodiscard]] int ParentOf(int row) const { return At(row).Parent; }
  /// The first row behind all that stand below a row.
  [[nodiscard]] int EndOf(int row) const { return At(row).End; }

 private:
  struct Place {
    int Parent = -1, End = 0;
  };
  [[nodiscard]] const Place& At(int row) const { return places_[static_cast<std::size_t>(row)]; }
  std::vector<Place> places_;
};

}  // namespace tessel::forms
