// What the wizard does with the components that were chosen.

#include "snippets/ObjectFiles.h"
#include "snippets/ObjectRecords.h"
#include "snippets/frmStoreToVbCode.h"

namespace tessel {
namespace {

/// A record with its row, both or none, so that whatever ends the run ahead of the component leaves
/// a sound library; 0 when it can't be added.
std::int32_t AddRecord(CSQLTree& tree, StringView caption, std::int32_t parentID) {
  std::int32_t record = 0;
  ResumeNext([&] {
    store::Transaction transaction(*tree.Connection());
    const std::int32_t added = tree.AddNode(caption, parentID, 0, 0, RecordKind);
    if (added == 0) return;
    tree.InsertIdTableList(added);
    transaction.Commit();
    record = added;
  });
  return record;
}

/// Fails when the chosen folder can't take it, as one that is gone can't.
std::int32_t AddGroupFolder(CSQLTree& tree, StringView title, std::int32_t parentID) {
  const std::int32_t folder = tree.AddNode(title, parentID, 0, 0, FolderKind);
  if (folder == 0) {
    throw vb::Failure(vb::InvalidCall,
                      u"The folder \"" + String(title) + u"\" can't be added to the library",
                      u"Tessel");
  }
  return folder;
}

}  // namespace

void frmStoreToVbCode::RunStoreToVbCode(const String& connection, std::int32_t parentID,
                                        bool createFolders) {
  Routine(u"frmStoreToVbCode.RunStoreToVbCode", [&](const Statements& run) {
    struct Chosen {
      String Caption;
      ComponentKey Key;
    };
    std::vector<Chosen> chosen;
    for (const int row : TickedRows()) {
      const forms::GridRow& entry = fgTreeBack.RowAt(row);
      chosen.push_back({entry.Cells.front(), SplitComponentKey(entry.CellData)});
    }
    if (!createFolders) {
      for (const Chosen& one : chosen) {
        AddNewPointInTree(connection, one.Caption, parentID, one.Key);
      }
      return;
    }
    for (const ComponentGroup& group : ComponentGroups()) {
      std::int32_t folder = 0;
      for (const Chosen& one : chosen) {
        if (one.Key.Type != static_cast<int>(group.Type)) continue;
        if (folder == 0) {
          folder =
              run([&] { return AddGroupFolder(TreeOf(connection), group.FolderTitle, parentID); });
        }
        // Without its folder the group would go to the top, where nobody wants it.
        if (folder == 0) break;
        AddNewPointInTree(connection, one.Caption, folder, one.Key);
      }
    }
  });
}

void frmStoreToVbCode::AddNewPointInTree(const String& connection, const String& caption,
                                         std::int32_t parentID, const ComponentKey& key) {
  Routine(u"frmStoreToVbCode.AddNewPointInTree", [&](const Statements& run) {
    const std::int32_t record =
        run([&] { return AddRecord(TreeOf(connection), caption, parentID); });
    const String folder = run([] { return mFunctions::GetTempFolder(); });
    try {
      StoreComponent(run, connection, folder, caption, record, key);
    } catch (const RoutineAborted&) {
      ResumeNext([&] { mFunctions::RemoveFolder(folder); });
      throw;
    }
    run([&] { mFunctions::RemoveFolder(folder); });
  });
}

void frmStoreToVbCode::StoreComponent(const Statements& run, const String& connection,
                                      const String& folder, const String& caption,
                                      std::int32_t record, const ComponentKey& key) {
  run([&] { mFunctions::CreateFolderPath(folder); });
  run([&] { mFunctions::EmptyFolder(folder); });
  const ComponentGroup* const group = ComponentGroupOf(key.Type);
  const String file =
      folder + u"\\" + caption + u"." + String(group == nullptr ? StringView() : group->Extension);
  const auto project = run([&] { return Need(Need(VBInstance).VBProjects()).Item(key.Project); });
  const auto component =
      run([&] { return Need(Need(project).VBComponents()).Item(key.Component); });
  const bool written = run([&] {
    Need(component).SaveAs(file);
    return true;
  });
  // What failed was told; there is no file to read now.
  if (!written) return;
  mFunctions::ImportRecordFileObjectToTblList(Need(trees_), connection, file, record, project);
}

}  // namespace tessel
