// What the editor does to whole lines: the end of a new procedure, and blocks of comments.
#pragma once

#include <optional>
#include <vector>

#include "hosts/model/LineBuffer.h"

namespace tessel::editing {

/// What a head without an end lacks.
struct MissingEnd {
  String Head;  ///< the line with the parentheses that it may lack
  String End;   ///< "End Sub" with the margin of the head
};

/// The end of the procedure whose head ends on a line; nothing when the line is no head, or the
/// procedure has its end.
[[nodiscard]] std::optional<MissingEnd> FindMissingEnd(const model::LineBuffer& lines, int line);

/// Lines with an apostrophe ahead of each.
[[nodiscard]] std::vector<String> Commented(const std::vector<StringView>& lines);

/// Lines without the apostrophe that is the first thing on each; others stay.
[[nodiscard]] std::vector<String> Uncommented(const std::vector<StringView>& lines);

}  // namespace tessel::editing
