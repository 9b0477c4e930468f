#include "snippets/SnippetFiles.h"

#include <fstream>
#include <iterator>

#include "vb/Failure.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

/// The entries of a folder: those in order first, then the others by name.
std::vector<SnippetEntry> EntriesOf(const fs::path& folder) {
  std::vector<SnippetEntry> entries;
  std::set<fs::path> listed;
  for (SnippetEntry& entry : ReadSnippetOrder(folder)) {
    std::error_code error;
    if (!fs::exists(folder / entry.File, error) || !listed.insert(entry.File).second) continue;
    entries.push_back(std::move(entry));
  }
  for (const fs::path& name : NamesIn(folder)) {
    if (!listed.contains(name) && name.native().front() != fs::path(".").native().front()) {
      entries.push_back({name, std::nullopt});
    }
  }
  return entries;
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

std::vector<SnippetEntry> ReadSnippetOrder(const fs::path& folder) {
  std::vector<SnippetEntry> entries;
  const fs::path file = folder / SnippetOrderFile;
  std::error_code error;
  if (!fs::exists(file, error)) return entries;
  const String text = TextOfUtf8(ReadSnippetBytes(file), vb::FromUtf8(file.string()));
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

std::vector<SnippetFileNode> ReadSnippetFiles(const fs::path& folder) {
  std::vector<SnippetFileNode> nodes;
  for (const SnippetEntry& entry : EntriesOf(folder)) {
    const fs::path path = folder / entry.File;
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error))) {
      nodes.push_back(
          {std::nullopt, entry.Name.value_or(entry.File.u16string()), ReadSnippetFiles(path)});
    } else if (IsSnippetName(path) && fs::is_regular_file(path, error)) {
      NamedFragment record = ReadRecordText(ReadSnippetBytes(path), path.u16string());
      String name = record.Name;
      nodes.push_back({std::move(record), std::move(name), {}});
    }
  }
  return nodes;
}

}  // namespace tessel
