#include "snippets/CSQLTrees.h"

#include <gtest/gtest.h>

#include "snippets/SnippetDatabase.h"

namespace tessel {
namespace {

using test::RowsOf;
using test::TreeRow;

class Tree : public testing::Test {
 protected:
  void SetUp() override {
    const auto file = folder_.Path() / "new.mdb";
    test::WriteEmptyDatabase(file);
    connection_ = test::OpenDatabase(file);
    tree_ = test::OpenTree(connection_);
  }
  int Folder(int parent = 1, StringView name = u"F") {
    return tree_->AddNode(name, parent, 0, 0, FolderKind);
  }
  int Record(int parent = 1, StringView name = u"R") {
    return tree_->AddNode(name, parent, 0, 0, RecordKind);
  }
  /// The numbers of the nodes in the order of the tree, each with its parent's: "71<1 72<71".
  std::string Shape() {
    const auto rows = RowsOf(connection_);
    EXPECT_EQ(test::Unsound(rows), "");
    std::string shape;
    std::vector<const TreeRow*> open;
    for (const TreeRow& row : rows) {
      while (!open.empty() && open.back()->Rgt < row.Lft) open.pop_back();
      if (!open.empty()) {
        shape += (shape.empty() ? "" : " ") + std::to_string(row.ID) + "<" +
                 std::to_string(open.back()->ID);
      }
      open.push_back(&row);
    }
    return shape;
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<store::Connection> connection_;
  std::shared_ptr<CSQLTree> tree_;
};

TEST_F(Tree, ANewDatabaseListsNothingAndIsCaptionedUserDatabase) {
  EXPECT_FALSE(tree_->GetNodes().has_value());
  EXPECT_FALSE(tree_->GetNodesAndList().has_value());
  EXPECT_EQ(tree_->GetNameRootTree(), u"User Database");
  connection_->Execute(u"DELETE FROM NameMDB");
  EXPECT_EQ(tree_->GetNameRootTree(), u"User Database");
  connection_->Execute(u"INSERT INTO NameMDB (Name) VALUES (\"Mine\")");
  EXPECT_EQ(tree_->GetNameRootTree(), u"Mine");
}

TEST_F(Tree, BesideTheTopANodeStandsOutsideOfIt) {
  const int ahead = tree_->AddNode(u"ahead", 0, TopID, 0, FolderKind);
  EXPECT_EQ(RowsOf(connection_),
            (std::vector<TreeRow>{{ahead, 1, 2, 1, u"ahead"}, {1, 3, 4, 1, u"root"}}));
  const int behind = tree_->AddNode(u"behind", 0, 0, TopID, RecordKind);
  EXPECT_EQ(RowsOf(connection_),
            (std::vector<TreeRow>{
                {ahead, 1, 2, 1, u"ahead"}, {1, 3, 4, 1, u"root"}, {behind, 5, 6, 0, u"behind"}}));
}

TEST_F(Tree, WhatTheColumnsCannotHoldIsRefusedWhole) {
  const String longest(255, u'n');
  const int id = Record(1, longest);
  EXPECT_GT(id, 0);
  const auto before = RowsOf(connection_);
  EXPECT_EQ(Record(1, longest + u"n"), 0);
  tree_->UpdateNodeName(id, longest + u"n");
  EXPECT_EQ(RowsOf(connection_), before);
  ListFragment fragment;
  fragment.Text = u"text";
  fragment.NameObj = String(50, u'n');
  tree_->UpdateListFragment(id, fragment);
  fragment.Text = u"other";
  fragment.NameObj += u"n";
  EXPECT_THROW(tree_->UpdateListFragment(id, fragment), vb::Failure);
  EXPECT_EQ(tree_->GetRecordsetFromList(id).Text, u"text");
}

TEST_F(Tree, FoldersEnterAtTheFrontAndRecordsAtTheBack) {
  EXPECT_EQ(Folder(), 71);
  EXPECT_EQ(RowsOf(connection_),
            (std::vector<TreeRow>{{1, 1, 4, 1, u"root"}, {71, 2, 3, 1, u"F"}}));
  EXPECT_EQ(Folder(), 72);
  EXPECT_EQ(Record(), 73);
  EXPECT_EQ(
      RowsOf(connection_),
      (std::vector<TreeRow>{
          {1, 1, 8, 1, u"root"}, {72, 2, 3, 1, u"F"}, {71, 4, 5, 1, u"F"}, {73, 6, 7, 0, u"R"}}));
}

TEST_F(Tree, ARecordOrAMissingNodeTakesNothingBelowIt) {
  const int record = Record();
  EXPECT_EQ(Record(record), 0);
  EXPECT_EQ(Folder(999), 0);
  EXPECT_EQ(tree_->AddNode(u"x", 0, record, 0, RecordKind), 0);
  EXPECT_EQ(tree_->AddNode(u"x", 0, 0, record, RecordKind), 0);
  EXPECT_EQ(Shape(), "71<1");
}

TEST_F(Tree, PlacesByBeforeAfterAndTheTop) {
  const int first = Folder();
  EXPECT_EQ(tree_->AddNode(u"x", 0, first, 5, FolderKind), 72) << "before wins over after";
  EXPECT_EQ(tree_->AddNode(u"x", 0, 0, first, FolderKind), 73);
  EXPECT_EQ(tree_->AddNode(u"x", 0, 0, 0, FolderKind), 74);
  EXPECT_EQ(Shape(), "72<1 71<1 73<1 74<1");
}

TEST_F(Tree, ANameIsWrittenAsItIs) {
  const String name = u"a'b\"c %; DROP TABLE Tree\r\n\xD800";
  const int id = Folder(1, name);
  EXPECT_EQ(tree_->GetNodes()->front().Name, name);
  EXPECT_TRUE(tree_->UpdateNodeName(id, u"it's"));
  EXPECT_EQ(tree_->GetNodes()->front().Name, u"it's");
  EXPECT_TRUE(tree_->UpdateNodeName(999, u"nobody")) << "true in any case";
  tree_->UpdateNodeName(1, u"top");
  EXPECT_EQ(RowsOf(connection_).front().Name, u"top");
}

TEST_F(Tree, DeletingAFolderTakesItsRecordsAndTheirRowsAlong) {
  const int folder = Folder();
  for (int at = 0; at < 2; ++at) tree_->InsertIdTableList(Record(folder));
  const int behind = Record();
  tree_->InsertIdTableList(behind);
  tree_->DeleteNode(folder);
  EXPECT_EQ(RowsOf(connection_),
            (std::vector<TreeRow>{{1, 1, 4, 1, u"root"}, {behind, 2, 3, 0, u"R"}}));
  EXPECT_EQ(test::ListIdsOf(connection_), std::vector<int>{behind});
}

TEST_F(Tree, DeletingANodeThatIsGoneChangesNothing) {
  Folder();
  const auto before = RowsOf(connection_);
  tree_->DeleteNode(999);
  EXPECT_EQ(RowsOf(connection_), before);
}

TEST_F(Tree, ListsNodesWithDepthAndObjects) {
  const int folder = Folder(1, u"Folder"), record = Record(folder, u"Record");
  tree_->UpdateListFragment(record, {.Text = {},
                                     .TitleObj = {},
                                     .TextObj = {},
                                     .CompObj = {},
                                     .NameObj = u"Form1",
                                     .ClassObj = u"FRM",
                                     .TextUserNotes = {}});
  EXPECT_EQ(*tree_->GetNodes(), (std::vector<TreeNode>{{folder, u"Folder", 2, 1, {}, {}},
                                                       {record, u"Record", 3, 0, {}, {}}}));
  EXPECT_EQ(*tree_->GetNodesAndList(),
            (std::vector<TreeNode>{{folder, u"Folder", 2, 1, {}, {}},
                                   {record, u"Record", 3, 0, u"Form1", u"FRM"}}));
}

TEST_F(Tree, ChildrenComeInTheOrderOfTheirNumbers) {
  const int first = Folder(), second = Folder(), record = Record();
  Record(first);
  EXPECT_EQ(*tree_->GetNodesForParent(1), (std::vector<TreeNode>{{first, u"F", 2, 0, {}, {}},
                                                                 {second, u"F", 2, 0, {}, {}},
                                                                 {record, u"R", 2, 0, {}, {}}}));
  EXPECT_FALSE(tree_->GetNodesForParent(second).has_value());
  EXPECT_FALSE(tree_->GetNodesForParent(999).has_value());
}

TEST_F(Tree, DownAndUpNeedANeighbourOfTheSameKind) {
  const int lower = Folder(), upper = Folder(), record = Record(), last = Record();
  EXPECT_EQ(Shape(), "72<1 71<1 73<1 74<1");
  tree_->MoveUpNode(upper, FolderKind);
  tree_->MoveDownNode(lower, FolderKind);
  tree_->MoveUpNode(record, RecordKind);
  tree_->MoveDownNode(last, RecordKind);
  EXPECT_EQ(Shape(), "72<1 71<1 73<1 74<1") << "first, above a record, below a folder, last";
  tree_->MoveDownNode(upper, FolderKind);
  tree_->MoveUpNode(last, RecordKind);
  EXPECT_EQ(Shape(), "71<1 72<1 74<1 73<1");
}

TEST_F(Tree, ASubtreeKeepsItsInnerOrderWhenItMoves) {
  const int wide = Folder(), inner = Folder(wide);
  Record(wide);
  Record(inner);
  Folder();
  EXPECT_EQ(Shape(), "75<1 71<1 72<71 74<72 73<71");
  tree_->MoveUpNode(wide, FolderKind);
  EXPECT_EQ(Shape(), "71<1 72<71 74<72 73<71 75<1");
  tree_->MoveDownNode(wide, FolderKind);
  tree_->MoveRightNode(wide, FolderKind);
  EXPECT_EQ(Shape(), "75<1 71<75 72<71 74<72 73<71");
}

TEST_F(Tree, LeftGoesToTheGrandparent) {
  const int outer = Folder(), inner = Folder(outer), folder = Folder(inner), record = Record(inner);
  tree_->MoveLeftNode(record, RecordKind);
  EXPECT_EQ(Shape(), "71<1 72<71 73<72 74<71") << "a record comes last";
  tree_->MoveLeftNode(folder, FolderKind);
  EXPECT_EQ(Shape(), "71<1 73<71 72<71 74<71") << "a folder comes first";
  tree_->MoveLeftNode(outer, FolderKind);
  EXPECT_EQ(Shape(), "71<1 73<71 72<71 74<71") << "a child of the top stays";
}

TEST_F(Tree, RightGoesIntoTheFirstFolderBelowTheParent) {
  const int second = Folder(), first = Folder(), record = Record();
  tree_->MoveRightNode(first, FolderKind);
  EXPECT_EQ(Shape(), "72<1 71<1 73<1") << "the first folder can't";
  tree_->MoveRightNode(record, RecordKind);
  tree_->MoveRightNode(second, FolderKind);
  EXPECT_EQ(Shape(), "72<1 71<72 73<72");
}

TEST_F(Tree, AFolderBelowAYoungerOneComesBackOutOfIt) {
  const int a = Folder(), b = Folder();
  tree_->MoveRightNode(a, FolderKind);
  EXPECT_EQ(Shape(), "72<1 71<72");
  EXPECT_EQ(tree_->GetParentID(a), a) << "the second number from above is its own";
  tree_->MoveLeftNode(a, FolderKind);
  EXPECT_EQ(Shape(), "71<1 72<1");
  EXPECT_EQ(tree_->GetParentID(b), 1);
}

TEST_F(Tree, AFolderBelowAYoungerOneDoesNotGoIntoItself) {
  const int a = Folder(), b = Folder();
  tree_->MoveRightNode(a, FolderKind);
  Folder(a);
  EXPECT_EQ(Shape(), "72<1 71<72 73<71");
  tree_->MoveRightNode(a, FolderKind);
  EXPECT_EQ(Shape(), "72<1 71<72 73<71");
  const int c = Folder(b);
  tree_->MoveRightNode(a, FolderKind);
  EXPECT_EQ(Shape(), "72<1 74<72 71<74 73<71");
  EXPECT_EQ(c, 74);
}

TEST_F(Tree, AnswersAboutSingleNodes) {
  const int folder = Folder(), record = Record(folder), next = Record(folder);
  EXPECT_EQ(tree_->LevelNode(1), 1);
  EXPECT_EQ(tree_->LevelNode(record), 3);
  EXPECT_EQ(tree_->LevelNode(999), 0);
  EXPECT_EQ(tree_->LevelNodeDown(record, RecordKind), (NodeLevel{next, 3}));
  EXPECT_EQ(tree_->LevelNodeDown(next, RecordKind), NodeLevel{});
  EXPECT_EQ(tree_->LevelNodeDown(record, FolderKind), NodeLevel{}) << "the node has the kind too";
  EXPECT_EQ(tree_->LevelNodeUp(next, RecordKind), (NodeLevel{record, 3}));
  EXPECT_EQ(tree_->LevelNodeUp(next, FolderKind), NodeLevel{});
  EXPECT_EQ(tree_->LevelNodeUpRight(3, RecordKind), (NodeLevel{record, 3}));
  EXPECT_EQ(tree_->GetNodeID(folder), (NodeSpan{2, 7}));
  EXPECT_EQ(tree_->GetNodeID(999), NodeSpan{});
  EXPECT_EQ(tree_->GetParentID(record), folder);
  EXPECT_EQ(tree_->GetParentID(1), 0);
  EXPECT_EQ(tree_->GetChildrenID(1), folder);
  EXPECT_EQ(tree_->GetChildrenID(folder), 0);
  EXPECT_EQ(tree_->GetParentIDRoot(record), folder);
  EXPECT_EQ(tree_->GetParentIDRoot(1), 0);
}

TEST_F(Tree, AnEmptyTextLeavesTheStoredOne) {
  const int record = Record();
  const ListFragment all{u"text", u"title", u"code", String(u"\0\x1", 2),
                         u"name", u"CLS",   u"notes"};
  EXPECT_EQ(tree_->GetRecordsetFromList(record), ListFragment{});
  tree_->UpdateListFragment(record, all);
  tree_->UpdateListFragment(record, {});
  EXPECT_EQ(tree_->GetRecordsetFromList(record), all);
  ListFragment notes;
  notes.TextUserNotes = u"new";
  tree_->UpdateListFragment(record, notes);
  EXPECT_EQ(tree_->GetRecordsetFromList(record).TextUserNotes, u"new");
  EXPECT_EQ(tree_->GetRecordsetFromList(record).Text, u"text");
}

TEST_F(Tree, ARowOfListIsAddedOnce) {
  const int record = Record();
  EXPECT_FALSE(tree_->CheckIdTableList(record));
  tree_->InsertIdTableList(record);
  tree_->InsertIdTableList(record);
  EXPECT_TRUE(tree_->CheckIdTableList(record));
}

std::uint32_t NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(failure.Description(), u"CSQLTree component failure");
    return static_cast<std::uint32_t>(failure.Number());
  }
  return 0;
}

TEST_F(Tree, WhatAsksAboutNodesFailsAndWhatChangesThemIsSilent) {
  const int folder = Folder(), record = Record(folder);
  connection_->Close();
  for (const std::function<void()>& asked : std::initializer_list<std::function<void()>>{
           [&] { static_cast<void>(tree_->LevelNode(record)); },
           [&] { static_cast<void>(tree_->LevelNodeDown(record, 0)); },
           [&] { static_cast<void>(tree_->LevelNodeUp(record, 0)); },
           [&] { static_cast<void>(tree_->GetNodeID(record)); },
           [&] { static_cast<void>(tree_->GetParentID(record)); },
           [&] { static_cast<void>(tree_->GetParentIDRoot(record)); },
           [&] { static_cast<void>(tree_->GetChildrenID(record)); },
           [&] { static_cast<void>(tree_->GetRecordsetFromList(record)); },
           [&] { tree_->UpdateListFragment(record, {}); },
           [&] { tree_->InsertIdTableList(record); },
           [&] { static_cast<void>(tree_->CheckIdTableList(record)); }}) {
    EXPECT_EQ(NumberOf(asked), 0x80040064U);
  }
  EXPECT_EQ(Folder(), 0);
  tree_->DeleteNode(folder);
  tree_->MoveLeftNode(record, RecordKind);
  EXPECT_TRUE(tree_->UpdateNodeName(folder, u"x"));
  EXPECT_EQ(tree_->TableName(), u"Tree") << "reading the name opens the connection again";
  EXPECT_EQ(Shape(), "71<1 72<71");
  EXPECT_EQ(Folder(), 73);
}

TEST_F(Tree, AnOperationWhoseStatementFailsIsUndoneAsAWhole) {
  const int outer = Folder(), folder = Folder(outer), record = Record(folder);
  Record(folder);
  Record();
  const auto before = RowsOf(connection_);
  // Each of these lets some statement of an operation fail that isn't the first.
  for (const StringView trigger :
       {u"BEFORE UPDATE OF rgt ON Tree", u"BEFORE UPDATE OF lft ON Tree WHEN NEW.lft < 1000000",
        u"BEFORE INSERT ON Tree"}) {
    connection_->Execute(u"CREATE TRIGGER Refuse " + String(trigger) +
                         u" BEGIN SELECT RAISE(ABORT, 'refused'); END");
    EXPECT_EQ(Record(outer), 0);
    tree_->MoveLeftNode(folder, FolderKind);
    tree_->MoveLeftNode(record, RecordKind);
    tree_->MoveDownNode(record, RecordKind);
    if (!trigger.starts_with(u"BEFORE INSERT")) {
      tree_->DeleteNode(folder);
      EXPECT_EQ(RowsOf(connection_), before) << vb::ToUtf8(trigger);
    }
    connection_->Execute(u"DROP TRIGGER Refuse");
  }
  EXPECT_EQ(test::Unsound(RowsOf(connection_)), "");
}

TEST_F(Tree, AnOperationThatCantBeCommittedIsUndoneAndGivesNoNumber) {
  const int folder = Folder();
  const auto before = RowsOf(connection_);
  {
    const test::Reader reader(*connection_);
    EXPECT_EQ(Folder(), 0);
    EXPECT_EQ(Record(folder), 0);
    tree_->DeleteNode(folder);
    tree_->UpdateNodeName(folder, u"x");
    EXPECT_EQ(tree_->NameOfNode(folder), u"F");
  }
  EXPECT_EQ(RowsOf(connection_), before);
  EXPECT_NE(Folder(), 0) << "the next one goes through";
  EXPECT_EQ(tree_->NameOfNode(999), std::nullopt);
}

TEST_F(Tree, AMoveThatWouldLoseANodeIsUndone) {
  const int outer = Folder(), folder = Folder(outer);
  Record(folder);
  const auto before = RowsOf(connection_);
  tree_->MoveLeftNode(folder, RecordKind);
  EXPECT_EQ(RowsOf(connection_), before) << "a folder that moves as a record leaves its children";
}

TEST_F(Tree, AnotherProcessesNodesAreSeen) {
  const auto other = test::OpenTree(test::OpenDatabase(folder_.Path() / "new.mdb"));
  const int theirs = other->AddNode(u"theirs", 1, 0, 0, FolderKind);
  EXPECT_TRUE(tree_->UpdateNodeName(theirs, u"renamed"));
  EXPECT_EQ(other->GetNodes()->front().Name, u"renamed");
  Record(theirs);
  EXPECT_EQ(Shape(), "71<1 72<71");
}

TEST_F(Tree, TreesAreFoundByTheirExactName) {
  CSQLTrees trees;
  trees.Add(tree_, u"Marlow");
  EXPECT_EQ(trees.item(u"Marlow"), tree_);
  EXPECT_THROW(static_cast<void>(trees.item(u"marlow")), vb::Failure);
  EXPECT_THROW(trees.Add(tree_, u"Marlow"), vb::Failure);
  trees.Remove(u"Marlow");
  EXPECT_EQ(trees.Count(), 0U);
}

}  // namespace
}  // namespace tessel
