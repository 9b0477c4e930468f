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

/// Changes the rule of a word.
inline void SetRule(mFormatText::FormatRun& format, StringView words, bool enabled, int before,
                    int after) {
  auto rules = format.mRecord_FormatText.Rows();
  for (FormatRule& rule : rules) {
    if (!vb::SameText(rule.KeyWords, words)) continue;
    rule.Enabled = enabled;
    rule.Before = before;
    rule.After = after;
  }
  format.mRecord_FormatText = mFormatText::FormatRules(std::move(rules));
}

/// A run with the dialog's defaults, and all rules.
inline mFormatText::FormatRun DefaultRun() {
  mFormatText::FormatRun format;
  format.mRecord_FormatText = mFormatText::FormatRules(AllRules());
  return format;
}

}  // namespace tessel::test
