#include "errorhandlers/CSQLErrorHandler.h"

#include "connections/cConnectionMDBs.h"
#include "store/Command.h"
#include "store/Recordset.h"

namespace tessel {
namespace {

ErrorHandlerScheme SchemeAt(const store::Recordset& records) {
  return {store::ToText(records.Field(u"NameError")),
          store::ToText(records.Field(u"Header")),
          store::ToText(records.Field(u"Footer")),
          store::ToBoolean(records.Field(u"InsertLine")),
          store::ToLong(records.Field(u"BaseNumber")),
          store::ToLong(records.Field(u"Step")),
          store::ToBoolean(records.Field(u"ChangeError")),
          store::ToText(records.Field(u"LabelNameError"))};
}

/// With a single row in the table the lists are empty.
constexpr std::size_t FewestListed = 2;

}  // namespace

CSQLErrorHandler::CSQLErrorHandler() {
  if (!gConnectionMDBs) throw vb::RuntimeFailure(vb::ObjectNotSet);
  connection_ = gConnectionMDBs->item(SharedConnection);
}

std::optional<ErrorHandlerScheme> CSQLErrorHandler::GetRecordTable(StringView nameError) const {
  store::Recordset records;
  records.Open(u"SELECT ErrorHandlerScheme.* FROM ErrorHandlerScheme WHERE (NameError = \"" +
                   String(nameError) + u"\")",
               connection_->mConnectMDB);
  if (records.RecordCount() < 1) return std::nullopt;
  return SchemeAt(records);
}

std::vector<ErrorHandlerScheme> CSQLErrorHandler::GetAll() const {
  store::Recordset records;
  records.Open(u"SELECT ErrorHandlerScheme.* FROM ErrorHandlerScheme", connection_->mConnectMDB);
  std::vector<ErrorHandlerScheme> schemes;
  for (; !records.Eof(); records.MoveNext()) schemes.push_back(SchemeAt(records));
  return schemes;
}

std::optional<std::vector<ErrorHandlerScheme>> CSQLErrorHandler::GetTable() const {
  auto schemes = GetAll();
  if (schemes.size() < FewestListed) return std::nullopt;
  return schemes;
}

std::optional<std::vector<String>> CSQLErrorHandler::GetListNameError() const {
  store::Recordset records;
  records.Open(u"SELECT ErrorHandlerScheme.NameError FROM ErrorHandlerScheme",
               connection_->mConnectMDB);
  if (records.RecordCount() < FewestListed) return std::nullopt;
  std::vector<String> names;
  for (; !records.Eof(); records.MoveNext()) {
    names.push_back(store::ToText(records.Field(u"NameError")));
  }
  return names;
}

void CSQLErrorHandler::UpdateRecord(const ErrorHandlerScheme& scheme) const {
  store::Recordset records;
  records.Open(
      u"SELECT ErrorHandlerScheme.* From ErrorHandlerScheme WHERE (ErrorHandlerScheme.NameError= "
      u"\"" +
          scheme.NameError + u"\")",
      connection_->mConnectMDB);
  if (records.Eof()) return;
  if (!vb::SameText(store::ToText(records.Field(u"NameError")), scheme.NameError)) return;
  records.SetField(u"NameError", scheme.NameError);
  records.SetField(u"Header", scheme.Header);
  records.SetField(u"Footer", scheme.Footer);
  records.SetField(u"InsertLine", scheme.InsertLine);
  records.SetField(u"BaseNumber", std::int64_t{scheme.BaseNumber});
  records.SetField(u"Step", std::int64_t{scheme.Step});
  records.SetField(u"ChangeError", scheme.ChangeError);
  records.SetField(u"LabelNameError", scheme.LabelNameError);
  records.Update();
}

void CSQLErrorHandler::InsertRecord(StringView nameError) const {
  if (nameError.empty()) return;
  store::Command{connection_->mConnectMDB,
                 u"INSERT INTO ErrorHandlerScheme (NameError) VALUES (@NameError)",
                 {{u"@NameError", String(nameError)}}}
      .Execute();
}

void CSQLErrorHandler::UpdateRecordKey(StringView nameError, StringView nameErrorWhere) const {
  if (nameError.empty() || nameErrorWhere.empty()) return;
  store::Command{connection_->mConnectMDB,
                 u"UPDATE ErrorHandlerScheme SET ErrorHandlerScheme.NameError = @NameError "
                 u"WHERE (ErrorHandlerScheme.NameError=@NameErrorWhere)",
                 {{u"@NameError", String(nameError)}, {u"@NameErrorWhere", String(nameErrorWhere)}}}
      .Execute();
}

void CSQLErrorHandler::DeleteRecord(StringView nameError) const {
  if (nameError.empty()) return;
  store::Command{connection_->mConnectMDB,
                 u"DELETE ErrorHandlerScheme.NameError From ErrorHandlerScheme "
                 u"WHERE (ErrorHandlerScheme.NameError=@NameError)",
                 {{u"@NameError", String(nameError)}}}
      .Execute();
}

}  // namespace tessel
