// The type names in the shared database, with the prefixes of variables of each type.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "connections/NoType.h"
#include "connections/cConnectionMDB.h"

namespace tessel {

/// Reads the table `MemberType`, by name. Failures come from the store.
class CSQLDataType {
 public:
  struct Row {
    String Name, Prefix;
  };
  /// Takes the connection "PersonalMarlow" from `gConnectionMDBs`; fails when it is absent.
  CSQLDataType();

  /// The type names, `firstItem` ahead of them unless it is empty. Nothing for an empty table.
  [[nodiscard]] std::optional<std::vector<String>> GetAllType(StringView firstItem) const;
  /// The type names behind "(None)", which stands alone for an empty table.
  [[nodiscard]] std::vector<String> NamesWithNone() const;
  /// The names of `GetAllType` with their prefixes; that of `firstItem` is empty.
  [[nodiscard]] std::optional<std::vector<Row>> GetAllTypeMemberVariable(
      StringView firstItem) const;

 private:
  std::shared_ptr<cConnectionMDB> connection_;
};

}  // namespace tessel
