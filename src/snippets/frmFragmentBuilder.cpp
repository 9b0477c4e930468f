#include "snippets/frmFragmentBuilder.h"

#include <algorithm>

#include "foundation/CAppSettings.h"
#include "insertion/mGlobals.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr StringView Section = u"Settings\\VBCode\\frmFragmentBuild";
constexpr StringView PageKey = u"C1TCodeObject", WidthKey = u"C1EElasticAll_Grid_0_gsColWidth",
                     OutlineKey = u"fgTreeOutline", RowKeyName = u"fgTreeRow";
/// The grid counts in characters, the setting in twips.
constexpr int TwipsOfCharacter = 120, UsualWidth = 4200;
/// Opens everything, and leaves the top rows alone.
constexpr int AllLevels = 100, NoLevel = 0;

/// A stored number; nothing when it was never written.
std::optional<int> Stored(StringView key) {
  if (!gAppSettings) return std::nullopt;
  const String text = gAppSettings->GetText(Section, key, u"");
  if (text.empty()) return std::nullopt;
  return vb::CLng(vb::Val(text));
}

void Store(StringView key, int value) {
  if (gAppSettings) gAppSettings->SaveSetting(Section, key, vb::Str(value));
}

}  // namespace

frmFragmentBuilder::frmFragmentBuilder() : ToolForm("frmFragmentBuilder", u"Snippet Manager") {
  Border = forms::BorderStyle::Sizable;
  Icon = 106;
  fgTree.SetCols(1);
  C1TCodeObject.SetVisible(false);
  btmExit.Cancel = true;
  Arrange();
  Wire();
}

void frmFragmentBuilder::Arrange() {
  using namespace forms;
  const auto labelled = [](Label& title, Label& value) {
    return Row({Item(title), Item(value, 1)});
  };
  const Layout tree = Column(
      {Item(fgTree, 1), Row({Item(btmAddFolder), Item(btmEditFolder), Item(btmDeleteFolder)}),
       Row({Item(btmAddRecord), Item(btmEditRecord), Item(btmDeleteRecord)}),
       Row({Item(btmMoveUp), Item(btmMoveDown), Item(btmMoveLeft), Item(btmMoveRight)}),
       Row({Item(btmExpand), Item(btmCollapse)})},
      1);
  const Layout object =
      Column({labelled(lblNameObjectTitle, lblNameObject),
              Row({Item(lblTypeTitle), Item(lblType, 1), Item(btmInsertObject)}),
              Item(RicCodeObjectFragmentBuilder, 1),
              Row({Item(btmCodeSave), Item(btmImportObject), Space(), Item(btmInsertSelected)})});
  const Layout code =
      Column({Row({Item(lblListObject), Item(ComListObject, 1), Item(btmInsert)}),
              Item(RicCodeFragmentBuilder, 1),
              Row({Item(btmSave), Item(btmImportCode), Space(), Item(btmInsertSelectedsExample)})});
  const Layout notes = Column({Item(RicUserCode, 1), Row({Item(btmSaveUserCode), Space()})});
  const Layout database = Group(
      C1EMDB,
      {Group(u"Information:", {labelled(lblNameTitle, lblName), labelled(lblExtTitle, lblExt),
                               labelled(lblPathTitle, lblPath), labelled(lblSizeTitle, lblSize)}),
       Space()});
  SetLayout(
      Column({Row({tree, Column({database, Tabs(C1TCodeObject, {object, code, notes})}, 2)}, 1),
              Row({Item(btmFile), Space(), Item(btmHelp), Item(btmExit)})}));
}

void frmFragmentBuilder::Wire() {
  WireTree();
  WireRecord();
  btmFile.DropdownItemClick = [this](StringView key) { FileCommand(key); };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"Snippet_Manager.htm"); };
  btmExit.Click = [this] {
    if (Connect != nullptr) Connect->HideProjectFragment();
  };
}

