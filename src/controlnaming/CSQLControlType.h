// The prefixes of control names in the shared database.
#pragma once

#include <memory>

#include "connections/cConnectionMDB.h"

namespace tessel {

/// Reads the table `ControlType`. Failures come from the store.
class CSQLControlType {
 public:
  /// Takes the connection "PersonalMarlow" from `gConnectionMDBs`; fails when it is absent.
  CSQLControlType();

  /// Prefix of the names of a class's controls, by the class's name without its library. Empty for
  /// an empty name, for a class without a row in force, and for a row without a prefix.
  [[nodiscard]] String GetPrefixControl(StringView className) const;

 private:
  std::shared_ptr<cConnectionMDB> connection_;
};

}  // namespace tessel
