// A prepared text command with named parameters, shaped after ADO.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "store/Connection.h"

namespace tessel::store {

struct Command {
  std::shared_ptr<Connection> ActiveConnection;
  /// May name parameters as "@Name".
  String CommandText;
  std::vector<std::pair<String, Value>> Parameters;

  /// Runs the command inside its own transaction and answers the number of rows changed. Fails with
  /// `StoreFailure`; also when a parameter of the text has no value.
  int Execute();
};

}  // namespace tessel::store
