#include "connections/CSQLDataType.h"

#include "connections/cConnectionMDBs.h"
#include "store/Recordset.h"

namespace tessel {
namespace {

/// The rows that have a name; nothing when the table has no row at all.
template <class Row, class Make>
std::optional<std::vector<Row>> Read(const cConnectionMDB& connection, StringView statement,
                                     std::vector<Row> rows, Make&& make) {
  store::Recordset records;
  records.Open(statement, connection.mConnectMDB);
  if (records.RecordCount() == 0) return std::nullopt;
  for (; !records.Eof(); records.MoveNext()) {
    if (!store::IsNull(records.Field(u"Name"))) rows.push_back(make(records));
  }
  return rows;
}

}  // namespace

CSQLDataType::CSQLDataType() {
  if (!gConnectionMDBs) throw vb::RuntimeFailure(vb::ObjectNotSet);
  connection_ = gConnectionMDBs->item(SharedConnection);
}

std::optional<std::vector<String>> CSQLDataType::GetAllType(StringView firstItem) const {
  std::vector<String> rows;
  if (!firstItem.empty()) rows.emplace_back(firstItem);
  return Read(
      *connection_, u"SELECT Name From MemberType ORDER BY MemberType.Name", std::move(rows),
      [](const store::Recordset& records) { return store::ToText(records.Field(u"Name")); });
}

std::vector<String> CSQLDataType::NamesWithNone() const {
  return GetAllType(NoType).value_or(std::vector<String>{String(NoType)});
}

std::optional<std::vector<CSQLDataType::Row>> CSQLDataType::GetAllTypeMemberVariable(
    StringView firstItem) const {
  std::vector<Row> rows;
  if (!firstItem.empty()) rows.push_back({String(firstItem), {}});
  return Read(
      *connection_, u"SELECT Name, Prefix From MemberType ORDER BY MemberType.Name",
      std::move(rows), [](const store::Recordset& records) {
        return Row{store::ToText(records.Field(u"Name")), store::ToText(records.Field(u"Prefix"))};
      });
}

}  // namespace tessel
