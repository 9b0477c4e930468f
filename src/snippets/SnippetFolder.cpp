#include "snippets/SnippetFolder.h"

#include <algorithm>
#include <set>

#include "snippets/ColumnSizes.h"
#include "snippets/SnippetFiles.h"
#include "snippets/SnippetSearch.h"
#include "snippets/TreeBatch.h"
#include "store/Recordset.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

/// A name that every file system takes; signs that it can't hold stand as %XX.
std::string FileNameOf(const String& name) {
  constexpr std::string_view Refused = "%/\\:*?\"<>|", Digits = "0123456789ABCDEF";
  constexpr std::size_t Longest = 100;
  const std::string text = vb::ToUtf8(name);
  std::string file;
  const auto isInside = [](char unit) {
    return (static_cast<unsigned char>(unit) & 0xC0U) == 0x80U;
  };
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char sign = text[at];
    const auto unit = static_cast<unsigned char>(sign);
    const bool hidden = file.empty() && (sign == '.' || sign == '_' || sign == ' ');
    if (unit < ' ' || hidden || Refused.find(sign) != std::string_view::npos) {
      file += {'%', Digits[unit >> 4U], Digits[unit & 15U]};
    } else {
      file += sign;
    }
    // The whole name stands in the file, so a long one may be cut, but not within a character.
    if (file.size() >= Longest && (at + 1 == text.size() || !isInside(text[at + 1]))) break;
  }
  while (!file.empty() && (file.back() == ' ' || file.back() == '.')) file.back() = '_';
  return file.empty() ? "%20" : file;
}

/// The names in use in one folder, in any case.
class UsedNames {
 public:
  std::string Take(const String& name, const std::string& extension) {
    const std::string plain = FileNameOf(name);
    std::string file = plain + extension;
    for (int number = 2; !used_.insert(vb::LCase(vb::FromUtf8(file))).second; ++number) {
      file = plain + " (" + std::to_string(number) + ")" + extension;
    }
    return file;
  }

 private:
  std::set<String> used_;
};

class Exporter {
 public:
  Exporter(CSQLTree& tree, const fs::path& folder, const FileWriter& write)
      : tree_(tree), root_(folder), write_(write) {}

  ExportedSnippets Run() {
    open_.emplace_back();
    open_.back().Path = root_;
    fs::create_directories(root_);
    for (const SnippetPath& one : PathsOf(tree_)) {
      while (open_.size() >= static_cast<std::size_t>(std::max(one.Node.lvl, 2))) Close();
      if (one.Node.Root == FolderKind) {
        OpenFolder(one.Node);
      } else {
        WriteRecord(one.Node);
      }
    }
    while (!open_.empty()) Close();
    return std::move(done_);
  }

 private:
  struct Folder {
    fs::path Path;
    UsedNames Names;
    String Order;
    std::set<fs::path> Entries;
  };

  void OpenFolder(const TreeNode& node) {
    Folder& parent = open_.back();
    const std::string file = parent.Names.Take(node.Name, "");
    Note(parent, file, u"\t" + EscapedName(node.Name));
    Folder folder;
    folder.Path = parent.Path / file;
    fs::create_directories(folder.Path);
    open_.push_back(std::move(folder));
  }
  void WriteRecord(const TreeNode& node) {
    Folder& folder = open_.back();
    const std::string file = folder.Names.Take(node.Name, SnippetExtension);
    Note(folder, file, u"");
    const fs::path path = folder.Path / file;
    Write(path, WriteExportedText({node.Name, tree_.GetRecordsetFromList(node.ID)}));
    done_.Written.push_back(path.lexically_relative(root_));
  }
  void Write(const fs::path& path, const std::string& bytes) {
    std::error_code error;
    if (!fs::exists(path, error) || ReadSnippetBytes(path) != bytes) write_(path, bytes);
  }
  static void Note(Folder& folder, const std::string& file, const String& more) {
    folder.Order += vb::FromUtf8(file) + more + u"\n";
    folder.Entries.insert(file);
  }
  /// The old order goes last: whatever ends an export ahead of that, the next one still knows what
  /// an earlier one wrote.
  void Close() {
    const Folder& folder = open_.back();
    Tidy(folder.Path, folder.Entries);
    Write(folder.Path / SnippetOrderFile, vb::ToUtf8(folder.Order));
    open_.pop_back();
  }
  /// Removes what an earlier export listed in a folder and nobody has changed since, but for
  /// `entries`, and tells of all other records that lie there.
  void Tidy(const fs::path& folder, const std::set<fs::path>& entries) {
    std::set<fs::path> listed, others;
    for (const SnippetEntry& entry : ReadSnippetOrder(folder)) listed.insert(entry.File);
    for (const auto& entry : fs::directory_iterator(folder)) others.insert(entry.path().filename());
    for (const fs::path& name : others) {
      const fs::path path = folder / name;
      if (entries.contains(name)) continue;
      if (fs::is_directory(fs::symlink_status(path))) {
        if (listed.contains(name) || fs::exists(path / SnippetOrderFile)) DropFolder(path);
      } else if (name.extension() == SnippetExtension) {
        const bool own = listed.contains(name) && IsUnchangedExport(ReadSnippetBytes(path));
        if (own) Remove(path);
        (own ? done_.Removed : done_.Kept).push_back(path.lexically_relative(root_));
      }
    }
  }
  /// A folder that holds something else stays, with its order.
  void DropFolder(const fs::path& folder) {
    Tidy(folder, {});
    const auto isOrder = [](const auto& entry) {
      return entry.path().filename() == SnippetOrderFile;
    };
    if (!std::all_of(fs::directory_iterator(folder), fs::directory_iterator(), isOrder)) return;
    Remove(folder / SnippetOrderFile);
    Remove(folder);
  }
  static void Remove(const fs::path& path) {
    std::error_code error;
    fs::remove(path, error);
    if (!error) return;
    throw vb::Failure(vb::PathFileAccess,
                      path.u16string() + u": can't be removed: " + vb::FromUtf8(error.message()),
                      u"Tessel");
  }

