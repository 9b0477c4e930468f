#include "hosts/batch/SnippetLibrary.h"

#include "connections/cConnectReestr.h"
#include "connections/cConnectionMDBs.h"
#include "hosts/batch/BatchPlatform.h"
#include "hosts/linux/LinuxApp.h"
#include "hosts/linux/SqliteRegistry.h"
#include "store/PlainCause.h"
#include "store/Seeds.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

constexpr int TabWidth = 4;

/// Reads the settings of the program itself.
class SettingsPlatform : public BatchPlatform {
 public:
  explicit SettingsPlatform(const fs::path& file) : BatchPlatform(TabWidth), registry_(file) {}
  [[nodiscard]] platform::Registry& Registry() override { return registry_; }

 private:
  linux_host::SqliteRegistry registry_;
};

fs::path MainLibrary(const fs::path& given) {
  BatchPlatform services(TabWidth);
  const fs::path data = given.empty() ? linux_host::DefaultDataDirectory() : given;
  fs::path file = data / "Data" / "VBCode.MDB";
  if (!fs::exists(file)) {
    store::WriteStandardDatabases(file.parent_path(), services.Files());
  }
  return file;
}

fs::path RegisteredLibrary(const std::string& name, const fs::path& settings) {
  SettingsPlatform services(settings.empty() ? linux_host::DefaultSettingsFile() : settings);
  const platform::ScopedPlatform scope(services);
  const auto store = std::make_shared<CAppSettings>();
  store->Init(u"Norvane", u"Tessel");
  cConnectReestr registered;
  registered.Init(store);
  String known(MainConnection);
  for (const auto& row : registered.GetAllConnect().value_or(std::vector<RegisteredConnection>{})) {
    if (vb::SameText(row.Name, vb::FromUtf8(name)) && row.Name != SharedConnection) {
      return services.App().NativePath(row.FileName);
    }
    if (row.Name != MainConnection && row.Name != SharedConnection) known += u", " + row.Name;
  }
  throw vb::Failure(vb::InvalidCall,
                    vb::FromUtf8(name) +
                        u": there is no such file, and no library of that name; there are " + known,
                    u"Tessel");
}

fs::path FileOfLibrary(const std::string& name, const fs::path& data, const fs::path& settings) {
  if (name.empty() || vb::SameText(vb::FromUtf8(name), MainConnection)) return MainLibrary(data);
  std::error_code error;
  return fs::exists(name, error) ? fs::path(name) : RegisteredLibrary(name, settings);
}

}  // namespace

std::shared_ptr<CSQLTree> OpenLibrary(const std::string& name, const fs::path& data,
                                      const fs::path& settings) {
  const fs::path file = FileOfLibrary(name, data, settings);
  auto connection = std::make_shared<store::Connection>();
  connection->DataSource = file.u16string();
  connection->Open();
  for (const auto& [table, statement] : SnippetTables()) {
    try {
      store::Recordset records;
      records.Open(String(statement) + u" WHERE 1 = 0", connection);
    } catch (const vb::Failure& failure) {
      const String plain = store::PlainCause(failure.Description());
      const String what = plain.starts_with(u"there is no ")
                              ? u"is no snippet library; table " + String(table) + u": "
                              : String();
      throw vb::Failure(
          failure.Number(),
          file.u16string() + u": " + what + (plain.empty() ? failure.Description() : plain),
          u"Tessel");
    }
  }
  auto tree = std::make_shared<CSQLTree>();
  tree->SetConnection(connection);
  tree->SetTableName(u"Tree");
  return tree;
}

}  // namespace tessel::batch
