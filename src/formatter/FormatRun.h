// What a run of the formatter is told and what it carries along.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "formatter/CSQLFormating.h"
#include "scanning/Scope.h"

namespace tessel::mFormatText {

/// The rules in force, found by their words without regard to case.
class FormatRules {
 public:
  FormatRules() = default;
  explicit FormatRules(std::vector<FormatRule> rows);
  [[nodiscard]] const std::vector<FormatRule>& Rows() const { return rows_; }
  /// The first row of these words, null without one.
  [[nodiscard]] const FormatRule* Find(StringView key) const;

 private:
  std::vector<FormatRule> rows_;
  std::unordered_map<String, std::size_t> index_;
};

/// The run variables, filled just before a run and handed to the engine, which knows no others. Two
/// runs with objects of their own can stand side by side.
struct FormatRun : scope::ActiveMember {
  bool IndentEntire = true;          ///< the body of a member stands one level in
  bool IndentCase = true;            ///< Case blocks stand one level in
  bool InsertBlank = true;           ///< blank lines, and the switch of the whole rule table
  bool EnableCodeLines = true;       ///< wrapping and compacting
  bool CompactWrapped = true;        ///< compacting rather than wrapping
  std::int16_t LineCharacters = 90;  ///< 40 to 140: where wrapping starts
  std::int16_t AdditionalTabs = 1;   ///< 0 to 10: tab characters ahead of a continuation
  bool UseTabCharacters = true;      ///< a level is as wide as the editor's tab
  bool UseSpaceCharacters = false;   ///< a level is `SpacesPerLevel` wide
  std::int32_t SpacesPerLevel = 4;   ///< 1 to 20
  FormatRules mRecord_FormatText;    ///< stay in force until others are read

  // State that goes from module to module, and from one run of a dialog to the next.

  bool MarkerFound = false;           ///< a key comment belongs to the present member
  std::int32_t MarkerBlankLines = 0;  ///< its blank lines, held back
  /// Levels of the look-ahead at a key comment: its own, and kept from one to the next.
  std::int32_t LookAheadCurrent = 0, LookAheadNext = 0;
};

}  // namespace tessel::mFormatText
