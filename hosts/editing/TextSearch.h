// Texts in the lines of a module.
#pragma once

#include <vector>

#include "hosts/model/LineBuffer.h"

namespace tessel::editing {

struct SearchText {
  String What;
  bool MatchCase = false, WholeWord = false;
};

/// Where a text stands; lines and columns count from 1.
struct SearchHit {
  int Line = 0, Column = 0;
  bool operator==(const SearchHit&) const = default;
};

/// Lines with the columns that they are searched in.
struct SearchRange {
  int FirstLine = 1, FirstColumn = 1;
  int LastLine = 0, LastColumn = 0;  ///< the column behind the last unit
};

/// The whole of a text.
[[nodiscard]] SearchRange WholeRange(const model::LineBuffer& lines);

/// All places of a text that lie in a range whole, none within another. Empty for an empty text.
[[nodiscard]] std::vector<SearchHit> FindAll(const model::LineBuffer& lines,
                                             const SearchRange& range, const SearchText& search);

/// A line with another text in the place of each hit; `hits` are of that line, from left to right.
[[nodiscard]] String ReplaceHits(StringView line, const std::vector<SearchHit>& hits,
                                 std::size_t length, StringView with);

}  // namespace tessel::editing
