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

[[noreturn]] void FailAt(const fs::path& path, const std::string& why) {
  throw vb::Failure(vb::PathFileAccess, vb::FromUtf8(path.string() + ": " + why), u"Tessel");
}

fs::file_type KindOf(const fs::path& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type();
}

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) FailAt(folder, "the folder can't be made: " + error.message());
}

/// What an export is about to write.
struct PlannedRecord {
  fs::path Path;
  NamedFragment Record;
  std::string Bytes;
};
struct PlannedFolder {
  fs::path Path;
  UsedNames Names;
  std::vector<SnippetEntry> Entries;
  std::vector<PlannedRecord> Records;
};

/// The folders of a library, each one ahead of those in it.
std::vector<PlannedFolder> PlanOf(CSQLTree& tree, const fs::path& root) {
  std::vector<PlannedFolder> plan(1);
  plan.front().Path = root;
  std::vector<std::size_t> open{0};
  for (const SnippetPath& one : PathsOf(tree)) {
    const TreeNode& node = one.Node;
    while (open.size() >= static_cast<std::size_t>(std::max(node.lvl, 2))) open.pop_back();
    PlannedFolder& parent = plan[open.back()];
    if (node.Root == FolderKind) {
      const std::string file = parent.Names.Take(node.Name, "");
      parent.Entries.push_back({file, node.Name});
      PlannedFolder folder;
      folder.Path = parent.Path / file;
      open.push_back(plan.size());
      plan.push_back(std::move(folder));
    } else {
      const std::string file = parent.Names.Take(node.Name, SnippetExtension);
      parent.Entries.push_back({file, std::nullopt});
      NamedFragment record{node.Name, tree.GetRecordsetFromList(node.ID)};
      std::string bytes = WriteExportedText(record);
      parent.Records.push_back({parent.Path / file, std::move(record), std::move(bytes)});
    }
  }
  return plan;
}

std::string OrderText(const std::vector<SnippetEntry>& entries) {
  String order;
  for (const SnippetEntry& entry : entries) {
    order += vb::FromUtf8(entry.File.string());
    if (entry.Name) order += u"\t" + EscapedName(*entry.Name);
    order += u"\n";
  }
  return vb::ToUtf8(order);
}

std::set<fs::path> FilesOf(const std::vector<SnippetEntry>& entries) {
  std::set<fs::path> files;
  for (const SnippetEntry& entry : entries) files.insert(entry.File);
  return files;
}

/// Whether a file says nothing that the record doesn't: nobody changed it, or the change came into
/// the library.
bool IsKnown(const std::string& bytes, const NamedFragment& record) {
  if (IsUnchangedExport(bytes)) return true;
  try {
    const NamedFragment there = ReadRecordText(bytes, u"");
    return vb::SameText(there.Name, record.Name) && there.Fragment == record.Fragment;
  } catch (const vb::Failure&) {
    return false;
  }
}

/// Fails, with all of them named, when something stands where a plan writes that isn't an export's.
class PlanCheck {
 public:
  void Run(const std::vector<PlannedFolder>& plan) {
    for (const PlannedFolder& folder : plan) {
      const fs::file_type kind = KindOf(folder.Path);
      // The user names the first one, be it by a link.
      if (&folder != &plan.front()) CheckFolder(folder.Path, kind);
      CheckOrder(folder.Path / SnippetOrderFile);
      for (const PlannedRecord& record : folder.Records) CheckRecord(record);
    }
    if (!refused_.empty()) throw vb::Failure(vb::PathFileAccess, refused_, u"Tessel");
  }

 private:
  void Refuse(const fs::path& path, StringView why) {
    if (!refused_.empty()) refused_ += u"\n";
    refused_ += vb::FromUtf8(path.string()) + String(why);
  }
  void CheckFolder(const fs::path& path, fs::file_type kind) {
    if (kind == fs::file_type::not_found || kind == fs::file_type::directory) return;
    const bool link = kind == fs::file_type::symlink;
    Refuse(path, link ? u" is a link; remove it first" : u" is no folder; remove it first");
  }
  void CheckOrder(const fs::path& path) {
    const fs::file_type kind = KindOf(path);
    if (kind == fs::file_type::not_found || kind == fs::file_type::regular) return;
    Refuse(path, u" is no regular file; remove it first");
  }
  void CheckRecord(const PlannedRecord& record) {
    const fs::file_type kind = KindOf(record.Path);
    if (kind == fs::file_type::not_found) return;
    if (kind == fs::file_type::symlink) {
      Refuse(record.Path, u" is a link; remove it first");
    } else if (kind != fs::file_type::regular) {
      Refuse(record.Path, u" is no regular file; remove it first");
    } else {
      const std::string bytes = ReadSnippetBytes(record.Path);
      if (bytes == record.Bytes || IsKnown(bytes, record.Record)) return;
      Refuse(record.Path, u" was changed by hand; import it or remove it first");
    }
  }

