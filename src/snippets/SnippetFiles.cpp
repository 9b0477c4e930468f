#include "snippets/SnippetFiles.h"

#include <fstream>
#include <iterator>

#include "vb/Failure.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

/// The entries of a folder: those in order first, then the others by name; how many are in order.
struct FolderEntries {
  std::vector<SnippetEntry> All;
  std::size_t Listed = 0;
};

FolderEntries EntriesOf(const fs::path& folder, const ReadFileSink& sink) {
  std::vector<SnippetEntry> entries;
  std::set<fs::path> listed;
  for (SnippetEntry& entry : ReadSnippetOrder(folder, sink)) {
    std::error_code error;
    if (!fs::exists(folder / entry.File, error) || !listed.insert(entry.File).second) continue;
    entries.push_back(std::move(entry));
  }
  const std::size_t count = entries.size();
  for (const fs::path& name : NamesIn(folder)) {
    if (!listed.contains(name) && name.native().front() != fs::path(".").native().front()) {
      entries.push_back({name, std::nullopt});
    }
  }
  return {std::move(entries), count};
}

}  // namespace

bool IsSnippetName(const fs::path& name) {
  return vb::SameText(vb::FromUtf8(name.extension().string()), vb::FromUtf8(SnippetExtension));
}

std::set<fs::path> NamesIn(const fs::path& folder) {
  std::set<fs::path> names;
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    names.insert(entry->path().filename());
  }
  if (!error) return names;
  throw vb::Failure(
      vb::PathFileAccess,
      vb::FromUtf8(folder.string() + ": the folder can't be read: " + error.message()), u"Tessel");
}

std::string ReadSnippetBytes(const fs::path& file) {
  // A pipe may never end.
  std::error_code error;
  const auto status = fs::status(file, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    throw vb::Failure(vb::InvalidCall, vb::FromUtf8(file.string()) + u": is no regular file",
                      u"Tessel");
  }
  std::ifstream in(file, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) {
    throw vb::Failure(vb::InvalidCall, file.u16string() + u": the file can't be read", u"Tessel");
  }
  return bytes;
}

std::vector<SnippetEntry> ReadSnippetOrder(const fs::path& folder, const ReadFileSink& sink) {
  std::vector<SnippetEntry> entries;
  const fs::path file = folder / SnippetOrderFile;
  std::error_code error;
  if (!fs::exists(file, error)) return entries;
  const std::string bytes = ReadSnippetBytes(file);
  const String text = TextOfUtf8(bytes, vb::FromUtf8(file.string()));
  if (sink) sink(file, bytes);
  for (StringView line : vb::SplitViews(text, u"\n")) {
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    const std::size_t tab = line.find(u'\t');
    const fs::path entry{String(line.substr(0, tab))};
    // An entry that leads out of the folder is none of an export's.
    if (entry.empty() || entry.filename() != entry || entry == ".." || entry == ".") continue;
    entries.push_back({entry, std::nullopt});
    if (tab != StringView::npos) entries.back().Name = UnescapedName(line.substr(tab + 1));
  }
  return entries;
}

std::vector<SnippetFileNode> ReadSnippetFiles(const fs::path& folder, const ReadFileSink& sink) {
  std::vector<SnippetFileNode> nodes;
  const FolderEntries entries = EntriesOf(folder, sink);
  for (std::size_t at = 0; at < entries.All.size(); ++at) {
    const SnippetEntry& entry = entries.All[at];
    const fs::path path = folder / entry.File;
    std::error_code error;
    SnippetFileNode node;
    node.File = path;
    node.IsListed = at < entries.Listed;
    if (fs::is_directory(fs::symlink_status(path, error))) {
      node.IsNamed = entry.Name.has_value();
      node.Name = entry.Name.value_or(entry.File.u16string());
      node.Children = ReadSnippetFiles(path, sink);
    } else if (IsSnippetName(path) && fs::is_regular_file(path, error)) {
      const std::string bytes = ReadSnippetBytes(path);
      node.Record = ReadRecordText(bytes, path.u16string());
      node.Name = node.Record->Name;
      if (sink) sink(path, bytes);
    } else {
      continue;
    }
    nodes.push_back(std::move(node));
  }
  return nodes;
}

}  // namespace tessel
