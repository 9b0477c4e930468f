// The clock, the settings, the databases, the failure service, the journal.

#include <variant>

#include "connections/cConnectionMDBs.h"
#include "foundation/CAppSettings.h"
#include "foundation/CErrorHandler.h"
#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"
#include "store/Recordset.h"

namespace tessel::drive {
namespace {

constexpr int AccessDenied = -2147467259;

Json Advance(Session& session, const Json& request) {
  const int ms = IntField(request, "ms");
  if (ms < 0) Refuse("field \"ms\" must not be negative");
  session.Services().Advance(ms);
  return {};
}

/// The settings as the add-in sees them, also ahead of a connection.
CAppSettings Settings() {
  CAppSettings settings;
  settings.Init(u"Norvane", u"Tessel");
  return settings;
}

struct SettingJson {
  Json operator()(const String& text) const { return Utf8(text); }
  Json operator()(std::int32_t number) const { return number; }
};

/// The value under a name, null when there is none.
Json ReadSetting(CAppSettings& settings, const String& section, const String& key) {
  const auto keyPath = settings.MainBranch() + u"\\" + settings.CompanyName() + u"\\" +
                       settings.AppName() + u"\\" + section;
  const auto stored =
      platform::Current().Registry().GetValue(platform::RootKey::CurrentUser, keyPath, key);
  if (!stored) return nullptr;
  return std::visit(SettingJson{}, settings.GetSetting(section, key, String()));
}

void WriteSetting(CAppSettings& settings, const String& section, const String& key,
                  const Json& value) {
  if (value.is_boolean()) {
    settings.SaveSetting(section, key, value.get<bool>());
  } else if (value.is_number_integer()) {
    settings.SaveSetting(section, key, std::int32_t{value.get<std::int32_t>()});
  } else if (value.is_string()) {
    settings.SaveSetting(section, key, vb::FromUtf8(value.get<std::string>()));
  } else {
    Refuse("field \"value\" must be a text, a whole number, true or false");
  }
}

Json Setting(Session&, const Json& request) {
  const String section = TextField(request, "section");
  const String key = TextField(request, "key");
  CAppSettings settings = Settings();
  if (request.contains("value")) WriteSetting(settings, section, key, request["value"]);
  return {{"value", ReadSetting(settings, section, key)}};
}

Json AllSettings(Session&, const Json& request) {
  const String section = TextField(request, "section");
  CAppSettings settings = Settings();
  Json all = Json::array();
  std::vector<String> keys;
  try {
    keys = settings.GetAllKeys(section);
  } catch (const vb::Failure&) {
    // A section that was never written holds no values.
  }
  for (const String& key : keys) {
    const Json value = ReadSetting(settings, section, key);
    all.push_back({{"key", Utf8(key)},
                   {"type", value.is_string() ? "REG_SZ" : "REG_DWORD"},
                   {"value", value}});
  }
  return {{"settings", all}};
}

struct CellJson {
  Json operator()(store::Null) const { return nullptr; }
  Json operator()(bool value) const { return value; }
  Json operator()(std::int64_t value) const { return value; }
  Json operator()(double value) const { return value; }
  Json operator()(const String& value) const { return Utf8(value); }
};

Json Query(Session&, const Json& request) {
  if (!gConnectionMDBs) Refuse("the add-in is not connected");
  const auto& connection = gConnectionMDBs->item(TextField(request, "connection"));
  store::Recordset records;
  records.Open(TextField(request, "sql"), connection->mConnectMDB);
  Json columns = Json::array();
  for (const String& name : records.FieldNames()) columns.push_back(Utf8(name));
  Json rows = Json::array();
  for (std::size_t row = 0; row < records.RecordCount(); ++row) {
    Json cells = Json::array();
    for (std::size_t column = 0; column < columns.size(); ++column) {
      cells.push_back(std::visit(CellJson{}, records.Cell(row, column)));
    }
    rows.push_back(cells);
  }
  return {{"columns", columns}, {"rows", rows}};
}

Json Connections(Session&, const Json&) {
  Json all = Json::array();
  if (gConnectionMDBs) {
    for (const auto& [name, connection] : *gConnectionMDBs) {
      all.push_back({{"name", Utf8(name)},
                     {"file", Utf8(platform::Current().App().NativePath(connection->FileName))}});
    }
  }
  return {{"connections", all}};
}

Json CallStack(Session&, const Json&) {
  Json stack = Json::array();
  if (gErrorHandler) {
    for (const String& routine : gErrorHandler->CallStack()) stack.push_back(Utf8(routine));
  }
  return {{"call-stack", stack}};
}

Json FailNext(Session& session, const Json& request) {
  session.FailNext(Utf8(TextField(request, "operation")),
                   vb::Failure(IntField(request, "number", AccessDenied),
                               TextField(request, "description", u"Automation error")));
  return {};
}

Json Journal(Session& session, const Json&) {
  return {{"journal", session.Desktop().TakeJournal()}};
}

}  // namespace

const VerbTable& SurroundingVerbs() {
  static const VerbTable table{{"advance", Advance},         {"setting", Setting},
                               {"settings", AllSettings},    {"query", Query},
                               {"connections", Connections}, {"call-stack", CallStack},
                               {"fail-next", FailNext},      {"journal", Journal}};
  return table;
}

}  // namespace tessel::drive
