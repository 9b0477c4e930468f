#include <gtest/gtest.h>

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/files/SystemFiles.h"
#include "store/Command.h"
#include "store/Recordset.h"
#include "store/Seeds.h"
#include "store/Statements.h"
#include "support/EngineWords.h"
#include "support/TemporaryFolder.h"

namespace tessel::store {
namespace {

struct StatementCase {
  StringView Statement;
  const char* Expected;
};

TEST(TranslateStatement, TurnsTheStatementsWordsIntoTheEngines) {
  const StatementCase cases[] = {
      {u"SELECT FormatText.* FROM FormatText", "SELECT FormatText.* FROM FormatText"},
      {u"SELECT * FROM T WHERE (N = \"it's\")", "SELECT * FROM T WHERE (N = 'it''s')"},
      {u"SELECT * FROM T WHERE (N = \"a \"\"b\"\"\")", "SELECT * FROM T WHERE (N = 'a \"b\"')"},
      {u"SELECT TOP 3 a FROM T ORDER BY a", "SELECT a FROM T ORDER BY a LIMIT 3"},
      {u"SELECT a FROM (SELECT TOP 1 b FROM U) AS c",
       "SELECT a FROM (SELECT b FROM U LIMIT 1) AS c"},
      {u"SELECT a FROM T WHERE (T.E=Yes) AND (F = No)",
       "SELECT a FROM T WHERE (T.E=1) AND (F = 0)"},
      {u"SELECT T.No, No FROM T", "SELECT T.No, 0 FROM T"},
      {u"DELETE T.N From T WHERE (T.N=@N)", "DELETE From T WHERE (T.N=@N)"},
      {u"DELETE * FROM T", "DELETE FROM T"},
      {u"UPDATE T SET T.a = 1, T.b = \"x\" WHERE (T.c = 2)",
       "UPDATE T SET a = 1, b = 'x' WHERE (T.c = 2)"},
      {u"SELECT [my name] FROM [a table]", "SELECT \"my name\" FROM \"a table\""},
      {u"SELECT a & b FROM T", "SELECT a || b FROM T"},
  };
  for (const StatementCase& one : cases) {
    EXPECT_EQ(TranslateStatement(one.Statement, {}).Sql, one.Expected);
  }
}

class Database : public testing::Test {
 protected:
  void SetUp() override {
    WriteStandardDatabases(folder_.Path() / "Data", files_);
    connection_ = Open("Data/Personal.MDB");
  }
  [[nodiscard]] std::shared_ptr<Connection> Open(const std::string& name) const {
    auto connection = std::make_shared<Connection>();
    connection->DataSource = (folder_.Path() / name).u16string();
    connection->Open();
    return connection;
  }
  std::string OpenFails(const std::string& name) {
    try {
      static_cast<void>(Open(name));
    } catch (const vb::Failure& failure) {
      return failure.what();
    }
    return "(no failure)";
  }
  test::TemporaryFolder folder_;
  files::SystemFiles files_;
  std::shared_ptr<Connection> connection_;
};

TEST_F(Database, EveryKeyOfTheEngineHasARuleInForce) {
  Recordset records;
  for (const StringView key : test::EngineWords) {
    records.Open(u"SELECT * FROM FormatText WHERE KeyWords = \"" + String(key) + u"\"",
                 connection_);
    ASSERT_EQ(records.RecordCount(), 1U) << vb::ToUtf8(key);
    EXPECT_EQ(records.Field(u"enabled"), Value(true));
  }
}

TEST_F(Database, APendingFieldIsWrittenByUpdateOrByLeavingTheRow) {
  Recordset records;
  records.Open(u"SELECT FormatText.* FROM FormatText", connection_);
  records.SetField(u"Before", std::int64_t{5});
  EXPECT_TRUE(records.IsPending());
  const auto other = Open("Data/Personal.MDB");
  Recordset seen;
  seen.Open(u"SELECT FormatText.* FROM FormatText", other);
  EXPECT_EQ(ToLong(seen.Field(u"Before")), 0);
  records.MoveNext();
  seen.Open(u"SELECT FormatText.* FROM FormatText", other);
  EXPECT_EQ(ToLong(seen.Field(u"Before")), 5);
  EXPECT_THROW(static_cast<void>(records.Field(u"Nothing")), vb::Failure);
}

TEST_F(Database, AnUpdateOfARowThatAnotherWriterChangedFails) {
  Recordset mine, theirs;
  mine.Open(u"SELECT FormatText.* FROM FormatText", connection_);
  const auto other = Open("Data/Personal.MDB");
  theirs.Open(u"SELECT FormatText.* FROM FormatText", other);
  theirs.SetField(u"After", std::int64_t{9});
  theirs.Update();
  mine.SetField(u"After", std::int64_t{3});
  EXPECT_THROW(mine.Update(), vb::Failure);
  EXPECT_EQ(ToLong(mine.Field(u"After")), 0);
}

TEST_F(Database, ACommandRunsWithItsParametersOrNotAtAll) {
  Command command{connection_,
                  u"DELETE FormatText.KeyWords FROM FormatText WHERE KeyWords = @K",
                  {{u"@K", String(u"IF")}}};
  EXPECT_EQ(command.Execute(), 1);
  command.Parameters.clear();
  EXPECT_THROW(command.Execute(), vb::Failure);
}

TEST_F(Database, ATransactionThatIsNotCommittedLeavesNothing) {
  {
    const Transaction transaction(*connection_);
    connection_->Execute(u"DELETE * FROM FormatText");
  }
  Recordset records;
  records.Open(u"SELECT * FROM FormatText", connection_);
  EXPECT_GT(records.RecordCount(), 30U);
}

TEST_F(Database, ATransactionInsideAnotherIsAPartOfIt) {
  const auto count = [&] {
    Recordset records;
    records.Open(u"SELECT * FROM FormatText", connection_);
    return records.RecordCount();
  };
  const std::size_t all = count();
  {
    Transaction whole(*connection_);
    {
      const Transaction part(*connection_);
      connection_->Execute(u"DELETE * FROM FormatText");
    }
    EXPECT_EQ(count(), all) << "the part went back by itself";
    Transaction part(*connection_);
    connection_->Execute(u"DELETE * FROM FormatText");
    part.Commit();
    EXPECT_EQ(count(), 0U);
  }
  EXPECT_EQ(count(), all) << "and with the whole, committed or not";
}

TEST_F(Database, ASnippetDatabaseCascadesAndNeverUsesANumberTwice) {
  const auto snippets = Open("Data/VBCode.MDB");
  Recordset records;
  records.Open(u"SELECT ID FROM Tree WHERE Root = 0", snippets);
  const auto id = ToText(records.Field(u"ID"));
  snippets->Execute(u"DELETE FROM Tree WHERE ID = " + id);
  records.Open(u"SELECT Id FROM List WHERE Id = " + id, snippets);
  EXPECT_EQ(records.RecordCount(), 0U);
  records.Open(u"SELECT Max(ID) AS Last FROM Tree", snippets);
  const int last = ToLong(records.Field(u"Last"));
  snippets->Execute(u"DELETE FROM Tree WHERE ID = " + vb::Str(last));
  snippets->Execute(u"INSERT INTO Tree (Name, lft, rgt, Root) VALUES (\"x\", 98, 99, 0)");
  records.Open(u"SELECT ID FROM Tree WHERE Name = \"x\"", snippets);
  EXPECT_EQ(ToLong(records.Field(u"ID")), last + 1);
}

TEST_F(Database, TheStarterTreeIsANestedSet) {
  const auto snippets = Open("Data/VBCode.MDB");
  Recordset records;
  records.Open(u"SELECT lft, rgt FROM Tree ORDER BY lft", snippets);
  std::vector<int> open;
  for (; !records.Eof(); records.MoveNext()) {
    const int left = ToLong(records.Field(u"lft")), right = ToLong(records.Field(u"rgt"));
    EXPECT_LT(left, right);
    while (!open.empty() && open.back() < left) open.pop_back();
    if (!open.empty()) {
      EXPECT_LT(right, open.back());
    }
    open.push_back(right);
  }
}

TEST_F(Database, AnEmptySnippetDatabaseHasOneRoot) {
  const auto bytes = EmptySnippetDatabase();
  folder_.Write("new.mdb", std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  const auto snippets = Open("new.mdb");
  Recordset records;
  records.Open(u"SELECT ID, Name, lft, rgt, Root FROM Tree", snippets);
  ASSERT_EQ(records.RecordCount(), 1U);
  EXPECT_EQ(ToText(records.Field(u"Name")), u"root");
  records.Open(u"SELECT Name FROM NameMDB", snippets);
  EXPECT_EQ(ToText(records.Field(u"Name")), u"User Database");
  snippets->Execute(u"INSERT INTO Tree (Name) VALUES (\"y\")");
  records.Open(u"SELECT ID FROM Tree WHERE Name = \"y\"", snippets);
  EXPECT_EQ(ToLong(records.Field(u"ID")), 71);
}

TEST_F(Database, AnExistingFileIsNeverTouched) {
  folder_.Write("Other/Personal.MDB", "mine");
  WriteStandardDatabases(folder_.Path() / "Other", files_);
  EXPECT_EQ(folder_.Read("Other/Personal.MDB"), "mine");
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "Other/VBCode.MDB"));
}

TEST_F(Database, NamesTheFileThatCantBeOpened) {
  EXPECT_NE(OpenFails("none.mdb").find("none.mdb: the file does not exist"), std::string::npos);
  EXPECT_NE(OpenFails("Data").find("is a folder"), std::string::npos);
  folder_.Write("bad.mdb", "rubbish, and more of it than a header is long");
  EXPECT_NE(OpenFails("bad.mdb").find("damaged or is no database"), std::string::npos);
  const std::string jet = std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4000, 'x');
  folder_.Write("jet.mdb", jet);
  EXPECT_NE(OpenFails("jet.mdb").find("Microsoft Jet database"), std::string::npos);
  EXPECT_EQ(folder_.Read("jet.mdb"), jet);
  std::string damaged = folder_.Read("Data/Personal.MDB");
  damaged.replace(30, damaged.size() - 30, damaged.size() - 30, 'x');
  folder_.Write("damaged.mdb", damaged);
  EXPECT_NE(OpenFails("damaged.mdb").find("damaged.mdb: "), std::string::npos);
}

TEST_F(Database, TwoProcessesMakeTheStandardFilesOnce) {
  const auto folder = folder_.Path() / "Both";
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  WriteStandardDatabases(folder, files_);
  if (child == 0) _exit(0);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder),
                          std::filesystem::directory_iterator()),
            2);
}

}  // namespace
}  // namespace tessel::store
