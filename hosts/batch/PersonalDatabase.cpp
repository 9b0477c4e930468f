#include "hosts/batch/PersonalDatabase.h"

#include "connections/cConnectionMDBs.h"
#include "hosts/linux/LinuxApp.h"
#include "store/Seeds.h"

namespace tessel::batch {

namespace fs = std::filesystem;

fs::path PersonalFile(const fs::path& data) { return data / "Data" / "Personal.MDB"; }

fs::path SchemeData(const fs::path& given) {
  if (!given.empty()) return given;
  fs::path own = linux_host::DefaultDataDirectory();
  std::error_code unreadableIsAbsent;
  return fs::exists(PersonalFile(own), unreadableIsAbsent) ? own : fs::path();
}

std::shared_ptr<store::Connection> OpenPersonal(const fs::path& data) {
  if (data.empty()) return store::OpenDeliveredPersonal();
  auto connection = std::make_shared<store::Connection>();
  connection->DataSource = PersonalFile(data).u16string();
  connection->Open();
  return connection;
}

SharedDatabase::SharedDatabase(std::shared_ptr<store::Connection> connection) {
  const auto shared = std::make_shared<cConnectionMDB>();
  shared->NameConnect = SharedConnection;
  shared->mConnectMDB = std::move(connection);
  gConnectionMDBs = std::make_shared<cConnectionMDBs>();
  gConnectionMDBs->Add(shared, SharedConnection);
}

SharedDatabase::~SharedDatabase() { gConnectionMDBs.reset(); }

}  // namespace tessel::batch
