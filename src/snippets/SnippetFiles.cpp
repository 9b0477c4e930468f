#include "snippets/SnippetFiles.h"

#include <fstream>
#include <iterator>
#include <set>

#include "vb/Failure.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

/// The entries of a folder: those in order first, then the others by name.
std::vector<SnippetEntry> EntriesOf(const fs::path& folder) {
  std::vector<SnippetEntry> entries;
  std::set<fs::path> listed;
  for (SnippetEntry& entry : ReadSnippetOrder(folder)) {
    if (!fs::exists(folder / entry.File) || !listed.insert(entry.File).second) continue;
    entries.push_back(std::move(entry));
  }
  std::set<fs::path> others;
  for (const auto& entry : fs::directory_iterator(folder)) others.insert(entry.path().filename());
  for (const fs::path& name : others) {
    if (!listed.contains(name) && name.native().front() != fs::path(".").native().front()) {
      entries.push_back({name, std::nullopt});
    }
  }
  return entries;
}

}  // namespace

std::string ReadSnippetBytes(const fs::path& file) {
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
  if (!fs::exists(file)) return entries;
  const String text = vb::FromUtf8(ReadSnippetBytes(file));
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
    if (fs::is_directory(path) && !fs::is_symlink(path)) {
      nodes.push_back(
          {std::nullopt, entry.Name.value_or(entry.File.u16string()), ReadSnippetFiles(path)});
    } else if (path.extension() == SnippetExtension) {
      NamedFragment record = ReadRecordText(ReadSnippetBytes(path), path.u16string());
      String name = record.Name;
      nodes.push_back({std::move(record), std::move(name), {}});
    }
  }
  return nodes;
}

}  // namespace tessel
