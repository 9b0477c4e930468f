// What is typed above the tree to find rows of it.
#pragma once

#include <vector>

#include "forms/Grid.h"

namespace tessel::explorer {

/// Parts of words. A row is found when each wanted part stands in its caption or in one above it
/// in the outline, and one of them in its own; a row that holds an unwanted part ("-part") is gone
/// with all below it. Case doesn't count.
class TreeWords {
 public:
  explicit TreeWords(StringView text);

  [[nodiscard]] bool IsEmpty() const { return wanted_.empty() && unwanted_.empty(); }
  /// Takes out of the rows what isn't found, stands above nothing found and below nothing found.
  /// With wanted parts what stands above a find is open and all else closed. Returns the first find
  /// among what is left, -1 for none.
  int Narrow(std::vector<forms::GridRow>& rows) const;

 private:
  struct State;
  [[nodiscard]] std::vector<bool> FoundIn(StringView folded, const std::vector<bool>& above,
                                          bool& own) const;
  [[nodiscard]] bool IsUnwanted(StringView folded) const;

  std::vector<String> wanted_, unwanted_;
};

}  // namespace tessel::explorer
