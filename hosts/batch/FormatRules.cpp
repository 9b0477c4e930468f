#include "hosts/batch/FormatRules.h"

#include "connections/cConnectionMDBs.h"
#include "store/Seeds.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

std::shared_ptr<store::Connection> OpenPersonal(const std::filesystem::path& data) {
  if (data.empty()) return store::OpenDeliveredPersonal();
  auto connection = std::make_shared<store::Connection>();
  connection->DataSource = (data / "Data" / "Personal.MDB").u16string();
  connection->Open();
  return connection;
}

/// Makes a connection the shared one for a scope.
class SharedDatabase {
 public:
  explicit SharedDatabase(std::shared_ptr<store::Connection> connection) {
    const auto shared = std::make_shared<cConnectionMDB>();
    shared->NameConnect = SharedConnection;
    shared->mConnectMDB = std::move(connection);
    gConnectionMDBs = std::make_shared<cConnectionMDBs>();
    gConnectionMDBs->Add(shared, SharedConnection);
  }
  ~SharedDatabase() { gConnectionMDBs.reset(); }
  SharedDatabase(const SharedDatabase&) = delete;
  SharedDatabase& operator=(const SharedDatabase&) = delete;
};

}  // namespace

std::vector<FormatRule> LoadRules(const std::filesystem::path& data) {
  const SharedDatabase shared(OpenPersonal(data));
  auto rules = CSQLFormating().GetTable();
  if (!rules) {
    throw vb::Failure(vb::InvalidCall, data.u16string() + u": the table FormatText holds no rules",
                      u"Tessel");
  }
  return *std::move(rules);
}

}  // namespace tessel::batch
