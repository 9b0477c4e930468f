#include "snippets/SnippetGrid.h"

#include <gtest/gtest.h>

#include "foundation/CErrorHandler.h"
#include "snippets/OpenLibraries.h"
#include "support/Modules.h"

namespace tessel {
namespace {

struct Holder : forms::Surface {
  Holder() : Surface("Holder", u"") { Tree.SetCols(2); }
  [[nodiscard]] bool Visible() const override { return true; }
  forms::Grid Tree{this, "Tree"};
};

class SnippetGrid : public testing::Test {
 protected:
  SnippetGrid() {
    shape_.Objects = true;
    shape_.Fill = [](const SnippetRow& row, forms::GridRow& entry) {
      entry.CellData = JoinRowKey(row.Connection, {row.Top ? 1 : 0, row.Node.Root});
      entry.Cells[1] = row.Node.NameObj;
    };
  }
  void Load(const SnippetChoice& choice = {}) { LoadSnippetGrid(Grid(), trees_, shape_, choice); }
  forms::Grid& Grid() { return holder_->Tree; }
  /// Caption, level, number, picture and cell data of each row.
  [[nodiscard]] std::string Rows() {
    String text;
    for (int row = Grid().FixedRows(); row < Grid().Rows(); ++row) {
      const forms::GridRow& one = Grid().RowAt(row);
      text += String(one.Cells[0]) + u" " + vb::Str(one.Level) + u" " +
              vb::Str(static_cast<int>(one.Data)) + u" " + vb::Str(one.Picture) + u" " +
              String(one.CellData) + u"\n";
    }
    return vb::ToUtf8(text);
  }

  test::World world_;
  test::OpenLibraries libraries_;
  std::shared_ptr<Holder> holder_ = std::make_shared<Holder>();
  std::shared_ptr<CSQLTrees> trees_;
  SnippetGridShape shape_;
};

TEST_F(SnippetGrid, HoldsTheTopAndTheNodesOfEachDatabaseInTheOrderOfTheConnections) {
  const auto main = libraries_.Add(u"Marlow");
  const auto own = libraries_.Add(u"UserConnect1");
  const auto folder = main->AddNode(u"Texts", TopID, 0, 0, FolderKind);
  const auto record = main->AddNode(u"Trim", folder, 0, 0, RecordKind);
  main->UpdateListFragment(record, {.Text = {},
                                    .TitleObj = u"t",
                                    .TextObj = u"c",
                                    .CompObj = {},
                                    .NameObj = u"Trim",
                                    .ClassObj = u"CLS",
                                    .TextUserNotes = {}});
  static_cast<void>(own->AddNode(u"Plain", TopID, 0, 0, RecordKind));
  Load();
  EXPECT_EQ(Rows(),
            "User Database 1 1 135 Marlow.1.1\n"
            "Texts 2 71 135 Marlow.0.1\n"
            "Trim 3 72 114 Marlow.0.0\n"
            "User Database 1 1 135 UserConnect1.1.1\n"
            "Plain 2 71 0 UserConnect1.0.0\n");
  EXPECT_EQ(Grid().TextMatrix(2, 1), u"Trim");
  EXPECT_TRUE(Grid().RowAt(0).Bold);
  EXPECT_EQ(Grid().Row(), 0);
  EXPECT_EQ(trees_->Count(), 2U);
}

TEST_F(SnippetGrid, TheSharedDatabaseIsNoLibrary) {
  libraries_.Add(u"Marlow");
  gConnectionMDBs->Add(std::make_shared<cConnectionMDB>(), SharedConnection);
  Load();
  EXPECT_EQ(Grid().Rows(), 1);
}

TEST_F(SnippetGrid, SelectsTheNodeOfTheNamedDatabaseAndOpensWhatStandsAboveIt) {
  const auto main = libraries_.Add(u"Marlow");
  const auto own = libraries_.Add(u"UserConnect1");
  for (const auto& tree : {main, own}) {
    const auto folder = tree->AddNode(u"Folder", TopID, 0, 0, FolderKind);
    static_cast<void>(tree->AddNode(u"Record", folder, 0, 0, RecordKind));
  }
  Load();
  Grid().SetOutline(0);
  Load({u"UserConnect1", 72});
  EXPECT_EQ(Grid().Row(), 5);
  EXPECT_EQ(Grid().TopRow(), 5);
  EXPECT_TRUE(Grid().RowShows(5));
  EXPECT_TRUE(Grid().RowAt(0).Collapsed) << "what was closed stays closed";
  Load({{}, 72});
  EXPECT_EQ(Grid().Row(), 2) << "without a name the first database that has it";
  Load({{}, 7200});
  EXPECT_EQ(Grid().Row(), 0);
}

TEST_F(SnippetGrid, TheSelectedFolderComesFromTheSettings) {
  EXPECT_EQ(SelectedFolder().Node, 0);
  gAppSettings->SaveSetting(u"Settings\\VBCode", u"SelectedFolder", String(u"72"));
  EXPECT_EQ(SelectedFolder().Node, 72);
  EXPECT_TRUE(SelectedFolder().Connection.empty());
}

TEST_F(SnippetGrid, KeepsHeadingsAndReplacesTheRest) {
  libraries_.Add(u"Marlow");
  Grid().SetRows(1);
  Grid().SetFixedRows(1);
  Grid().SetTextMatrix(0, 0, u"Tree");
  Load();
  Load();
  EXPECT_EQ(Grid().Rows(), 2);
  EXPECT_EQ(Grid().TextMatrix(0, 0), u"Tree");
  EXPECT_EQ(Grid().Row(), 1);
}

TEST_F(SnippetGrid, ADatabaseThatCannotBeReadLeavesTheOthers) {
  libraries_.Add(u"Marlow");
  libraries_.Add(u"UserConnect1");
  libraries_.At(u"Marlow")->Execute(u"DROP TABLE Tree");
  gErrorHandler = std::make_shared<CErrorHandler>();
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  world_.Services.DesktopService.Answers.assign(4, platform::MessageAnswer::Ignore);
  Load();
  gErrorHandler.reset();
  EXPECT_EQ(Grid().Rows(), 2);
  EXPECT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
}

TEST(RowKeys, NamesMayHoldPoints) {
  EXPECT_EQ(JoinRowKey(u"My.Own", {1, 0}), u"My.Own.1.0");
  EXPECT_EQ(SplitRowKey(u"My.Own.1.0", 2), (RowKey{u"My.Own", {1, 0}}));
  EXPECT_EQ(SplitRowKey(u"Marlow", 1), (RowKey{u"Marlow", {0}}));
  EXPECT_EQ(SplitRowKey(u"", 2), (RowKey{u"", {0, 0}}));
}

}  // namespace
}  // namespace tessel
