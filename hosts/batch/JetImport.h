// A snippet library of the old system, a Jet database, into a library of this one.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "snippets/CSQLTree.h"

namespace tessel::batch {

struct JetImportResult {
  /// Paths of the records, below the folder that they went into.
  std::vector<String> Records;
  /// What was wrong with the file's tree, one line each; it is mended in the copy.
  std::vector<String> Findings;
};

/// Adds all folders and records of a Jet database below the folder `parent`: all of them or none.
/// The file is never written. Fails with a text that names the file.
[[nodiscard]] JetImportResult ImportJet(CSQLTree& tree, const std::filesystem::path& file,
                                        std::int32_t parent);

}  // namespace tessel::batch
