#include "controlnaming/CSQLControlType.h"

#include "connections/cConnectionMDBs.h"
#include "store/Recordset.h"

namespace tessel {

CSQLControlType::CSQLControlType() {
  if (!gConnectionMDBs) throw vb::RuntimeFailure(vb::ObjectNotSet);
  connection_ = gConnectionMDBs->item(SharedConnection);
}

String CSQLControlType::GetPrefixControl(StringView className) const {
  if (className.empty()) return {};
  store::Recordset records;
  records.Open(u"SELECT Name, Prefix From ControlType WHERE ((ControlType.Name=\"" +
                   vb::Replace(className, u"\"", u"\"\"") + u"\") AND (ControlType.Enable=Yes))",
               connection_->mConnectMDB);
  return records.RecordCount() < 1 ? String() : store::ToText(records.Field(u"Prefix"));
}

}  // namespace tessel
