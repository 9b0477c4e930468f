// A snippet library as a tree of folders with one text file a record.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "snippets/CSQLTree.h"

namespace tessel {

/// What an export did, relative to its folder.
struct ExportedSnippets {
  /// The files of the library's records, also those that were the same already.
  std::vector<std::filesystem::path> Written;
  /// Files that this library wrote or read earlier, whose records are gone or have other files now,
  /// and which nobody has changed since.
  std::vector<std::filesystem::path> Removed;
  /// Other ".snippet" files that are none of the library's records.
  std::vector<std::filesystem::path> Kept;
};
/// How an export writes a file.
using FileWriter = std::function<void(const std::filesystem::path& file, const std::string& bytes)>;
/// Writes all nodes below the top: a folder for each folder, a ".snippet" file for each record, and
/// in each folder "_order.txt", which keeps their order and names. What is there already with the
/// same bytes isn't written. The library notes what it wrote, unless it can only be read. Fails
/// with a text that names the file; ahead of the first write, with all of them, where a file stands
/// that the library neither wrote nor read as it is and that says something else, and where a link
/// stands.
ExportedSnippets ExportSnippets(CSQLTree& tree, const std::filesystem::path& folder,
                                const FileWriter& write);

/// What an import did with one record.
struct ImportedSnippet {
  String Path;
  bool Replaced = false;
  /// The library's own is the newer one: its file is as the library last wrote or read it.
  bool Kept = false;
};
/// Reads such a folder into the node `parent`: all of it or, when a file can't be read, nothing. A
/// record whose name stands in the same folder of the library is replaced, unless it was changed
/// since the file was; others are added; nothing is deleted. What an order file names stands in its
/// order then. The library notes what it read. Fails with a text that names file and line, or all
/// files that were changed as well as their records.
std::vector<ImportedSnippet> ImportSnippets(CSQLTree& tree, const std::filesystem::path& folder,
                                            std::int32_t parent);

/// The node of a path of names joined by "/", below the top; made where it is missing. A record on
/// the way is failure 5. Must run inside a transaction.
[[nodiscard]] std::int32_t FolderAt(CSQLTree& tree, StringView path);

}  // namespace tessel
