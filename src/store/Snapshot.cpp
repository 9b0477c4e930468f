#include "store/Snapshot.h"

#include "store/Engine.h"

namespace tessel::store {

Snapshot::Snapshot(Connection& connection) {
  sqlite3* const db = engine::Need(&connection);
  if (sqlite3_get_autocommit(db) == 0) return;
  engine::Run(db, "BEGIN");
  connection_ = &connection;
}

Snapshot::~Snapshot() {
  if (connection_ == nullptr || !connection_->IsOpen()) return;
  sqlite3_exec(connection_->Handle(), "COMMIT", nullptr, nullptr, nullptr);
}

}  // namespace tessel::store
