// What an export of a snippet library will write and remove.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "snippets/CSQLTree.h"
#include "snippets/FolderNotes.h"

namespace tessel {

struct PlannedFile {
  std::filesystem::path Path;
  std::string Bytes;
  bool IsRecord = false;
};
/// All paths begin with the folder as it was given.
struct ExportPlan {
  /// To be made where they are missing; each ahead of those in it.
  std::vector<std::filesystem::path> Folders;
  /// With the order of a folder ahead of its records.
  std::vector<PlannedFile> Files;
  /// Records of files that the library's notes fit, or that were renamed since.
  std::vector<std::filesystem::path> Removed;
  /// Folders with nothing else in them, with their orders: inner ones first.
  std::vector<std::filesystem::path> Dropped;
  /// Other records.
  std::vector<std::filesystem::path> Kept;
};

/// Compares a library with a folder and changes neither. Fails, with all of them named, when
/// something stands where the export has to write that may be somebody's work: a file that doesn't
/// fit its note and says something else than the library, a link, a pipe. Fails with what the
/// store says, too.
[[nodiscard]] ExportPlan PlanExport(CSQLTree& tree, const std::filesystem::path& folder,
                                    const FolderNotes& notes);

}  // namespace tessel
