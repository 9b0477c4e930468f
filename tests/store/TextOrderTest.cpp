#include "store/TextOrder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "store/MemoryDatabase.h"
#include "support/TemporaryFolder.h"

namespace tessel::store {
namespace {

using test::FirstColumn;
using test::Texts;

constexpr std::string_view Names =
    "CREATE TABLE N (Name TEXT NOT NULL PRIMARY KEY, Rank INTEGER);"
    "CREATE INDEX ByRank ON N (Rank);"
    "INSERT INTO N VALUES ('zoo', 1), ('Öl', 2), ('apple', 3), ('Banana', 4), ('ölig', 5), "
    "('APPLE pie', 6)";

TEST(TextOrder, ComparesTextWithoutRegardToCase) {
  const auto names = test::InMemory(Names);
  for (const StringView condition :
       {u"Name = \"APPLE\"", u"N.Name='Apple'", u"\"apple\" = [Name]", u"Name IN ('APPLE', 'x')",
        u"Name BETWEEN 'APPL' AND 'APPLE'", u"(N.[Name]) = \"aPPle\""}) {
    EXPECT_EQ(FirstColumn(u"SELECT Rank FROM N WHERE " + String(condition), names), Texts{"3"})
        << vb::ToUtf8(condition);
  }
  EXPECT_EQ(FirstColumn(u"SELECT Rank FROM N WHERE Name = 'ÖL'", names), Texts{"2"});
  EXPECT_EQ(FirstColumn(u"SELECT a.Rank FROM N AS a, N AS b WHERE a.Name = UPPER(b.Name) AND "
                        u"a.Rank = 4",
                        names),
            Texts{"4"});
  Command command(names, u"DELETE N.Name FROM N WHERE (N.Name=@Name)",
                  {{u"@Name", String(u"ZOO")}});
  EXPECT_EQ(command.Execute(), 1);
}

TEST(TextOrder, SortsWithoutRegardToCaseAndByEntryAmongEquals) {
  const auto names = test::InMemory(Names);
  const Texts sorted{"apple", "APPLE pie", "Banana", "zoo", "Öl", "ölig"};
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM N ORDER BY N.Name", names), sorted);
  EXPECT_EQ(FirstColumn(u"SELECT Name AS n2 FROM N ORDER BY n2", names), sorted);
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM N ORDER BY 1", names), sorted);
  EXPECT_EQ(FirstColumn(u"SELECT TOP 2 Name FROM N ORDER BY Name DESC", names),
            (Texts{"ölig", "Öl"}));
  names->Execute(u"UPDATE N SET Rank = 0");
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM N ORDER BY Rank", names),
            (Texts{"zoo", "Öl", "apple", "Banana", "ölig", "APPLE pie"}));
}

TEST(TextOrder, RowsComeInTheOrderOfEntryWhereNothingElseIsSaid) {
  const auto names = test::InMemory(Names);
  const Texts entered{"zoo", "Öl", "apple", "Banana", "ölig", "APPLE pie"};
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM N", names), entered);
  EXPECT_EQ(FirstColumn(u"SELECT N.Name FROM N;", names), entered);
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM N AS M WHERE M.Rank > 0", names), entered);
  EXPECT_EQ(FirstColumn(u"SELECT TOP 1 Name FROM N", names), Texts{"zoo"});
}

TEST(TextOrder, TablesWithoutRowNumbersAndViewsAreReadAsTheyAre) {
  const auto names = test::InMemory(
      "CREATE TABLE W (Name TEXT PRIMARY KEY) WITHOUT ROWID; INSERT INTO W VALUES ('b'), ('A');"
      "CREATE VIEW V AS SELECT Name FROM W");
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM W ORDER BY Name", names), (Texts{"A", "b"}));
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM V", names).size(), 2U);
}

TEST(TextOrder, TablesMadeLaterAreKnownAsWell) {
  const auto names = test::InMemory(Names);
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM N WHERE Name = 'ZOO'", names), Texts{"zoo"});
  names->Execute(
      u"CREATE TABLE L (Word TEXT, Id INTEGER PRIMARY KEY, Up INTEGER REFERENCES L (Id) "
      u"ON DELETE CASCADE, Name TEXT)");
  names->Execute(u"INSERT INTO L (Word) VALUES ('Yes')");
  EXPECT_EQ(FirstColumn(u"SELECT Word FROM L WHERE Word = 'yes'", names), Texts{"Yes"});
}

TEST(TextOrder, AnIndexOnNumbersStaysOfUse) {
  const auto names = test::InMemory(Names);
  Recordset plan;
  plan.Open(
      u"EXPLAIN QUERY PLAN " +
          vb::FromUtf8(names->Translate(u"SELECT Name FROM N WHERE Rank > 1 ORDER BY Rank").Sql),
      names);
  EXPECT_EQ(plan.RecordCount(), 1U) << "no sorting behind the search";
  EXPECT_NE(ToText(plan.Cell(0, 3)).find(u"ByRank"), String::npos);
}

TEST(TextOrder, AUsersDatabaseOfAnyAgeHasIt) {
  const tessel::test::TemporaryFolder folder;
  sqlite3* db = nullptr;
  const auto file = folder.Path() / "old.mdb";
  ASSERT_EQ(sqlite3_open(file.c_str(), &db), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(db, std::string(Names).c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(db);
  const auto connection = std::make_shared<Connection>();
  connection->DataSource = file.u16string();
  connection->Open();
  EXPECT_EQ(FirstColumn(u"SELECT Rank FROM N WHERE Name = 'öL'", connection), Texts{"2"});
  connection->Execute(u"UPDATE N SET Rank = 20 WHERE Name = 'ÖL'");
  connection->Close();
  // The file names no order that another program would lack.
  ASSERT_EQ(sqlite3_open(file.c_str(), &db), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(db, "REINDEX; SELECT * FROM N ORDER BY Name", nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(db);
}

}  // namespace
}  // namespace tessel::store