  String refused_;
};

class Exporter {
 public:
  Exporter(const fs::path& folder, const FileWriter& write) : root_(folder), write_(write) {}

  ExportedSnippets Run(const std::vector<PlannedFolder>& plan) {
    for (const PlannedFolder& folder : plan) WriteFolder(folder);
    // What lies in a folder goes ahead of the folder.
    for (std::size_t at = plan.size(); at-- > 0;) Close(plan[at]);
    std::sort(done_.Removed.begin(), done_.Removed.end());
    std::sort(done_.Kept.begin(), done_.Kept.end());
    return std::move(done_);
  }

 private:
  void WriteFolder(const PlannedFolder& folder) {
    MakeFolder(folder.Path);
    Announce(folder);
    for (const PlannedRecord& record : folder.Records) {
      Write(record.Path, record.Bytes);
      done_.Written.push_back(record.Path.lexically_relative(root_));
    }
  }
  /// Whatever ends an export, the next one knows from the order what this one and an earlier one
  /// wrote: new entries are listed ahead of their writing, old ones until they are gone.
  void Announce(const PlannedFolder& folder) {
    const auto old = ReadSnippetOrder(folder.Path);
    const auto known = FilesOf(old), entries = FilesOf(folder.Entries);
    if (std::includes(known.begin(), known.end(), entries.begin(), entries.end())) return;
    auto both = folder.Entries;
    for (const SnippetEntry& entry : old) {
      if (!entries.contains(entry.File)) both.push_back(entry);
    }
    Write(folder.Path / SnippetOrderFile, OrderText(both));
  }
  void Write(const fs::path& path, const std::string& bytes) {
    if (KindOf(path) == fs::file_type::not_found || ReadSnippetBytes(path) != bytes) {
      write_(path, bytes);
    }
  }
  /// An earlier export's folder that holds something else stays in the order, with its name.
  void Close(const PlannedFolder& folder) {
    const auto own = FilesOf(folder.Entries);
    const auto old = ReadSnippetOrder(folder.Path);
    Tidy(folder.Path, own);
    auto entries = folder.Entries;
    for (const SnippetEntry& entry : old) {
      const bool stays = KindOf(folder.Path / entry.File) == fs::file_type::directory;
      if (stays && !own.contains(entry.File)) entries.push_back(entry);
    }
    Write(folder.Path / SnippetOrderFile, OrderText(entries));
  }
  /// Removes what an earlier export listed in a folder and nobody has changed since, but for
  /// `entries`, and tells of all other records that lie there.
  void Tidy(const fs::path& folder, const std::set<fs::path>& entries) {
    const std::set<fs::path> listed = FilesOf(ReadSnippetOrder(folder));
    for (const fs::path& name : NamesIn(folder)) {
      const fs::path path = folder / name;
      if (entries.contains(name)) continue;
      if (KindOf(path) == fs::file_type::directory) {
        if (listed.contains(name)) {
          DropFolder(path);
        } else {
          TellOf(path);
        }
      } else if (IsRecordFile(path)) {
        const bool own = listed.contains(name) && KindOf(path) == fs::file_type::regular &&
                         IsUnchangedExport(ReadSnippetBytes(path));
        if (own) Remove(path);
        (own ? done_.Removed : done_.Kept).push_back(path.lexically_relative(root_));
      }
    }
  }
  static bool IsRecordFile(const fs::path& path) {
    std::error_code error;
    return IsSnippetName(path) && fs::is_regular_file(path, error);
  }
  /// The records below a folder that is none of this export's: another library's may lie there.
  void TellOf(const fs::path& folder) {
    if (folder.filename().string().front() == '.') return;
    for (const fs::path& name : NamesIn(folder)) {
      const fs::path path = folder / name;
      if (KindOf(path) == fs::file_type::directory) {
        TellOf(path);
      } else if (IsRecordFile(path)) {
        done_.Kept.push_back(path.lexically_relative(root_));
      }
    }
  }
  /// A folder that holds something else stays, with its order.
  void DropFolder(const fs::path& folder) {
    Tidy(folder, {});
    for (const fs::path& name : NamesIn(folder)) {
      if (name != SnippetOrderFile) return;
    }
    Remove(folder / SnippetOrderFile);
    Remove(folder);
  }
  static void Remove(const fs::path& path) {
    std::error_code error;
    fs::remove(path, error);
    if (error) FailAt(path, "can't be removed: " + error.message());
  }

  fs::path root_;
  const FileWriter& write_;
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
  const auto plan = PlanOf(tree, folder);
  PlanCheck().Run(plan);
  return Exporter(folder, write).Run(plan);
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
