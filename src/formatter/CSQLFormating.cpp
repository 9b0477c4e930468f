#include "formatter/CSQLFormating.h"

#include "connections/cConnectionMDBs.h"
#include "store/Recordset.h"
#include "vb/Failure.h"

namespace tessel {

CSQLFormating::CSQLFormating() {
  if (!gConnectionMDBs) throw vb::RuntimeFailure(vb::ObjectNotSet);
  connection_ = gConnectionMDBs->item(SharedConnection);
}

std::optional<std::vector<FormatRule>> CSQLFormating::GetTable() const {
  store::Recordset records;
  records.Open(u"SELECT FormatText.* FROM FormatText", connection_->mConnectMDB);
  // One row alone counts as no table.
  if (records.RecordCount() <= 1) return std::nullopt;
  std::vector<FormatRule> rules;
  for (records.MoveFirst(); !records.Eof(); records.MoveNext()) {
    String words = store::ToText(records.Field(u"KeyWords"));
    if (words.empty()) continue;
    rules.push_back({store::ToBoolean(records.Field(u"Enabled")), std::move(words),
                     store::ToLong(records.Field(u"Before")),
                     store::ToLong(records.Field(u"After"))});
  }
  rules.resize(records.RecordCount());
  return rules;
}

}  // namespace tessel
