// Format rules for tests.
#pragma once

#include "formatter/mFormatText.h"
#include "support/EngineWords.h"

namespace tessel::test {

/// A rule for every word that the engine knows, all in force, without blank lines.
inline std::vector<FormatRule> AllRules() {
  std::vector<FormatRule> rules;
  for (const StringView words : EngineWords) {
    rules.push_back({true, String(words), 0, 0});
  }
  return rules;
}

/// Changes the rule of a word, or adds one.
inline void SetRule(StringView words, bool enabled, int before, int after) {
  auto rules = mFormatText::mRecord_FormatText;
  for (FormatRule& rule : rules) {
    if (!vb::SameText(rule.KeyWords, words)) continue;
    rule.Enabled = enabled;
    rule.Before = before;
    rule.After = after;
  }
  mFormatText::SetRules(std::move(rules));
}

/// The dialog's defaults, and all rules.
inline void ResetOptions() {
  namespace m = mFormatText;
  m::IndentEntire = m::IndentCase = m::InsertBlank = m::EnableCodeLines = m::CompactWrapped = true;
  m::UseTabCharacters = true;
  m::UseSpaceCharacters = false;
  m::LineCharacters = 90;
  m::AdditionalTabs = 1;
  m::SpacesPerLevel = 4;
  m::MarkerFound = false;
  m::MarkerBlankLines = 0;
  m::SetRules(AllRules());
}

}  // namespace tessel::test