void frmFragmentBuilder::WireTree() {
  /// The database of the current row and the kind of its node; nothing to do without a row.
  const auto onRow = [this](forms::Button& button, StringView routine, const auto& operation) {
    button.Click = Handler(routine, [this, operation] {
      if (const auto key = CurrentKey()) operation(key->Connection, key->Flags[0]);
    });
  };
  onRow(btmAddFolder, u"frmFragmentBuilder.btmAddFolder_Click",
        [this](StringView name, int) { AddFolder(name, FolderKind, u"", u""); });
  onRow(btmAddRecord, u"frmFragmentBuilder.btmAddRecord_Click",
        [this](StringView name, int) { AddFolder(name, RecordKind, u"", u""); });
  onRow(btmEditFolder, u"frmFragmentBuilder.btmEditFolder_Click",
        [this](StringView, int) { EditFolder(); });
  onRow(btmEditRecord, u"frmFragmentBuilder.btmEditRecord_Click",
        [this](StringView, int) { EditFolder(); });
  onRow(btmDeleteFolder, u"frmFragmentBuilder.btmDeleteFolder_Click",
        [this](StringView name, int) { DeleteFolder(name); });
  onRow(btmDeleteRecord, u"frmFragmentBuilder.btmDeleteRecord_Click",
        [this](StringView name, int) { DeleteFolder(name); });
  onRow(btmMoveUp, u"frmFragmentBuilder.btmMoveUp_Click",
        [this](StringView name, int kind) { MoveFolderUP(name, kind); });
  onRow(btmMoveDown, u"frmFragmentBuilder.btmMoveDown_Click",
        [this](StringView name, int kind) { MoveFolderDown(name, kind); });
  onRow(btmMoveLeft, u"frmFragmentBuilder.btmMoveLeft_Click",
        [this](StringView name, int kind) { MoveFolderLeft(name, kind); });
  onRow(btmMoveRight, u"frmFragmentBuilder.btmMoveRight_Click",
        [this](StringView name, int kind) { MoveFolderRight(name, kind); });
  btmExpand.Click =
      Handler(u"frmFragmentBuilder.btmExpand_Click", [this] { fgTree.SetOutline(AllLevels); });
  btmCollapse.Click =
      Handler(u"frmFragmentBuilder.btmCollapse_Click", [this] { fgTree.SetOutline(NoLevel); });
  fgTree.AfterSelChange = [this] { AfterSelChange(); };
  fgTree.BeforeEdit = [this](int row, int, bool& cancel) {
    cancel = fgTree.RowAt(row).Data < TopID;
  };
  fgTree.AfterEdit = [this](int row, int col) { AfterEdit(row, col); };
  fgTree.DblClick = Handler(u"frmFragmentBuilder.fgTree_DblClick", [this] { EditFolder(); });
  fgTree.FilesDropped = [this](int row, const std::vector<String>& files) {
    DropFiles(row, files);
  };
}

void frmFragmentBuilder::WireRecord() {
  C1TCodeObject.Switch = [this] { ViewC1TCodeObject(); };
  btmCodeSave.Click = [this] {
    Save(u"frmFragmentBuilder.btmCodeSave_Click", RicCodeObjectFragmentBuilder,
         &ListFragment::TextObj);
  };
  btmSave.Click = [this] {
    Save(u"frmFragmentBuilder.btmSave_Click", RicCodeFragmentBuilder, &ListFragment::Text);
  };
  btmSaveUserCode.Click = [this] {
    Save(u"frmFragmentBuilder.btmSaveUserCode_Click", RicUserCode, &ListFragment::TextUserNotes);
  };
  btmImportCode.Click = [this] {
    WindowsImport(u"frmFragmentBuilder.btmImportCode_Click", u"Text File (*.txt)|*.txt");
  };
  btmImportObject.Click = [this] {
    WindowsImport(u"frmFragmentBuilder.btmImportObject_Click",
                  u"Vb File (*.frm;*.bas;*.cls;*dsr;*.dob;*.ctl;*.pag)|"
                  u"*.frm;*.bas;*.cls;*dsr;*.dob;*.ctl;*.pag");
  };
  btmInsertObject.Click = [this] { InsertObject(); };
  btmInsert.Click = [this] { InsertCode(); };
  btmInsertSelected.Click = [this] {
    InsertSelected(u"frmFragmentBuilder.btmInsertSelected_Click", RicCodeObjectFragmentBuilder);
  };
  btmInsertSelectedsExample.Click = [this] {
    InsertSelected(u"frmFragmentBuilder.btmInsertSelectedsExample_Click", RicCodeFragmentBuilder);
  };
}

