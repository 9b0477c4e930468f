#include "snippets/frmStoreToVbCode.h"

#include <algorithm>

#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "projectmodel/ProjectTables.h"
#include "scanning/mFunctions.h"
#include "snippets/ColumnSizes.h"
#include "snippets/GridTicks.h"
#include "snippets/GridWidths.h"
#include "snippets/SnippetGrid.h"

namespace tessel {
namespace {

enum GridColumn : int { TreeColumn = 0, TickColumn = 1, Columns = 2 };
enum Page : int { FirstPage = 0, NextPage = 1 };
/// Flags behind the connection in the cell data of a row of folders.
enum Flag : std::size_t { TopFlag = 0, KindFlag = 1, Flags = 2 };

constexpr StringView NextCaption = u"Next >>", RunCaption = u"Run";
constexpr int ChooseNodeMessage = 14;
constexpr int ProjectLevel = 1, GroupLevel = 2, ComponentLevel = 3;

constexpr StringView Section = u"Settings\\VBCode\\frmStoreToVbCode",
                     CreateKey = u"chkCreateClasses";
const GridWidths Widths{Section, u"BackColWidth", {52, 4}};

forms::GridRow RowOf(StringView caption, int level, std::int32_t picture) {
  forms::GridRow row{.Cells = {String(caption), {}}};
  row.Level = level;
  row.Picture = picture;
  return row;
}

}  // namespace

frmStoreToVbCode::frmStoreToVbCode() : ToolForm("frmStoreToVbCode", u"Store to Snippets") {
  Icon = 108;
  Border = forms::BorderStyle::Sizable;
  fgTreeBack.Editable = true;
  fgTreeNext.Editable = true;
  btmAddFolder.Picture = 136;
  btmEditFolder.Picture = 126;
  btmDeleteFolder.Picture = 140;
  btmNext.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
  WireFolders();
}

void frmStoreToVbCode::Arrange() {
  using namespace forms;
  Layout first =
      forms::Column({Item(fgTreeBack, 1), Row({Space(), Item(btmSelectAll), Item(btmSelectNone)})});
  Layout next =
      forms::Column({Item(fgTreeNext, 1),
                     Row({Item(btmAddFolder), Item(btmEditFolder), Item(btmDeleteFolder), Space()}),
                     Item(chkCreateClasses)});
  SetLayout(forms::Column(
      {Tabs(C1TFirstNext, {first, next}),
       Row({Item(btmHelp), Space(), Item(btmBask), Item(btmNext), Item(btmCancel)})}));
}

void frmStoreToVbCode::Wire() {
  fgTreeBack.BeforeEdit = [this](int row, int col, bool& cancel) {
    cancel = col != TickColumn || fgTreeBack.RowAt(row).CellData.empty();
  };
  fgTreeBack.AfterEdit = [this](int, int) { EnablebtmNext(); };
  btmSelectAll.Click = [this] { TickAll(u"frmStoreToVbCode.btmSelectAll_Click", true); };
  btmSelectNone.Click = [this] { TickAll(u"frmStoreToVbCode.btmSelectNone_Click", false); };
  // The user may turn the page by its tab as well.
  C1TFirstNext.Switch = [this] { ShowPage(); };
  btmNext.Click = [this] { Next(); };
  btmBask.Click =
      Handler(u"frmStoreToVbCode.btmBask_Click", [this] { C1TFirstNext.SetCurrTab(FirstPage); });
  btmCancel.Click = Handler(u"frmStoreToVbCode.btmCancel_Click", [this] {
    if (Connect != nullptr) Connect->HideStoreToVbCode();
  });
  btmHelp.Click = Handler(u"frmStoreToVbCode.btmHelp_Click",
                          [] { mGlobals::RunHelpFennick(u"Store_to_ Snippets.htm"); });
}

void frmStoreToVbCode::WireFolders() {
  fgTreeNext.AfterSelChange = [this] { EnableBtmEditAndDelete(); };
  fgTreeNext.BeforeEdit = [this](int row, int, bool& cancel) {
    const forms::GridRow& node = fgTreeNext.RowAt(row);
    cancel = node.Data < TopID || SplitRowKey(node.CellData, Flags).Flags[TopFlag] != 0;
  };
  fgTreeNext.AfterEdit = [this](int row, int) { RenameNode(row); };
  btmAddFolder.Click = [this] { AddFolder(); };
  btmEditFolder.Click = [this] { EditFolder(); };
  btmDeleteFolder.Click = [this] { DeleteFolder(); };
}

CSQLTree& frmStoreToVbCode::TreeOf(StringView connection) const {
  return Need(Need(trees_).item(connection));
}

void frmStoreToVbCode::Form_Load() {
  Routine(u"frmStoreToVbCode.Form_Load", [&](const Statements& run) {
    RestorePlace(run);
    run([&] {
      const bool create = gAppSettings && gAppSettings->GetText(Section, CreateKey, u"0") == u"1";
      chkCreateClasses.SetValue(create ? 1 : 0);
    });
    RunLoadTreeBack();
    RunLoadNext();
    C1TFirstNext.SetCurrTab(FirstPage);
    ShowPage();
  });
}

void frmStoreToVbCode::RunLoadTreeBack() {
  Routine(u"frmStoreToVbCode.RunLoadTreeBack", [&](const Statements& run) {
    fgTreeBack.SetCols(Columns);
    fgTreeBack.SetRows(1);
    fgTreeBack.SetFixedRows(1);
    fgTreeBack.SetColTicks(TickColumn, true);
    fgTreeBack.SetTextMatrix(0, TreeColumn, u"Tree");
    run([&] { Widths.Restore(fgTreeBack); });
    LoadTreeBack();
  });
}

void frmStoreToVbCode::LoadTreeBack() {
  Routine(u"frmStoreToVbCode.LoadTreeBack", [&](const Statements& run) {
    const auto projects = run([&] { return Need(VBInstance).VBProjects(); });
    if (!projects) return;
    const int count = run([&] { return projects->Count(); });
    for (int position = 1; position <= count; ++position) AddProject(run, position);
  });
}

void frmStoreToVbCode::AddProject(const Statements& run, int position) {
  const auto project = run([&] { return Need(Need(VBInstance).VBProjects()).Item(position); });
  if (!project) return;
  const String name = run([&] { return project->Name(); });
  const auto type = run([&] { return project->Type(); });
  fgTreeBack.AddRow(RowOf(name, ProjectLevel, ProjectPicture(type)));
  const auto components = ComponentsOf(run, project);
  for (const ComponentGroup& group : ComponentGroups()) {
    const GroupRow* const look = GroupOfType(group.Type);
    const std::int32_t picture = look == nullptr ? 0 : look->Picture;
    bool titled = false;
    for (const OpenComponent& one : components) {
      if (one.Type != static_cast<int>(group.Type)) continue;
      if (!titled) fgTreeBack.AddRow(RowOf(group.Title, GroupLevel, picture));
      titled = true;
      forms::GridRow row = RowOf(one.Name, ComponentLevel, picture);
      row.Cells[TickColumn] = Unticked;
      row.CellData = JoinComponentKey({position, one.Position, one.Type});
      fgTreeBack.AddRow(std::move(row));
    }
  }
}

/// Each component is asked once, however many groups there are.
std::vector<frmStoreToVbCode::OpenComponent> frmStoreToVbCode::ComponentsOf(
    const Statements& run, const std::shared_ptr<host::VBProject>& project) {
  std::vector<OpenComponent> found;
  const auto components = run([&] { return project->VBComponents(); });
  if (!components) return found;
  const int count = run([&] { return components->Count(); });
  for (int position = 1; position <= count; ++position) {
    const auto component = run([&] { return components->Item(position); });
    if (!component) continue;
    const int type = run([&] { return static_cast<int>(component->Type()); });
    if (ComponentGroupOf(type) == nullptr) continue;
    found.push_back({position, type, run([&] { return component->Name(); })});
  }
  return found;
}

void frmStoreToVbCode::RunLoadNext() {
  Routine(u"frmStoreToVbCode.RunLoadNext", [&](const Statements& run) {
    fgTreeNext.SetCols(1);
    const SnippetGridShape shape{
        false, [](const SnippetRow& row, forms::GridRow& entry) {
          entry.CellData = JoinRowKey(row.Connection, {row.Top ? 1 : 0, row.Node.Root});
        }};
    const SnippetChoice kept = SelectedFolder();
    run([&] { LoadSnippetGrid(fgTreeNext, trees_, shape, kept); });
    // The user names the folder; nothing goes into one that nobody chose.
    const int row = fgTreeNext.Row();
    if (row >= 0 && fgTreeNext.RowAt(row).Data != kept.Node) fgTreeNext.Select(-1, 0);
  });
}

std::vector<int> frmStoreToVbCode::TickedRows() const {
  return tessel::TickedRows(fgTreeBack, TickColumn);
}

void frmStoreToVbCode::EnablebtmNext() {
  Routine(u"frmStoreToVbCode.EnablebtmNext", [&] { btmNext.SetEnabled(!TickedRows().empty()); });
}

/// Components can go into a folder only, and a database's top stays as it is.
void frmStoreToVbCode::EnableBtmEditAndDelete() {
  Routine(u"frmStoreToVbCode.EnableBtmEditAndDelete", [&] {
    const int row = fgTreeNext.Row();
    const RowKey key =
        row < 0 ? RowKey{{}, {1, 0}} : SplitRowKey(fgTreeNext.RowAt(row).CellData, Flags);
    const bool folder =
        key.Flags[KindFlag] != 0 && (row < 0 || fgTreeNext.RowAt(row).Data >= TopID);
    btmAddFolder.SetEnabled(folder);
    btmEditFolder.SetEnabled(folder && key.Flags[TopFlag] == 0);
    btmDeleteFolder.SetEnabled(folder && key.Flags[TopFlag] == 0);
    // Without a row, the run itself says that one is to be chosen.
    if (C1TFirstNext.CurrTab() == NextPage && row >= 0) btmNext.SetEnabled(folder);
  });
}

void frmStoreToVbCode::TickAll(StringView routine, bool ticked) {
  Routine(routine, [&] {
    TickRows(fgTreeBack, TickColumn, ticked);
    EnablebtmNext();
  });
}

void frmStoreToVbCode::ShowPage() {
  Routine(u"frmStoreToVbCode.C1TFirstNext_Switch", [&] {
    const bool next = C1TFirstNext.CurrTab() == NextPage;
    btmBask.SetEnabled(next);
    btmNext.SetCaption(next ? RunCaption : NextCaption);
    EnablebtmNext();
    EnableBtmEditAndDelete();
  });
}

void frmStoreToVbCode::Next() {
  Routine(u"frmStoreToVbCode.btmNext_Click", [&](const Statements& run) {
    if (btmNext.Caption() == NextCaption) return C1TFirstNext.SetCurrTab(NextPage);
    const int row = fgTreeNext.Row();
    if (row < 0) {
      mFunctions::myBreak(ChooseNodeMessage);
      return;
    }
    const String connection = SplitRowKey(fgTreeNext.RowAt(row).CellData, Flags).Connection;
    const auto target = static_cast<std::int32_t>(fgTreeNext.RowAt(row).Data);
    RunStoreToVbCode(connection, target, chkCreateClasses.Value() == 1);
    run([&] {
      if (Connect != nullptr) Connect->HideStoreToVbCode();
    });
  });
}

void frmStoreToVbCode::AddFolder() {
  Routine(u"frmStoreToVbCode.AddFolder", [&](const Statements& run) {
    const int row = fgTreeNext.Row();
    if (row < 0) return;
    const forms::GridRow parent = fgTreeNext.RowAt(row);
    const String connection = SplitRowKey(parent.CellData, Flags).Connection;
    forms::GridRow entry{.Cells = {u"New Folder"}};
    entry.Level = parent.Level + 1;
    entry.Picture = FolderPicture;
    entry.CellData = JoinRowKey(connection, {0, FolderKind});
    entry.Data = run([&] {
      return TreeOf(connection)
          .AddNode(String(entry.Cells.front()), static_cast<std::int32_t>(parent.Data), 0, 0,
                   FolderKind);
    });
    // One that could not be added shows as a row without a node, which takes nothing.
    fgTreeNext.AddRow(std::move(entry), row + 1);
    fgTreeNext.EditCell(row + 1, TreeColumn);
  });
}

void frmStoreToVbCode::EditFolder() {
  Routine(u"frmStoreToVbCode.EditFolder", [&] {
    if (fgTreeNext.Row() >= 0) fgTreeNext.EditCell(fgTreeNext.Row(), TreeColumn);
  });
}

void frmStoreToVbCode::RenameNode(int row) {
  Routine(u"frmStoreToVbCode.fgTreeNext_AfterEdit", [&](const Statements& run) {
    const forms::GridRow node = fgTreeNext.RowAt(row);
    run([&] {
      CSQLTree& tree = TreeOf(SplitRowKey(node.CellData, Flags).Connection);
      const auto id = static_cast<std::int32_t>(node.Data);
      tree.UpdateNodeName(id, String(node.Cells.front()));
      // Another process may have kept it from being written: the row shows what the table holds.
      if (const auto name = tree.NameOfNode(id)) fgTreeNext.SetTextMatrix(row, TreeColumn, *name);
    });
    // Last, since the answer may end the routine.
    run([&] { CheckNodeName(String(node.Cells.front())); });
  });
}

void frmStoreToVbCode::DeleteFolder() {
  Routine(u"frmStoreToVbCode.DeleteFolder", [&](const Statements& run) {
    const int row = fgTreeNext.Row();
    if (row < 0 || fgTreeNext.RowAt(row).Data <= TopID) return;
    const forms::GridRow folder = fgTreeNext.RowAt(row);
    const bool agreed = run([&] {
      return platform::Current().Boxes().ShowMessage(
                 u"Are you sure to delete folder '" + String(folder.Cells.front()) +
                     u"' and subfolders?",
                 u"Tessel", platform::YesNo | platform::Question | platform::DefaultButton2) ==
             platform::MessageAnswer::Yes;
    });
    if (!agreed) return;
    const bool gone = run([&] {
      CSQLTree& tree = TreeOf(SplitRowKey(folder.CellData, Flags).Connection);
      const auto id = static_cast<std::int32_t>(folder.Data);
      tree.DeleteNode(id);
      return !tree.NameOfNode(id);
    });
    if (!gone) return;
    fgTreeNext.RemoveItems(row, fgTreeNext.EndOf(row) - row);
    fgTreeNext.Select(std::min(row, fgTreeNext.Rows() - 1), TreeColumn);
    EnableBtmEditAndDelete();
  });
}

void frmStoreToVbCode::Form_Unload() {
  Leave(u"frmStoreToVbCode.Form_Unload", [&](const Statements& run) {
    run([&] {
      if (gAppSettings) {
        gAppSettings->SaveSetting(Section, CreateKey, vb::Str(chkCreateClasses.Value()));
      }
    });
    run([&] { Widths.Save(fgTreeBack); });
    trees_.reset();
  });
}

}  // namespace tessel
