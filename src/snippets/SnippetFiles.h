// The folder tree that a snippet library is kept in as text files: how it is read.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "snippets/RecordText.h"

namespace tessel {

/// Keeps the order of a folder's entries and the names of its folders; one entry a line, the name
/// behind a tab.
inline constexpr const char* SnippetOrderFile = "_order.txt";
inline constexpr const char* SnippetExtension = ".snippet";

/// A line of an order file: the entry and, for a folder, the name of its node.
struct SnippetEntry {
  std::filesystem::path File;
  /// Nothing where the line names none; a name may be empty.
  std::optional<String> Name;
};
/// Is told of each file that was read.
using ReadFileSink =
    std::function<void(const std::filesystem::path& file, const std::string& bytes)>;
/// The entries of a folder's order file; none without one. Fails with a text that names the file.
[[nodiscard]] std::vector<SnippetEntry> ReadSnippetOrder(const std::filesystem::path& folder,
                                                         const ReadFileSink& sink = {});

/// A folder with what is in it, or a record.
struct SnippetFileNode {
  std::optional<NamedFragment> Record;
  String Name;
  std::filesystem::path File{};
  std::vector<SnippetFileNode> Children{};
  /// Whether the order file names it, and whether that gives a folder its name.
  bool IsListed = false, IsNamed = false;
};
/// All folders and records below a folder: those of its order file first, then the others by name.
/// Links to folders aren't followed, and only regular files are read. Fails with a text that names
/// file and line.
[[nodiscard]] std::vector<SnippetFileNode> ReadSnippetFiles(const std::filesystem::path& folder,
                                                            const ReadFileSink& sink = {});

/// Whether the name is that of a record's file, in any case.
[[nodiscard]] bool IsSnippetName(const std::filesystem::path& name);
/// The names of what is in a folder, sorted. Fails with a text that names it.
[[nodiscard]] std::set<std::filesystem::path> NamesIn(const std::filesystem::path& folder);
/// The bytes of a regular file. Fails with a text that names it, also for a folder or a pipe.
[[nodiscard]] std::string ReadSnippetBytes(const std::filesystem::path& file);

}  // namespace tessel
