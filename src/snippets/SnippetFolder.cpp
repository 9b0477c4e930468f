#include "snippets/SnippetFolder.h"

#include <algorithm>

#include "snippets/ColumnSizes.h"
#include "snippets/ExportPlan.h"
#include "snippets/SnippetFiles.h"
#include "snippets/TreeBatch.h"
#include "store/Command.h"
#include "store/PlainCause.h"
#include "store/Recordset.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

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

void Remove(const fs::path& path) {
  std::error_code error;
  fs::remove(path, error);
  if (error) FailAt(path, "can't be removed: " + error.message());
}

/// What is there already with the same bytes isn't written.
void WriteTo(const PlannedFile& file, const FileWriter& write) {
  if (KindOf(file.Path) == fs::file_type::not_found || ReadSnippetBytes(file.Path) != file.Bytes) {
    write(file.Path, file.Bytes);
  }
}

std::vector<fs::path> RelativeTo(const fs::path& folder, std::vector<fs::path> paths) {
  for (fs::path& path : paths) path = path.lexically_relative(folder);
  std::sort(paths.begin(), paths.end());
  return paths;
}

/// Runs a change of the library's notes as one transaction. A library that can only be read is
/// exported all the same, and keeps none.
template <class Body>
void Note(CSQLTree& tree, Body&& change) {
  try {
    store::Transaction transaction(*tree.Connection());
    change();
    transaction.Commit();
  } catch (const vb::Failure& failure) {
    const String cause = store::PlainCause(failure.Description());
    if (cause != store::ReadOnly && cause != store::CannotOpen) throw;
  }
}

/// Notes what is about to be written beside what was, so that the next export knows both, whatever
/// ends this one.
ExportPlan PlanAndNote(CSQLTree& tree, const fs::path& folder) {
  ExportPlan plan = PlanExport(tree, folder, FolderNotes(tree.Connection(), folder));
  Note(tree, [&] {
    FolderNotes notes(tree.Connection(), folder);
    for (const PlannedFile& file : plan.Files) notes.Add(file.Path, file.Bytes);
    notes.Write();
  });
  return plan;
}

void Settle(CSQLTree& tree, const fs::path& folder, const ExportPlan& plan) {
  Note(tree, [&] {
    FolderNotes notes(tree.Connection(), folder);
    for (const PlannedFile& file : plan.Files) notes.Set(file.Path, file.Bytes);
    notes.ForgetMissing();
    notes.Write();
  });
}

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
  /// `before` are the notes ahead of the import.
  Importer(CSQLTree& tree, const FolderNotes& before, FolderNotes& notes)
      : tree_(tree),
        before_(before),
        notes_(notes),
        batch_(tree.Connection()),
        rename_(tree.Connection(), u"UPDATE Tree SET Name = @Name WHERE ID = @ID") {}

  void Enter(const std::vector<SnippetFileNode>& nodes, std::int32_t parent, const String& path) {
    for (const SnippetFileNode& node : nodes) CheckSizes(node);
    std::vector<std::int32_t> known = Known(nodes, parent);
    // New folders enter at the front: the last one goes first.
    for (std::size_t at = nodes.size(); at-- > 0;) {
      if (nodes[at].Record || known[at] != 0) continue;
      known[at] = batch_.Add(nodes[at].Name, parent, FolderKind);
    }
    for (std::size_t at = 0; at < nodes.size(); ++at) {
      const String own = path + nodes[at].Name;
      if (nodes[at].Record) {
        known[at] = EnterRecord(nodes[at], known[at], parent, own);
      } else {
        Enter(nodes[at].Children, known[at], own + u"/");
      }
    }
    std::vector<std::int32_t> listed;
    for (std::size_t at = 0; at < nodes.size(); ++at) {
      if (nodes[at].IsListed) listed.push_back(known[at]);
    }
    batch_.Arrange(parent, listed);
  }

  void Finish() {
    if (!conflicts_.empty()) {
      throw vb::Failure(vb::InvalidCall, conflicts_, u"Tessel");
    }
    batch_.WriteNumbers();
  }

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
        // The name of a folder on the disk is none that somebody gave to the folder of the library.
        if (!exact && known[at] != 0 && (records || nodes[at].IsNamed)) {
          rename_.Execute({nodes[at].Name, std::int64_t{known[at]}});
        }
      }
    }
    return known;
  }

  /// Tells of the file in which a text is too long for its column.
  static void CheckSizes(const SnippetFileNode& node) {
    try {
      CheckNodeName(node.Name);
      if (node.Record) CheckObject(node.Record->Fragment);
    } catch (const vb::Failure& failure) {
      throw vb::Failure(failure.Number(), node.File.u16string() + u": " + failure.Description(),
                        failure.Source());
    }
  }

  std::int32_t EnterRecord(const SnippetFileNode& node, std::int32_t id, std::int32_t parent,
                           const String& path) {
    const NamedFragment& record = *node.Record;
    const bool known = id != 0;
    const bool kept = known && !IsNewer(node, id);
    if (known && !kept) {
      tree_.Connection()->Execute(u"DELETE FROM List WHERE Id = " + vb::Str(id));
    } else if (!known) {
      id = batch_.Add(record.Name, parent, RecordKind);
    }
    if (!kept) tree_.UpdateListFragment(id, record.Fragment);
    // The file says this, whatever it looks like.
    notes_.Add(node.File, WriteRecordText(record));
    Done.push_back({path, known && !kept, kept});
    return id;
  }

  /// Whether a file has something newer than the record of the library that it stands for.
  bool IsNewer(const SnippetFileNode& node, std::int32_t id) {
    if (!before_.IsNoted(node.File)) return true;
    const NamedFragment own{node.Record->Name, tree_.GetRecordsetFromList(id)};
    if (own == *node.Record) return true;
    if (before_.Fits(node.File, WriteRecordText(*node.Record))) return false;
    if (!before_.Fits(node.File, WriteRecordText(own))) {
      if (!conflicts_.empty()) conflicts_ += u"\n";
      conflicts_ += vb::FromUtf8(node.File.string()) +
                    u" was changed, and so was its record; give one of them another name";
    }
    return true;
  }

  CSQLTree& tree_;
  const FolderNotes& before_;
  FolderNotes& notes_;
  String conflicts_;
  TreeBatch batch_;
  store::Command rename_;
};

}  // namespace

ExportedSnippets ExportSnippets(CSQLTree& tree, const fs::path& folder, const FileWriter& write) {
  const ExportPlan plan = PlanAndNote(tree, folder);
  std::vector<fs::path> written;
  for (const fs::path& one : plan.Folders) MakeFolder(one);
  for (const PlannedFile& file : plan.Files) {
    WriteTo(file, write);
    if (file.IsRecord) written.push_back(file.Path.lexically_relative(folder));
  }
  for (const fs::path& one : plan.Removed) Remove(one);
  for (const fs::path& one : plan.Dropped) Remove(one);
  Settle(tree, folder, plan);
  return {std::move(written), RelativeTo(folder, plan.Removed), RelativeTo(folder, plan.Kept)};
}

std::vector<ImportedSnippet> ImportSnippets(CSQLTree& tree, const fs::path& folder,
                                            std::int32_t parent) {
  store::Transaction transaction(*tree.Connection());
  const FolderNotes before(tree.Connection(), folder);
  FolderNotes notes = before;
  const auto nodes = ReadSnippetFiles(
      folder, [&](const fs::path& file, const std::string& bytes) { notes.Set(file, bytes); });
  Importer importer(tree, before, notes);
  importer.Enter(nodes, parent, u"");
  importer.Finish();
  notes.Write();
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