void frmFragmentBuilder::Form_Load() {
  Routine(u"frmFragmentBuilder.Form_Load", [&](const Statements& run) {
    RestorePlace(run);
    for (forms::RichTextBox* const box :
         {&RicCodeObjectFragmentBuilder, &RicCodeFragmentBuilder, &RicUserCode}) {
      RestoreFont(run, box->Name(), box->Font);
    }
    FillComponents(run);
    btmFile.ClearItems();
    btmFile.AddItem(u"NEWDATABASE", u"New Database");
    btmFile.AddItem(u"OPENDATABASE", u"Open Database");
    btmFile.AddItem(u"CLOSECURRENTDATABASE", u"Close Current Database");
    RunLoadTree(run([] { return SelectedFolder(); }));
    const auto page = run([] { return Stored(PageKey); });
    if (page && *page >= ObjectPage && *page <= NotesPage) {
      run([&] { C1TCodeObject.SetCurrTab(*page); });
    }
    const auto width = run([] { return Stored(WidthKey); });
    fgTree.ColumnWidths = {std::max(1, width.value_or(UsualWidth) / TwipsOfCharacter)};
    if (const auto key = CurrentKey()) ViewObject(key->Connection, key->Flags[0]);
    const auto outline = run([] { return Stored(OutlineKey); });
    run([&] { fgTree.SetOutline(outline.value_or(NoLevel)); });
    const auto row = run([] { return Stored(RowKeyName); });
    run([&] {
      if (row && *row >= 0 && *row < fgTree.Rows()) fgTree.Select(*row, 0);
      if (HasCurrentRow()) fgTree.ShowCell(fgTree.Row(), 0);
    });
  });
}

void frmFragmentBuilder::Form_Unload() {
  Leave(u"frmFragmentBuilder.Form_Unload", [&](const Statements& run) {
    run([&] { Store(PageKey, C1TCodeObject.CurrTab()); });
    run([&] {
      const std::vector<int>& widths = fgTree.ColumnWidths;
      Store(WidthKey, widths.empty() ? UsualWidth : widths.front() * TwipsOfCharacter);
    });
    run([&] { Store(OutlineKey, HasCurrentRow() ? fgTree.RowAt(fgTree.Row()).Level : NoLevel); });
    run([&] { Store(RowKeyName, std::max(0, fgTree.Row())); });
    if (trees_) {
      for (const auto& [name, tree] : *trees_) tree->SetConnection(nullptr);
    }
    trees_.reset();
    record_ = {};
    shown_ = {};
  });
}

bool frmFragmentBuilder::HasCurrentRow() const {
  return fgTree.Row() >= 0 && fgTree.Row() < fgTree.Rows();
}

std::optional<RowKey> frmFragmentBuilder::CurrentKey() const {
  if (!HasCurrentRow()) return std::nullopt;
  const String data = fgTree.RowAt(fgTree.Row()).CellData;
  if (data.empty()) return std::nullopt;
  return SplitRowKey(data, 1);
}

std::int32_t frmFragmentBuilder::CurrentID() const {
  return HasCurrentRow() ? static_cast<std::int32_t>(fgTree.RowAt(fgTree.Row()).Data) : TopID;
}

CSQLTree& frmFragmentBuilder::TreeOf(StringView connection) const {
  return Need(Need(trees_).item(connection));
}

/// Where the list was filled before, the user's choice stays; a list without it, as a failure may
/// leave one, is passed over.
void frmFragmentBuilder::FillComponents(const Statements& run) {
  run([&] {
    constexpr int WithNewModule = 2;
    const String names = mGlobals::GetProjectComponent(VBInstance, WithNewModule);
    const auto list = vb::Split(names, u"|");
    const String chosen = ComListObject.Text();
    const bool known = std::any_of(list.begin(), list.end(), [&](const String& name) {
      return chosen.empty() || vb::SameText(name, chosen);
    });
    if (names.empty() || !known) return;
    mFunctions::AddListInCombobox(ComListObject, list,
                                  chosen.empty() ? std::nullopt : std::optional(chosen));
  });
}

}  // namespace tessel
