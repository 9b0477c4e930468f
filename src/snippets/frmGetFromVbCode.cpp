#include "snippets/frmGetFromVbCode.h"

#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "snippets/GridTicks.h"
#include "snippets/GridWidths.h"
#include "snippets/ObjectRecords.h"
#include "snippets/SnippetGrid.h"

namespace tessel {
namespace {

enum GridColumn : int { TreeColumn = 0, TickColumn = 1, ObjectColumn = 2, Columns = 3 };

/// Opens everything; what is open at the least.
constexpr int AllLevels = 100, TopRows = 0;

const GridWidths Widths{u"Settings\\VBCode\\frmGetFromVbCode", u"ColWidth", {40, 4, 24}};

}  // namespace

frmGetFromVbCode::frmGetFromVbCode() : ToolForm("frmGetFromVbCode", u"Insert Snippet") {
  Icon = 107;
  Border = forms::BorderStyle::Sizable;
  fgTree.Editable = true;
  btmExpand.Picture = 125;
  btmRun.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
}

void frmGetFromVbCode::Arrange() {
  using namespace forms;
  SetLayout(Column(
      {Item(fgTree, 1),
       Row({Item(btmExpand), Item(btmCollapse), Space(), Item(btmSelectAll), Item(btmSelectNone)}),
       Row({Item(btmHelp), Space(), Item(btmRun), Item(btmCancel)})}));
}

void frmGetFromVbCode::Wire() {
  fgTree.BeforeEdit = [this](int row, int col, bool& cancel) {
    cancel = col != TickColumn || fgTree.TextMatrix(row, ObjectColumn).empty();
  };
  fgTree.AfterEdit = [this](int, int) { EnablebtmRun(); };
  btmExpand.Click = [this] { fgTree.SetOutline(AllLevels); };
  btmCollapse.Click = [this] { fgTree.SetOutline(TopRows); };
  btmSelectAll.Click = [this] { TickAll(u"frmGetFromVbCode.btmSelectAll_Click", true); };
  btmSelectNone.Click = [this] { TickAll(u"frmGetFromVbCode.btmSelectNone_Click", false); };
  btmRun.Click = [this] { Run(); };
  btmCancel.Click = Handler(u"frmGetFromVbCode.btmCancel_Click", [this] {
    if (Connect != nullptr) Connect->HideGetFromVbCode();
  });
  btmHelp.Click = Handler(u"frmGetFromVbCode.btmHelp_Click",
                          [] { mGlobals::RunHelpFennick(u"Insert_Snippet.htm"); });
}

void frmGetFromVbCode::Form_Load() {
  Routine(u"frmGetFromVbCode.Form_Load", [&](const Statements& run) {
    RestorePlace(run);
    RunLoadTree();
    EnablebtmRun();
  });
}

void frmGetFromVbCode::RunLoadTree() {
  Routine(u"frmGetFromVbCode.RunLoadTree", [&](const Statements& run) {
    fgTree.SetCols(Columns);
    fgTree.SetRows(1);
    fgTree.SetFixedRows(1);
    fgTree.SetColTicks(TickColumn, true);
    fgTree.SetTextMatrix(0, TreeColumn, u"Tree");
    fgTree.SetTextMatrix(0, ObjectColumn, u"Name Object");
    run([&] { Widths.Restore(fgTree); });
    const SnippetGridShape shape{true, [](const SnippetRow& row, forms::GridRow& entry) {
                                   entry.CellData = row.Connection;
                                   if (row.Node.NameObj.empty()) return;
                                   entry.Cells[TickColumn] = Unticked;
                                   entry.Cells[ObjectColumn] = row.Node.NameObj;
                                 }};
    run([&] { LoadSnippetGrid(fgTree, trees_, shape, SelectedFolder()); });
  });
}

bool frmGetFromVbCode::IsTicked(int row) const {
  return fgTree.Ticked(row, TickColumn).value_or(false);
}

void frmGetFromVbCode::EnablebtmRun() {
  Routine(u"frmGetFromVbCode.EnablebtmRun",
          [&] { btmRun.SetEnabled(!TickedRows(fgTree, TickColumn).empty()); });
}

void frmGetFromVbCode::TickAll(StringView routine, bool ticked) {
  Routine(routine, [&] {
    TickRows(fgTree, TickColumn, ticked);
    EnablebtmRun();
  });
}

void frmGetFromVbCode::Run() {
  Routine(u"frmGetFromVbCode.btmRun_Click", [&](const Statements& run) {
    for (int row = fgTree.FixedRows(); row < fgTree.Rows(); ++row) {
      if (IsTicked(row) && !InsertRow(run, row)) return;
    }
  });
}

/// Inserts the object of a row; false when the user ends the run behind its failure.
bool frmGetFromVbCode::InsertRow(const Statements& run, int row) {
  const String connection = fgTree.RowAt(row).CellData;
  const auto node = static_cast<std::int32_t>(fgTree.RowAt(row).Data);
  run([&] { SnippetTreeOf(Need(trees_), connection); });
  const String told = run([&] {
    return mFunctions::InsertObjectInUserProject(Need(trees_), connection, VBInstance, node, false);
  });
  if (told.empty()) return true;
  return run([&] {
    return platform::Current().Boxes().ShowMessage(
               told, u"Tessel", platform::YesNo | platform::Question | platform::DefaultButton2) ==
           platform::MessageAnswer::Yes;
  });
}

void frmGetFromVbCode::Form_Unload() {
  Leave(u"frmGetFromVbCode.Form_Unload", [&](const Statements& run) {
    run([&] { Widths.Save(fgTree); });
    trees_.reset();
  });
}

}  // namespace tessel
