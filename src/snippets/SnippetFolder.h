// A snippet library as a tree of folders with one text file a record.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "snippets/CSQLTree.h"

namespace tessel {

/// Writes all nodes below the top: a folder for each folder, a ".snippet" file for each record, and
/// in each folder "_order.txt", which keeps their order and names. Files that an earlier export
/// wrote and that are no longer in the library go; no other file is touched. Answers the files of
/// records, relative to `folder`. Fails with a text that names the file.
std::vector<std::filesystem::path> ExportSnippets(CSQLTree& tree,
                                                  const std::filesystem::path& folder);

/// What an import did with one record.
struct ImportedSnippet {
  String Path;
  bool Replaced = false;
};
/// Reads such a folder into the node `parent`: all of it or, when a file can't be read, nothing. A
/// record whose name stands in the same folder of the library is replaced, others are added;
/// nothing is deleted. Fails with a text that names file and line.
std::vector<ImportedSnippet> ImportSnippets(CSQLTree& tree, const std::filesystem::path& folder,
                                            std::int32_t parent);

/// The node of a path of names joined by "/", below the top; made where it is missing. A record on
/// the way is failure 5. Must run inside a transaction.
[[nodiscard]] std::int32_t FolderAt(CSQLTree& tree, StringView path);

}  // namespace tessel
