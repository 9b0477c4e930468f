// Widths of a grid's columns among the settings.
#pragma once

#include <vector>

#include "forms/Grid.h"

namespace tessel {

/// One value a column, in twips: the key and the column's number behind it.
struct GridWidths {
  StringView Section, Key;
  /// In characters, for columns without a setting.
  std::vector<int> Usual;

  void Restore(forms::Grid& grid) const;
  void Save(const forms::Grid& grid) const;
};

}  // namespace tessel
