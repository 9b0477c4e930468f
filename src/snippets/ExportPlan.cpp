#include "snippets/ExportPlan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "snippets/SnippetFileNames.h"
#include "snippets/SnippetFiles.h"
#include "snippets/SnippetSearch.h"
#include "store/Snapshot.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

fs::file_type KindOf(const fs::path& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type();
}

/// A folder of the library with what is in it.
struct LibraryFolder {
  fs::path Path;
  UsedNames Names;
  std::vector<SnippetEntry> Entries;
  std::vector<PlannedFile> Records;
};

/// The folders of a library as it is at one moment, each one ahead of those in it. The library is
/// free again when the files are looked at.
std::vector<LibraryFolder> FoldersOf(CSQLTree& tree, const fs::path& root) {
  const store::Snapshot snapshot(*tree.Connection());
  std::vector<LibraryFolder> folders(1);
  folders.front().Path = root;
  std::vector<std::size_t> open{0};
  for (const SnippetPath& one : PathsOf(tree)) {
    const TreeNode& node = one.Node;
    while (open.size() >= static_cast<std::size_t>(std::max(node.lvl, 2))) open.pop_back();
    LibraryFolder& parent = folders[open.back()];
    if (node.Root == FolderKind) {
      const std::string file = parent.Names.Take(node.Name, "");
      parent.Entries.push_back({file, node.Name});
      LibraryFolder folder;
      folder.Path = parent.Path / file;
      open.push_back(folders.size());
      folders.push_back(std::move(folder));
    } else {
      const std::string file = parent.Names.Take(node.Name, SnippetExtension);
      parent.Entries.push_back({file, std::nullopt});
      parent.Records.push_back({parent.Path / file,
                                WriteRecordText({node.Name, tree.GetRecordsetFromList(node.ID)}),
                                true});
    }
  }
  return folders;
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

/// Whether the file says what is going to be written, be it with other line ends or as an older
/// export wrote it.
bool SaysTheSame(const PlannedFile& planned, const std::string& bytes) {
  try {
    if (planned.IsRecord) return WriteRecordText(ReadRecordText(bytes, u"")) == planned.Bytes;
    return vb::Replace(TextOfUtf8(bytes, u""), u"\r\n", u"\n") == vb::FromUtf8(planned.Bytes);
  } catch (const vb::Failure&) {
    return false;
  }
}

/// The names that one folder of the library writes to.
class OwnNames {
 public:
  explicit OwnNames(const LibraryFolder& folder) : folder_(folder.Path) {
    for (const SnippetEntry& entry : folder.Entries) {
      byFolded_.emplace(vb::LCase(vb::FromUtf8(entry.File.string())), entry.File);
    }
  }
  OwnNames() = default;

  /// Where a file system doesn't heed case, a name in another case is the same file.
  [[nodiscard]] bool Has(const fs::path& name) const {
    const auto own = byFolded_.find(vb::LCase(vb::FromUtf8(name.string())));
    if (own == byFolded_.end()) return false;
    std::error_code error;
    return own->second == name || fs::equivalent(folder_ / own->second, folder_ / name, error);
  }

 private:
  fs::path folder_;
  std::map<String, fs::path> byFolded_;
};

class Planner {
 public:
  Planner(const fs::path& root, const FolderNotes& notes) : root_(root), notes_(notes) {}

  ExportPlan Run(std::vector<LibraryFolder> folders) {
    for (LibraryFolder& folder : folders) Enter(folder);
    if (!refused_.empty()) throw vb::Failure(vb::PathFileAccess, refused_, u"Tessel");
    return std::move(plan_);
  }

 private:
  void Enter(LibraryFolder& folder) {
    plan_.Folders.push_back(folder.Path);
    const fs::path order = folder.Path / SnippetOrderFile;
    const bool stands = IsFolder(folder.Path);
    auto entries = folder.Entries;
    if (stands) {
      const OwnNames own(folder);
      const auto staying = Tidy(folder.Path, own);
      // A folder of an earlier export that holds something else stays in the order, with its name.
      for (SnippetEntry& entry : OrderOf(folder.Path)) {
        if (staying.contains(entry.File) &&
            KindOf(folder.Path / entry.File) == fs::file_type::directory) {
          entries.push_back(std::move(entry));
        }
      }
    }
    Plan({order, OrderText(entries)});
    for (PlannedFile& record : folder.Records) Plan(std::move(record));
  }

  /// The user names the first one, be it by a link.
  bool IsFolder(const fs::path& path) {
    std::error_code error;
    if (path == root_) return fs::is_directory(path, error);
    const fs::file_type kind = KindOf(path);
    if (kind == fs::file_type::directory) return true;
    if (kind != fs::file_type::not_found) {
      const bool link = kind == fs::file_type::symlink;
      Refuse(path, link ? u" is a link; remove it first" : u" is no folder; remove it first");
    }
    return false;
  }

  void Plan(PlannedFile file) {
    const fs::file_type kind = KindOf(file.Path);
    if (kind == fs::file_type::symlink && file.IsRecord) {
      Refuse(file.Path, u" is a link; remove it first");
    } else if (kind == fs::file_type::regular) {
      const std::string bytes = ReadSnippetBytes(file.Path);
      const bool known =
          bytes == file.Bytes || notes_.Fits(file.Path, bytes) || SaysTheSame(file, bytes);
      if (!known) Refuse(file.Path, u" was changed by hand; import it or remove it first");
    } else if (kind != fs::file_type::not_found) {
      Refuse(file.Path, u" is no regular file; remove it first");
    }
    plan_.Files.push_back(std::move(file));
  }

  void Refuse(const fs::path& path, StringView why) {
    if (!refused_.empty()) refused_ += u"\n";
    refused_ += vb::FromUtf8(path.string()) + String(why);
  }

  static std::vector<SnippetEntry> OrderOf(const fs::path& folder) {
    const bool stands = KindOf(folder / SnippetOrderFile) == fs::file_type::regular;
    return stands ? ReadSnippetOrder(folder) : std::vector<SnippetEntry>();
  }

  /// Looks at what isn't the library's own in a folder; answers what will stay of it, but for the
  /// order.
  std::set<fs::path> Tidy(const fs::path& folder, const OwnNames& own) {
    std::set<fs::path> staying;
    for (const fs::path& name : NamesIn(folder)) {
      const fs::path path = folder / name;
      if (own.Has(name) || name == SnippetOrderFile) continue;
      bool goes = false;
      if (KindOf(path) == fs::file_type::directory) {
        goes = notes_.HasInside(path) && Drop(path);
        if (!notes_.HasInside(path)) TellOf(path);
      } else if (IsRecordFile(path)) {
        goes = IsOwnRecord(path);
        (goes ? plan_.Removed : plan_.Kept).push_back(path);
      }
      if (!goes) staying.insert(name);
    }
    return staying;
  }

  [[nodiscard]] bool IsOwnRecord(const fs::path& path) const {
    if (KindOf(path) != fs::file_type::regular) return false;
    const std::string bytes = ReadSnippetBytes(path);
    return notes_.Fits(path, bytes) || notes_.IsRenamed(path, bytes);
  }

  static bool IsRecordFile(const fs::path& path) {
    std::error_code error;
    return IsSnippetName(path) && fs::is_regular_file(path, error);
  }

  /// A folder that holds something else stays, with its order. One that names nothing that stays
  /// says nothing, whoever wrote it.
  bool Drop(const fs::path& folder) {
    if (!Tidy(folder, {}).empty()) return false;
    const fs::path order = folder / SnippetOrderFile;
    const fs::file_type kind = KindOf(order);
    if (kind != fs::file_type::not_found) {
      if (kind != fs::file_type::regular) return false;
      plan_.Dropped.push_back(order);
    }
    plan_.Dropped.push_back(folder);
    return true;
  }

  /// The records below a folder that is none of this library's: another one's may lie there.
  void TellOf(const fs::path& folder) {
    if (folder.filename().string().front() == '.') return;
    for (const fs::path& name : NamesIn(folder)) {
      const fs::path path = folder / name;
      if (KindOf(path) == fs::file_type::directory) {
        TellOf(path);
      } else if (IsRecordFile(path)) {
        plan_.Kept.push_back(path);
      }
    }
  }

  fs::path root_;
  const FolderNotes& notes_;
  ExportPlan plan_;
  String refused_;
};

}  // namespace

ExportPlan PlanExport(CSQLTree& tree, const fs::path& folder, const FolderNotes& notes) {
  return Planner(folder, notes).Run(FoldersOf(tree, folder));
}

}  // namespace tessel