  CSQLTree& tree_;
  fs::path root_;
  const FileWriter& write_;
  std::vector<Folder> open_;
  ExportedSnippets done_;
};

std::int32_t ChildNamed(CSQLTree& tree, std::int32_t parent, StringView name, bool folder) {
  const auto children = tree.GetNodesForParent(parent);
  if (!children) return 0;
  for (const TreeNode& child : *children) {
    if (!vb::SameText(child.Name, name)) continue;
    store::Recordset node;
    node.Open(u"SELECT Root FROM Tree WHERE ID = " + vb::Str(child.ID), tree.Connection());
    if ((store::ToLong(node.Field(u"Root")) == FolderKind) == folder) return child.ID;
  }
  return 0;
}

std::int32_t Added(CSQLTree& tree, StringView name, std::int32_t parent, std::int32_t kind) {
  CheckNodeName(name);
  const std::int32_t id = tree.AddNode(name, parent, 0, 0, kind);
  if (id == 0) {
    throw vb::Failure(vb::InvalidCall, u"\"" + String(name) + u"\" can't be added to the library",
                      u"Tessel");
  }
  return id;
}

class Importer {
 public:
  explicit Importer(CSQLTree& tree) : tree_(tree), batch_(tree.Connection()) {}

  void Enter(const std::vector<SnippetFileNode>& nodes, std::int32_t parent, const String& path) {
    std::vector<std::int32_t> known = Known(nodes, parent);
    // New folders enter at the front: the last one goes first.
    for (std::size_t at = nodes.size(); at-- > 0;) {
      if (nodes[at].Record || known[at] != 0) continue;
      known[at] = batch_.Add(nodes[at].Name, parent, FolderKind);
    }
    for (std::size_t at = 0; at < nodes.size(); ++at) {
      const String own = path + nodes[at].Name;
      if (nodes[at].Record) {
        EnterRecord(*nodes[at].Record, known[at], parent, own);
      } else {
        Enter(nodes[at].Children, known[at], own + u"/");
      }
    }
  }

  void Finish() { batch_.WriteNumbers(); }

  std::vector<ImportedSnippet> Done;

 private:
  /// For each entry the node of the library that it is a newer text of, 0 for none. Each node is
  /// that of one entry only, so siblings of one name stay as many as they are; a name in the same
  /// case goes ahead of one in another. Folders are counted from the end, where the oldest stands.
  std::vector<std::int32_t> Known(const std::vector<SnippetFileNode>& nodes, std::int32_t parent) {
    std::vector<std::int32_t> known(nodes.size());
    for (const bool exact : {true, false}) {
      for (std::size_t step = 0; step < 2 * nodes.size(); ++step) {
        const bool records = step < nodes.size();
        const std::size_t at = records ? step : 2 * nodes.size() - 1 - step;
        if (nodes[at].Record.has_value() != records || known[at] != 0) continue;
        known[at] =
            batch_.TakeChild(parent, nodes[at].Name, records ? RecordKind : FolderKind, exact);
      }
    }
    return known;
  }

  void EnterRecord(const NamedFragment& record, std::int32_t id, std::int32_t parent,
                   const String& path) {
    CheckObject(record.Fragment);
    const bool known = id != 0;
    if (known) {
      tree_.Connection()->Execute(u"DELETE FROM List WHERE Id = " + vb::Str(id));
    } else {
      id = batch_.Add(record.Name, parent, RecordKind);
    }
    tree_.UpdateListFragment(id, record.Fragment);
    Done.push_back({path, known});
  }

  CSQLTree& tree_;
  TreeBatch batch_;
};

}  // namespace

ExportedSnippets ExportSnippets(CSQLTree& tree, const fs::path& folder, const FileWriter& write) {
  return Exporter(tree, folder, write).Run();
}

std::vector<ImportedSnippet> ImportSnippets(CSQLTree& tree, const fs::path& folder,
                                            std::int32_t parent) {
  const auto nodes = ReadSnippetFiles(folder);
  store::Transaction transaction(*tree.Connection());
  Importer importer(tree);
  importer.Enter(nodes, parent, u"");
  importer.Finish();
  transaction.Commit();
  return std::move(importer.Done);
}

std::int32_t FolderAt(CSQLTree& tree, StringView path) {
  std::int32_t folder = TopID;
  for (const String& name : vb::Split(path, u"/")) {
    if (name.empty()) continue;
    const std::int32_t known = ChildNamed(tree, folder, name, true);
    folder = known != 0 ? known : Added(tree, name, folder, FolderKind);
  }
  return folder;
}

}  // namespace tessel
