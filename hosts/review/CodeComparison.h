// What a run changed in code beyond what it is for.
#pragma once

#include <string>
#include <vector>

#include "vb/Text.h"

namespace tessel::review {

/// A place where code means something else behind a run.
struct Difference {
  int Line;           ///< in the text before, from 1
  int LineAfter;      ///< where that is in the text behind the run, from 1
  std::string Cause;  ///< for a person, UTF-8
  /// The code says what it said, but the run did not do what it is for.
  bool IsWarning = false;
};

/// How many differences of one text are told unless the caller says otherwise.
inline constexpr std::size_t MostDifferences = 20;

/// Compares code before and behind a formatter's run, which is to change layout alone: blanks,
/// blank lines, continuations, and whether statements stand on one line. The first differences of
/// each stretch are told, at most `most`.
[[nodiscard]] std::vector<Difference> CompareCode(StringView before, StringView after,
                                                  std::size_t most = MostDifferences);

/// Compares code before and behind a run that puts error handlers in or takes them out. Header and
/// footer blocks, key comments, line numbers and the target of `On Error GoTo` are its own; but a
/// number that a jump or Erl refers to, a number where none may stand, a handler whose label its
/// member hasn't, and whatever else a formatter may not change is told; a handler behind a member
/// on one line is a warning.
[[nodiscard]] std::vector<Difference> CompareHandlers(StringView before, StringView after,
                                                      std::size_t most = MostDifferences);

}  // namespace tessel::review
