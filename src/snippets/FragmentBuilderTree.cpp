// The tree of the Snippet Manager. A change goes to the database first and then to the grid.

#include "platform/Platform.h"
#include "snippets/ColumnSizes.h"
#include "snippets/ObjectFiles.h"
#include "snippets/ObjectRecords.h"
#include "snippets/frmFragmentBuilder.h"

namespace tessel {
namespace {

constexpr int CaptionColumn = 0;
constexpr StringView NewFolderCaption = u"New Folder", NewRecordCaption = u"New Record";

bool Confirm(const String& question) {
  return platform::Current().Boxes().ShowMessage(
             question, u"Tessel",
             platform::YesNo | platform::Question | platform::DefaultButton2) ==
         platform::MessageAnswer::Yes;
}

/// A component that was dropped is a form, a module or a class.
std::int32_t PictureOfDropped(StringView classObj) {
  const ObjectClass* const object = ClassOfObject(classObj);
  return object == nullptr ? 0 : object->Picture;
}

}  // namespace

void frmFragmentBuilder::RunLoadTree(const SnippetChoice& choice) {
  Routine(u"frmFragmentBuilder.RunLoadTree", [&] {
    const SnippetGridShape shape{.Objects = true,
                                 .Fill = [](const SnippetRow& row, forms::GridRow& entry) {
                                   entry.CellData = JoinRowKey(row.Connection, {row.Node.Root});
                                 }};
    LoadSnippetGrid(fgTree, trees_, shape, choice);
    if (!HasCurrentRow()) AfterSelChange();
  });
}

void frmFragmentBuilder::MakeCurrent(int row) {
  if (fgTree.Row() == row && fgTree.Col() == CaptionColumn) {
    AfterSelChange();
  } else {
    fgTree.Select(row, CaptionColumn);
  }
}

void frmFragmentBuilder::AfterSelChange() {
  Routine(u"frmFragmentBuilder.fgTree_AfterSelChange", [&](const Statements& run) {
    const auto key = CurrentKey();
    if (!key) {
      C1EMDB.SetVisible(false);
      C1TCodeObject.SetVisible(false);
      return;
    }
    ViewObject(key->Connection, key->Flags[0]);
    run([&] { EnableCmdEditAndDelete(fgTree.Row(), fgTree.Col(), key->Flags[0]); });
    btmInsertObject.SetEnabled(!lblType.Caption().empty());
  });
}

void frmFragmentBuilder::EnableCmdEditAndDelete(int row, int col, int kind) {
  if (row < 0 || col < 0) return;
  const bool top = fgTree.RowAt(row).Data == TopID, folder = kind == FolderKind;
  for (forms::Button* const button : {&btmAddFolder, &btmAddRecord}) button->SetEnabled(folder);
  for (forms::Button* const button : {&btmEditFolder, &btmDeleteFolder}) {
    button->SetEnabled(folder && !top);
  }
  for (forms::Button* const button : {&btmEditRecord, &btmDeleteRecord}) {
    button->SetEnabled(!folder);
  }
  for (forms::Button* const button : {&btmMoveUp, &btmMoveDown, &btmMoveLeft, &btmMoveRight}) {
    button->SetEnabled(!top);
  }
}

std::int32_t frmFragmentBuilder::AddFolder(StringView connection, int kind, StringView caption,
                                           StringView classObj) {
  std::int32_t added = 0;
  Routine(u"frmFragmentBuilder.AddFolder", [&](const Statements& run) {
    const int parent = fgTree.Row();
    const bool folder = kind == FolderKind;
    const int place = folder ? parent + 1 : fgTree.EndOf(parent);
    forms::GridRow entry;
    entry.Cells = {String(!caption.empty() ? caption
                          : folder         ? NewFolderCaption
                                           : NewRecordCaption)};
    entry.Level = fgTree.RowAt(parent).Level + 1;
    entry.CellData = JoinRowKey(connection, {kind});
    entry.Picture = folder ? FolderPicture : PictureOfDropped(classObj);
    added = run([&] {
      return TreeOf(connection).AddNode(String(entry.Cells.front()), CurrentID(), 0, 0, kind);
    });
    entry.Data = added;
    run([&] { fgTree.AddRow(std::move(entry), place); });
    run([&] { fgTree.ShowCell(place, CaptionColumn); });
    run([&] { MakeCurrent(place); });
    run([&] { fgTree.EditCell(place, CaptionColumn); });
  });
  return added;
}

void frmFragmentBuilder::EditFolder() {
  Routine(u"frmFragmentBuilder.EditFolder", [&] {
    if (HasCurrentRow() && fgTree.Col() >= 0) fgTree.EditCell(fgTree.Row(), fgTree.Col());
  });
}

void frmFragmentBuilder::AfterEdit(int row, int col) {
  Routine(u"frmFragmentBuilder.fgTree_AfterEdit", [&](const Statements& run) {
    const RowKey key = SplitRowKey(fgTree.RowAt(row).CellData, 1);
    const auto id = static_cast<std::int32_t>(fgTree.RowAt(row).Data);
    const String typed = fgTree.TextMatrix(row, col);
    run([&] { TreeOf(key.Connection).UpdateNodeName(id, typed); });
    // Another process may have kept it from being written: the row shows what the table holds.
    run([&] {
      if (const auto name = TreeOf(key.Connection).NameOfNode(id)) {
        fgTree.SetTextMatrix(row, col, *name);
      }
    });
    // Last, since the answer may end the routine.
    run([&] { CheckNodeName(typed); });
  });
}

void frmFragmentBuilder::DeleteFolder(StringView connection) {
  Routine(u"frmFragmentBuilder.DeleteFolder", [&](const Statements& run) {
    const int row = fgTree.Row();
    const std::int32_t id = CurrentID();
    if (id <= TopID) return;
    const String question = u"Are you sure to delete folder '" +
                            fgTree.TextMatrix(row, CaptionColumn) + u"' and subfolders?";
    if (!run([&] { return Confirm(question); })) return;
    const bool gone = run([&] {
      TreeOf(connection).DeleteNode(id);
      return !TreeOf(connection).NameOfNode(id);
    });
    if (!gone) return;
    run([&] { fgTree.RemoveItems(row, fgTree.EndOf(row) - row); });
    run([&] { MakeCurrent(std::min(row, fgTree.Rows() - 1)); });
  });
}

void frmFragmentBuilder::MoveFolder(const Statements& run, TreeMove move, StringView connection,
                                    int kind) {
  const std::int32_t id = CurrentID();
  const bool moved = run([&] {
    (TreeOf(connection).*move)(id, kind);
    return true;
  });
  const auto look = [&] {
    static_cast<void>(TreeOf(connection).NameOfNode(id));
    return true;
  };
  // A library that can't be read stays as it is shown, and with it what the user typed; why was
  // told already where the move failed.
  if (moved ? !run(look) : !ResumeNext(look)) return;
  RunLoadTree({String(connection), id});
}

void frmFragmentBuilder::MoveFolderDown(StringView connection, int kind) {
  Routine(u"frmFragmentBuilder.MoveFolderDown", [&](const Statements& run) {
    MoveFolder(run, &CSQLTree::MoveDownNode, connection, kind);
  });
}

void frmFragmentBuilder::MoveFolderUP(StringView connection, int kind) {
  Routine(u"frmFragmentBuilder.MoveFolderUP",
          [&](const Statements& run) { MoveFolder(run, &CSQLTree::MoveUpNode, connection, kind); });
}

void frmFragmentBuilder::MoveFolderLeft(StringView connection, int kind) {
  Routine(u"frmFragmentBuilder.MoveFolderLeft", [&](const Statements& run) {
    MoveFolder(run, &CSQLTree::MoveLeftNode, connection, kind);
  });
}

void frmFragmentBuilder::MoveFolderRight(StringView connection, int kind) {
  Routine(u"frmFragmentBuilder.MoveFolderRight", [&](const Statements& run) {
    MoveFolder(run, &CSQLTree::MoveRightNode, connection, kind);
  });
}

/// A component that is dropped on a folder becomes a record below it; all else is passed over.
void frmFragmentBuilder::DropFiles(int row, const std::vector<String>& files) {
  Routine(u"frmFragmentBuilder.fgTree_OLEDragDrop", [&](const Statements& run) {
    if (files.empty() || row < 0 || row >= fgTree.Rows()) return;
    const RowKey key = SplitRowKey(fgTree.RowAt(row).CellData, 1);
    if (key.Flags[0] != FolderKind) return;
    const auto project = run([&] { return VBInstance ? VBInstance->ActiveVBProject() : nullptr; });
    const auto taken =
        run([&] { return mFunctions::TakeDroppedComponent(files.front(), project); });
    if (!taken) return;
    run([&] { MakeCurrent(row); });
    if (AddFolder(key.Connection, RecordKind, taken->Name, taken->ClassObj) > 0) {
      ImportFileInList(key.Connection, taken->Path, taken->NeedsCompanion);
      run([&] { C1TCodeObject.SetCurrTab(ObjectPage); });
      ViewWindowsRichTextBox(key.Connection);
    }
    run([&] { mFunctions::RemoveFolder(taken->Folder); });
  });
}

}  // namespace tessel
