// The rule table and the variables of a run.

#include <unordered_map>

#include "formatter/mFormatText.h"
#include "foundation/Routine.h"

namespace tessel::mFormatText {

thread_local bool IndentEntire = true;
thread_local bool IndentCase = true;
thread_local bool InsertBlank = true;
thread_local bool EnableCodeLines = true;
thread_local bool CompactWrapped = true;
thread_local std::int16_t LineCharacters = 90;
thread_local std::int16_t AdditionalTabs = 1;
thread_local bool UseTabCharacters = true;
thread_local bool UseSpaceCharacters = false;
thread_local std::int32_t SpacesPerLevel = 4;

thread_local bool MarkerFound = false;
thread_local std::int32_t MarkerBlankLines = 0;
scope::ActiveMember Active;

thread_local std::vector<FormatRule> mRecord_FormatText;

namespace {

/// The first row of each word, by the word in lower case.
thread_local std::unordered_map<String, std::size_t> ruleIndex;

}  // namespace

void SetRules(std::vector<FormatRule> rules) {
  mRecord_FormatText = std::move(rules);
  ruleIndex.clear();
  for (std::size_t row = 0; row < mRecord_FormatText.size(); ++row) {
    ruleIndex.try_emplace(vb::LCase(mRecord_FormatText[row].KeyWords), row);
  }
}

void Init_mRecord_FormatText() {
  Routine(u"mFormatText.Init_mRecord_FormatText", [&](const Statements& run) {
    const auto table = run([&] { return std::make_shared<CSQLFormating>(); });
    if (!table) return;
    if (auto rules = run([&] { return table->GetTable(); })) SetRules(*std::move(rules));
  });
}

bool ReturnBeforeAfter(StringView key, std::int32_t& before, std::int32_t& after) {
  before = after = 0;
  if (!InsertBlank) return false;
  const auto found = ruleIndex.find(vb::LCase(key));
  if (found == ruleIndex.end()) return false;
  const FormatRule& rule = mRecord_FormatText[found->second];
  if (!rule.Enabled) return false;
  before = rule.Before;
  after = rule.After;
  return true;
}

}  // namespace tessel::mFormatText
