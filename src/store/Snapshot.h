// Several reads of one moment.
#pragma once

#include "store/Connection.h"

namespace tessel::store {

/// While it lives, the connection reads the file as it is at the first read, whatever other
/// processes write; they wait meanwhile. Nothing of its own inside a transaction. Takes no right to
/// write. Fails with 3709 when the connection isn't open.
class Snapshot {
 public:
  explicit Snapshot(Connection& connection);
  ~Snapshot();
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

 private:
  Connection* connection_ = nullptr;
};

}  // namespace tessel::store
