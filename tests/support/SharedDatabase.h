// The delivered shared database as the connection "PersonalMarlow", for the length of a test.
#pragma once

#include <memory>

#include "connections/cConnectionMDBs.h"
#include "store/Seeds.h"

namespace tessel::test {

class SharedDatabase {
 public:
  SharedDatabase() : Connection(store::OpenDeliveredPersonal()) {
    const auto shared = std::make_shared<cConnectionMDB>();
    shared->NameConnect = SharedConnection;
    shared->mConnectMDB = Connection;
    gConnectionMDBs = std::make_shared<cConnectionMDBs>();
    gConnectionMDBs->Add(shared, SharedConnection);
  }
  ~SharedDatabase() { gConnectionMDBs.reset(); }
  SharedDatabase(const SharedDatabase&) = delete;
  SharedDatabase& operator=(const SharedDatabase&) = delete;

  std::shared_ptr<store::Connection> Connection;
};

}  // namespace tessel::test
