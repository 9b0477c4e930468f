#include "store/RowStream.h"

#include <gtest/gtest.h>

#include "store/MemoryDatabase.h"
#include "store/Seeds.h"
#include "store/StoredText.h"
#include "support/TemporaryFolder.h"

namespace tessel::store {
namespace {

constexpr std::string_view ThreeRows =
    "CREATE TABLE N (ID INTEGER PRIMARY KEY, Name TEXT, Size);"
    "INSERT INTO N VALUES (1, 'one', 7), (2, NULL, 'many'), (3, '', 0.5);";

TEST(RowStream, ShowsEachRowOnceAndNothingBehindTheLast) {
  RowStream rows(u"SELECT ID, Name, Size FROM N ORDER BY ID DESC", test::InMemory(ThreeRows));
  std::vector<std::string> seen;
  while (rows.Next()) {
    seen.push_back(std::to_string(rows.Whole(0)) + ":" + std::string(rows.StoredText(1)));
  }
  EXPECT_EQ(seen, (test::Texts{"3:", "2:", "1:one"}));
  EXPECT_FALSE(rows.Next()) << "it doesn't begin anew";
}

TEST(RowStream, WhatIsOfAnotherKindReadsAsNothing) {
  RowStream rows(u"SELECT Size, ID FROM N ORDER BY ID", test::InMemory(ThreeRows));
  ASSERT_TRUE(rows.Next());
  EXPECT_EQ(rows.Whole(0), 7);
  EXPECT_EQ(rows.StoredText(0), "");
  ASSERT_TRUE(rows.Next());
  EXPECT_EQ(rows.Whole(0), 0);
  EXPECT_EQ(rows.StoredText(0), "many");
  ASSERT_TRUE(rows.Next());
  EXPECT_EQ(rows.Whole(0), 0);
  EXPECT_EQ(rows.StoredText(0), "");
}

TEST(RowStream, ATextHasAllItsUnits) {
  const auto connection = test::InMemory(ThreeRows);
  const String odd = String(u"a\xd83d\xde00") + char16_t{0xD83D} + String(1, u'\0') + u"b";
  Command(connection, u"INSERT INTO N (ID, Name) VALUES (@a, @b)").Execute({std::int64_t{9}, odd});
  RowStream rows(u"SELECT Name FROM N WHERE ID = 9", connection);
  ASSERT_TRUE(rows.Next());
  EXPECT_EQ(FromStored(rows.StoredText(0)), odd);
}

TEST(RowStream, ADatabaseInAnotherEncodingReadsAlike) {
  const std::string wide(2000, 'w');
  for (const char* const encoding : {"UTF-8", "UTF-16le", "UTF-16be"}) {
    const auto connection = test::InMemory("PRAGMA encoding = '" + std::string(encoding) + "';" +
                                           "CREATE TABLE N (ID INTEGER PRIMARY KEY, Name TEXT);"
                                           "INSERT INTO N VALUES (1, 'Gr\xC3\xB6\xC3\x9F"
                                           "e'), (2, x'C3B6'), (3, '" +
                                           wide + "')");
    ASSERT_EQ(test::FirstColumn(u"PRAGMA encoding", connection), test::Texts{encoding});
    Command(connection, u"INSERT INTO N (ID, Name) VALUES (@a, @b)")
        .Execute({std::int64_t{4}, String(u"\xd83d\xde00 a") + char16_t{0} + u"b"});
    const test::Texts all{
        "Gr\xC3\xB6\xC3\x9F"
        "e",
        "\xC3\xB6", wide, std::string("\xF0\x9F\x98\x80 a\0b", 8)};
    RowStream rows(u"SELECT Name FROM N ORDER BY ID", connection);
    test::Texts shown;
    while (rows.Next()) shown.emplace_back(rows.StoredText(0));
    EXPECT_EQ(shown, all) << encoding;
    EXPECT_EQ(test::FirstColumn(u"SELECT Name FROM N ORDER BY ID", connection), all) << encoding;
    EXPECT_EQ(test::FirstColumn(u"SELECT ID FROM N WHERE Name = 'gr\xF6\xDF"
                                u"E'",
                                connection),
              test::Texts{"1"})
        << encoding;
  }
}

TEST(RowStream, AStatementThatIsNoneOrNeedsAllItsRowsFails) {
  const auto connection = test::InMemory("CREATE TABLE Tree (ID, Name, lft, rgt, Root)");
  EXPECT_THROW(RowStream(u"SELECT ID FROM Nowhere", connection), vb::Failure);
  EXPECT_THROW(RowStream(u"SELECT ID FROM Tree", nullptr), vb::Failure);
  EXPECT_THROW(
      RowStream(u"SELECT K2.ID, K2.Name, Count(*) AS lvl, K2.Root FROM Tree AS K1, Tree AS K2 "
                u"WHERE K2.lft Between K1.lft And K1.rgt "
                u"GROUP BY K2.ID, K2.Name, K2.Root, K2.lft ORDER BY K2.lft",
                connection),
      vb::Failure);
}

TEST(RowStream, AConnectionThatWasClosedFails) {
  const auto connection = test::InMemory(ThreeRows);
  RowStream rows(u"SELECT ID FROM N", connection);
  ASSERT_TRUE(rows.Next());
  connection->Close();
  EXPECT_THROW(static_cast<void>(rows.Next()), vb::Failure);
}

TEST(RowStream, OthersWriteBehindTheLastRow) {
  const tessel::test::TemporaryFolder folder;
  const auto file = folder.Path() / "rows.mdb";
  const auto bytes = EmptySnippetDatabase();
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  const auto open = [&] {
    auto connection = std::make_shared<Connection>();
    connection->DataSource = file.u16string();
    connection->Open();
    connection->Execute(u"PRAGMA busy_timeout = 1");
    return connection;
  };
  const auto mine = open(), theirs = open();
  RowStream rows(u"SELECT Name FROM NameMDB", mine);
  ASSERT_TRUE(rows.Next());
  EXPECT_THROW(theirs->Execute(u"DELETE FROM NameMDB"), vb::Failure);
  EXPECT_FALSE(rows.Next());
  theirs->Execute(u"DELETE FROM NameMDB");
  EXPECT_EQ(test::FirstColumn(u"SELECT Name FROM NameMDB", mine), test::Texts{});
}

}  // namespace
}  // namespace tessel::store
