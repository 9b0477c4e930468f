// Reads the format rules from the shared database.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "connections/cConnectionMDB.h"

namespace tessel {

/// A rule for a statement word or word pair.
struct FormatRule {
  bool Enabled = false;
  String KeyWords;
  std::int32_t Before = 0;  ///< blank lines ahead
  std::int32_t After = 0;   ///< blank lines behind
  bool operator==(const FormatRule&) const = default;
};

class CSQLFormating {
 public:
  /// Takes the connection "PersonalMarlow" from `gConnectionMDBs`; fails when it is absent.
  CSQLFormating();
  /// One element for each row, those with empty words left out and the rest empty; nothing for a
  /// table of fewer than two rows.
  [[nodiscard]] std::optional<std::vector<FormatRule>> GetTable() const;

 private:
  std::shared_ptr<cConnectionMDB> connection_;
};

}  // namespace tessel
