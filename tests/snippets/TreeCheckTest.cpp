#include "snippets/TreeCheck.h"

#include <gtest/gtest.h>

#include <random>

#include "snippets/SnippetDatabase.h"

namespace tessel {
namespace {

class Checking : public testing::Test {
 protected:
  void SetUp() override {
    test::WriteEmptyDatabase(folder_.Path() / "new.mdb");
    connection_ = test::OpenDatabase(folder_.Path() / "new.mdb");
    connection_->Execute(u"PRAGMA synchronous = 0");
    const auto tree = test::OpenTree(connection_);
    tree->AddNode(u"folder", 1, 0, 0, FolderKind);  // 71: 2-7
    tree->AddNode(u"a", 71, 0, 0, RecordKind);      // 72: 3-4
    tree->AddNode(u"b", 71, 0, 0, RecordKind);      // 73: 5-6
    tree->AddNode(u"last", 1, 0, 0, RecordKind);    // 74: 8-9
    for (const int id : {72, 73, 74}) tree->InsertIdTableList(id);
  }
  void Break(StringView statement) {
    connection_->Execute(u"PRAGMA foreign_keys = 0");
    connection_->Execute(statement);
    connection_->Execute(u"PRAGMA foreign_keys = 1");
  }
  /// What was found; afterwards nothing may be left to find.
  std::vector<String> Mend() {
    const auto looked = CheckTree(connection_, false);
    auto found = CheckTree(connection_, true);
    EXPECT_EQ(found, looked);
    EXPECT_EQ(test::Unsound(test::RowsOf(connection_)), "");
    EXPECT_TRUE(CheckTree(connection_, true).empty());
    return found;
  }
  std::vector<int> Order() {
    std::vector<int> ids;
    for (const auto& row : test::RowsOf(connection_)) ids.push_back(row.ID);
    return ids;
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<store::Connection> connection_;
};

using Found = std::vector<String>;

TEST_F(Checking, ASoundTreeIsLeftAsItIs) {
  const auto before = test::RowsOf(connection_);
  EXPECT_EQ(Mend(), Found{});
  EXPECT_EQ(test::RowsOf(connection_), before);
}

TEST_F(Checking, AnIndexThatDoesNotFitItsTableIsMadeAnew) {
  // The records of the fixture come in while the index isn't there.
  Break(u"CREATE TABLE Aside AS SELECT * FROM sqlite_master WHERE name = 'ListObjects'");
  const auto reopened = [&] {
    return connection_ = test::OpenDatabase(folder_.Path() / "new.mdb");
  };
  Break(u"PRAGMA writable_schema = 1");
  Break(u"DELETE FROM sqlite_master WHERE name = 'ListObjects'");
  const auto tree = test::OpenTree(reopened());
  for (const StringView name : {u"c", u"d"}) {
    tree->InsertIdTableList(tree->AddNode(name, 71, 0, 0, RecordKind));
  }
  Break(u"PRAGMA writable_schema = 1");
  Break(u"INSERT INTO sqlite_master SELECT * FROM Aside");
  reopened();
  Break(u"DROP TABLE Aside");
  const auto before = test::RowsOf(connection_);
  const Found wanted{u"An index didn't fit its table; all are made anew"};
  EXPECT_EQ(CheckTree(connection_, false), wanted);
  EXPECT_EQ(Mend(), wanted);
  EXPECT_EQ(test::RowsOf(connection_), before);
  EXPECT_EQ(test::ListIdsOf(connection_), (std::vector<int>{72, 73, 74, 75, 76}));
}

TEST_F(Checking, LookingChangesNothing) {
  Break(u"UPDATE Tree SET lft = lft + 5, rgt = rgt + 5 WHERE ID > 1");
  const auto before = test::RowsOf(connection_);
  EXPECT_FALSE(CheckTree(connection_, false).empty());
  EXPECT_EQ(test::RowsOf(connection_), before);
}

TEST_F(Checking, GapsAreClosed) {
  const auto before = test::RowsOf(connection_);
  Break(u"UPDATE Tree SET lft = lft * 3, rgt = rgt * 3");
  EXPECT_EQ(Mend(), Found{u"The numbers had gaps or were used twice; 5 nodes are numbered anew"});
  EXPECT_EQ(test::RowsOf(connection_), before);
}

TEST_F(Checking, OverlapsOrphansAndNodesWithoutAPlaceAreNamed) {
  Break(u"UPDATE Tree SET rgt = 8 WHERE ID = 73");
  EXPECT_EQ(Mend(), Found{u"73 \"b\" overlapped 71 \"folder\""});
  EXPECT_EQ(Order(), (std::vector<int>{1, 71, 72, 73, 74}));
  Break(u"UPDATE Tree SET lft = 1000008, rgt = 1000009 WHERE ID = 72");
  EXPECT_EQ(Mend(), Found{u"72 \"a\" stood outside the top"});
  EXPECT_EQ(Order(), (std::vector<int>{1, 71, 73, 74, 72}));
  Break(u"UPDATE Tree SET lft = NULL WHERE ID = 73");
  EXPECT_EQ(Mend(), Found{u"73 \"b\" had no place"});
  EXPECT_EQ(Order(), (std::vector<int>{1, 71, 74, 72, 73}));
}

TEST_F(Checking, WhatStandsBelowARecordGoesToItsFolder) {
  Break(u"UPDATE Tree SET Root = 0 WHERE ID = 71");
  const Found found = Mend();
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0], u"72 \"a\" stood below the record 71 \"folder\"");
  EXPECT_EQ(found[2], u"The record 71 \"folder\" had no contents");
  EXPECT_EQ(Order(), (std::vector<int>{1, 71, 72, 73, 74}));
}

TEST_F(Checking, NodesOfNoKindBecomeWhatTheyHold) {
  Break(u"UPDATE Tree SET Root = NULL WHERE ID = 72");
  Break(u"UPDATE Tree SET Root = 7 WHERE ID = 71");
  Break(u"UPDATE Tree SET Root = 'x' WHERE ID = 74");
  Break(u"DELETE FROM List WHERE Id = 74");
  EXPECT_EQ(Mend(), (Found{u"71 \"folder\" was neither folder nor record; it is a folder now",
                           u"72 \"a\" was neither folder nor record; it is a record now",
                           u"74 \"last\" was neither folder nor record; it is a folder now"}));
  std::string kinds;
  for (const auto& row : test::RowsOf(connection_)) kinds += std::to_string(row.Root);
  EXPECT_EQ(kinds, "11001");
  EXPECT_EQ(Order(), (std::vector<int>{1, 71, 72, 73, 74}));
}

TEST_F(Checking, TheTopIsAFolder) {
  for (const StringView kind : {u"0", u"NULL", u"5"}) {
    Break(u"UPDATE Tree SET Root = " + String(kind) + u" WHERE ID = 1");
    EXPECT_EQ(Mend(), Found{u"The top was no folder"});
    EXPECT_EQ(test::ListIdsOf(connection_), (std::vector<int>{72, 73, 74})) << "none for the top";
  }
}

TEST_F(Checking, RecordsWithoutRowsAndRowsWithoutRecordsComeTogether) {
  Break(u"DELETE FROM List WHERE Id = 72");
  Break(u"DELETE FROM Tree WHERE ID = 73");
  Break(u"UPDATE List SET Text = 'kept' WHERE Id = 73");
  const Found found = Mend();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0], u"The contents of record 73 had no node");
  EXPECT_EQ(found[1], u"The record 72 \"a\" had no contents");
  EXPECT_EQ(test::OpenTree(connection_)->GetRecordsetFromList(73).Text, u"kept");
  EXPECT_EQ(test::RowsOf(connection_).back().Name, u"Record 73");
}

TEST_F(Checking, ATreeWithoutATopGetsOne) {
  Break(u"DELETE FROM Tree WHERE ID = 1");
  EXPECT_EQ(Mend().front(), u"The tree had no top");
  EXPECT_EQ(Order(), (std::vector<int>{1, 71, 72, 73, 74}));
}

TEST_F(Checking, AnyDamageIsMendedAndNoNodeIsLost) {
  std::mt19937 random(4);
  const auto number = [&] { return random() % 9 == 0 ? String(u"NULL") : vb::Str(random() % 14); };
  for (int round = 0; round < 200; ++round) {
    for (const int id : {1, 71, 72, 73, 74}) {
      Break(u"UPDATE Tree SET lft = " + number() + u", rgt = " + number() + u", Root = " +
            (random() % 5 == 0 ? number() : vb::Str(random() % 2)) + u" WHERE ID = " +
            vb::Str(id == 1 && round % 2 == 0 ? 0 : id));
    }
    Mend();
    auto ids = Order();
    std::sort(ids.begin(), ids.end());
    ASSERT_EQ(ids, (std::vector<int>{1, 71, 72, 73, 74})) << "round " << round;
  }
}

}  // namespace
}  // namespace tessel
