// The rule table of a run.

#include "formatter/mFormatText.h"
#include "foundation/Routine.h"

namespace tessel::mFormatText {

FormatRules::FormatRules(std::vector<FormatRule> rows) : rows_(std::move(rows)) {
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    index_.try_emplace(vb::LCase(rows_[row].KeyWords), row);
  }
}

const FormatRule* FormatRules::Find(StringView key) const {
  const auto found = index_.find(vb::LCase(key));
  return found == index_.end() ? nullptr : &rows_[found->second];
}

void Init_mRecord_FormatText(FormatRun& format) {
  Routine(u"mFormatText.Init_mRecord_FormatText", [&](const Statements& run) {
    const auto table = run([&] { return std::make_shared<CSQLFormating>(); });
    if (!table) return;
    if (auto rules = run([&] { return table->GetTable(); })) {
      format.mRecord_FormatText = FormatRules(*std::move(rules));
    }
  });
}

bool ReturnBeforeAfter(const FormatRun& format, StringView key, std::int32_t& before,
                       std::int32_t& after) {
  before = after = 0;
  if (!format.InsertBlank) return false;
  const FormatRule* const rule = format.mRecord_FormatText.Find(key);
  if (rule == nullptr || !rule->Enabled) return false;
  before = rule->Before;
  after = rule->After;
  return true;
}

}  // namespace tessel::mFormatText
