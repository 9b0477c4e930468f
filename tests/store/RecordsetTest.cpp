#include "store/Recordset.h"

#include <gtest/gtest.h>

#include <functional>

#include "store/MemoryDatabase.h"

namespace tessel::store {
namespace {

using test::FirstColumn;
using test::Texts;

/// The primary key is an index of its own, in another order than that of entry.
constexpr std::string_view Schemes =
    "CREATE TABLE S (Name TEXT NOT NULL PRIMARY KEY, Step INTEGER, Note TEXT);"
    "INSERT INTO S VALUES ('zebra', 1, 'z'), ('Ape', 2, 'a'), ('mouse', 3, 'm'), ('bee', 4, 'b')";

class Records : public testing::Test {
 protected:
  void Open(StringView statement) { records_.Open(statement, connection_); }
  [[nodiscard]] std::string Now(StringView field) const {
    return vb::ToUtf8(ToText(records_.Field(field)));
  }
  /// Name and step of every row, by a connection's plain statement.
  Texts Rows() {
    return FirstColumn(u"SELECT Name & ' ' & Step FROM S ORDER BY Step", connection_);
  }
  static std::int32_t NumberOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const vb::Failure& failure) {
      return failure.Number();
    }
    return 0;
  }

  std::shared_ptr<Connection> connection_ = test::InMemory(Schemes);
  Recordset records_;
};

TEST_F(Records, AnUpdateWritesTheRowThatIsShownOnATableWithAnIndex) {
  // Names alone could be read from the index, in its order.
  for (const StringView statement :
       {u"SELECT S.* FROM S", u"SELECT Name, Step FROM S",
        u"SELECT Name, Step FROM S ORDER BY Name", u"SELECT Name, Step FROM S ORDER BY Step DESC",
        u"SELECT Name, Step FROM S AS T WHERE T.Step > 0 ORDER BY Note"}) {
    Open(statement);
    for (std::size_t row = 0; row < records_.RecordCount(); ++row) {
      records_.MoveTo(row);
      const std::string name = Now(u"Name");
      const std::int32_t step = ToLong(records_.Field(u"Step"));
      records_.SetField(u"Step", std::int64_t{step + 10});
      records_.Update();
      EXPECT_EQ(FirstColumn(u"SELECT Step FROM S WHERE Name = '" + vb::FromUtf8(name) + u"'",
                            connection_),
                Texts{std::to_string(step + 10)})
          << vb::ToUtf8(statement) << " wrote another row than " << name;
    }
  }
  EXPECT_EQ(Rows(), (Texts{"zebra 51", "Ape 52", "mouse 53", "bee 54"}));
}

TEST_F(Records, ANameThatLooksLikeAStatementDoesNotHideTheTable) {
  connection_->Execute(u"UPDATE S SET Name = 'Return FROM here' WHERE Step = 3");
  Open(u"SELECT S.* From S WHERE (S.Name= \"Return FROM here\")");
  records_.SetField(u"Step", std::int64_t{30});
  records_.Update();
  EXPECT_EQ(Rows(), (Texts{"zebra 1", "Ape 2", "bee 4", "Return FROM here 30"}));
}

TEST_F(Records, WhatIsNotARowOfOneTableCannotBeChanged) {
  for (const StringView statement :
       {u"SELECT Count(*) AS Step FROM S", u"SELECT Max(Step) AS Step FROM S",
        u"SELECT DISTINCT Step FROM S", u"SELECT TOP 1 Step FROM S", u"SELECT Step FROM S LIMIT 2",
        u"SELECT Step FROM S UNION SELECT 7", u"SELECT Step FROM S GROUP BY Step",
        u"SELECT a.Step FROM S AS a, S AS b",
        u"SELECT a.Step FROM S AS a INNER JOIN S AS b ON a.Name = b.Name",
        u"SELECT Step FROM (SELECT Step FROM S)"}) {
    Open(statement);
    EXPECT_EQ(NumberOf([&] { records_.SetField(u"Step", std::int64_t{1}); }), StoreFailure)
        << vb::ToUtf8(statement);
    EXPECT_EQ(NumberOf([&] { records_.AddNew(); }), StoreFailure) << vb::ToUtf8(statement);
    EXPECT_EQ(NumberOf([&] { records_.Delete(); }), StoreFailure) << vb::ToUtf8(statement);
  }
}

TEST_F(Records, ASubSelectInTheConditionLeavesTheRowsChangeable) {
  Open(u"SELECT Name, Step FROM S WHERE Step = (SELECT Max(Step) FROM S)");
  records_.SetField(u"Step", std::int64_t{9});
  records_.Update();
  EXPECT_EQ(Rows().back(), "bee 9");
}

TEST_F(Records, AFieldUnderAnotherNameIsWrittenToItsColumnAndAWorkedOutOneIsRefused) {
  Open(u"SELECT Step AS s, Step + 1 AS more FROM S");
  records_.SetField(u"s", std::int64_t{8});
  records_.Update();
  EXPECT_EQ(Rows().back(), "zebra 8");
  EXPECT_EQ(NumberOf([&] { records_.SetField(u"more", std::int64_t{1}); }), StoreFailure);
}

TEST_F(Records, ANewRowStandsAtTheEndAndHasItsNumberOnceWritten) {
  connection_ = test::InMemory(
      "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT, Root INTEGER DEFAULT 7);"
      "INSERT INTO T (ID, Name) VALUES (70, 'first')");
  Open(u"SELECT ID, Name, Root FROM T ORDER BY Name");
  records_.AddNew();
  records_.SetField(u"Name", String(u"aardvark"));
  EXPECT_TRUE(records_.IsPending());
  EXPECT_EQ(FirstColumn(u"SELECT Name FROM T", connection_), Texts{"first"});
  records_.Update();
  EXPECT_EQ(records_.RecordCount(), 2U);
  EXPECT_EQ(records_.Position(), 1U) << "the cursor is static: it doesn't sort again";
  EXPECT_EQ(ToLong(records_.Field(u"ID")), 71);
  EXPECT_EQ(ToLong(records_.Field(u"Root")), 7);
  records_.SetField(u"Root", std::int64_t{8});
  records_.Update();
  EXPECT_EQ(FirstColumn(u"SELECT Name & Root FROM T ORDER BY ID", connection_),
            (Texts{"first7", "aardvark8"}));
  records_.Requery();
  EXPECT_EQ(Now(u"Name"), "aardvark");
}

TEST_F(Records, ANewRowIsWrittenWhenItIsLeftAndGoneWhenItIsCancelled) {
  Open(u"SELECT S.* FROM S");
  records_.MoveTo(2);
  records_.AddNew();
  records_.SetField(u"Name", String(u"x"));
  records_.CancelUpdate();
  EXPECT_EQ(Now(u"Name"), "mouse");
  EXPECT_EQ(records_.RecordCount(), 4U);
  records_.AddNew();
  records_.SetField(u"Name", String(u"x"));
  records_.SetField(u"Step", std::int64_t{5});
  records_.MoveFirst();
  EXPECT_EQ(Rows().back(), "x 5");
}

TEST_F(Records, ARefusedRowStaysPendingUntilItIsCancelled) {
  Open(u"SELECT S.* FROM S");
  records_.AddNew();
  records_.SetField(u"Name", String(u"bee"));
  EXPECT_EQ(NumberOf([&] { records_.Update(); }), StoreFailure);
  EXPECT_EQ(NumberOf([&] { records_.MoveFirst(); }), StoreFailure);
  records_.SetField(u"Name", String(u"wasp"));
  records_.SetField(u"Step", std::int64_t{6});
  records_.Update();
  EXPECT_EQ(Rows().back(), "wasp 6");
}

TEST_F(Records, ADeletedRowLeavesNoCurrentRowUntilTheNextMove) {
  Open(u"SELECT S.* FROM S");
  records_.MoveNext();
  records_.Delete();
  EXPECT_EQ(NumberOf([&] { static_cast<void>(records_.Field(u"Name")); }), 3021);
  EXPECT_EQ(records_.RecordCount(), 3U);
  records_.MoveNext();
  EXPECT_EQ(Now(u"Name"), "mouse");
  records_.Delete();
  records_.MovePrevious();
  EXPECT_EQ(Now(u"Name"), "zebra");
  EXPECT_EQ(Rows(), (Texts{"zebra 1", "bee 4"}));
}

TEST_F(Records, ARowThatAnotherWriterChangedIsNotDeleted) {
  Open(u"SELECT Name, Note FROM S");
  connection_->Execute(u"UPDATE S SET Note = 'theirs' WHERE Name = 'zebra'");
  EXPECT_EQ(NumberOf([&] { records_.Delete(); }), StoreFailure);
  EXPECT_EQ(Rows().size(), 4U);
}

TEST_F(Records, FindsForwardAndBackwardFromTheCurrentRow) {
  Open(u"SELECT Name, Step FROM S");
  records_.Find(u"Step = 3");
  EXPECT_EQ(Now(u"Name"), "mouse");
  records_.Find(u"Step >= 3", 1);
  EXPECT_EQ(Now(u"Name"), "bee");
  records_.Find(u"Name = 'APE'", 0, false);
  EXPECT_EQ(Now(u"Step"), "2");
  records_.Find(u"Name LIKE 'z*'", 0, true);
  EXPECT_TRUE(records_.Eof()) << "it doesn't begin again from the front";
  EXPECT_EQ(NumberOf([&] { records_.Find(u"Step = 1"); }), 3021);
  records_.MoveFirst();
  records_.Find(u"Step = 4", 1, false);
  EXPECT_TRUE(records_.Bof());
  records_.MoveNext();
  EXPECT_EQ(Now(u"Name"), "zebra");
}

TEST_F(Records, AFilterHidesRowsAndIsTakenAwayAgain) {
  Open(u"SELECT Name, Step FROM S");
  records_.SetFilter(u"Step = 2 OR Step > 2 AND [Name] LIKE '%SE'");
  EXPECT_EQ(records_.RecordCount(), 2U);
  EXPECT_EQ(Now(u"Name"), "Ape");
  EXPECT_EQ(ToText(records_.Cell(1, 0)), u"mouse");
  connection_->Execute(u"INSERT INTO S (Name, Step) VALUES ('goose', 7)");
  records_.Requery();
  EXPECT_EQ(records_.RecordCount(), 3U) << "the filter stays";
  EXPECT_EQ(NumberOf([&] { records_.SetFilter(u"Step ="); }), StoreFailure);
  EXPECT_EQ(NumberOf([&] { records_.SetFilter(u"Nothing = 1"); }), 3265);
  EXPECT_EQ(records_.RecordCount(), 3U);
  records_.SetFilter(u"");
  EXPECT_EQ(records_.RecordCount(), 5U);
  records_.SetFilter(u"Step < -1.5");
  EXPECT_TRUE(records_.Bof());
  EXPECT_TRUE(records_.Eof());
}

TEST_F(Records, ABookmarkOutlivesFiltersAndDeletionsButNotANewReading) {
  Open(u"SELECT Name, Step FROM S");
  records_.MoveTo(2);
  const Recordset::Bookmark mouse = records_.Mark();
  records_.MoveFirst();
  records_.Delete();
  records_.SetFilter(u"Step > 2");
  records_.MoveLast();
  records_.MoveTo(mouse);
  EXPECT_EQ(Now(u"Name"), "mouse");
  records_.SetFilter(u"Step = 2");
  EXPECT_EQ(NumberOf([&] { records_.MoveTo(mouse); }), 3021);
  records_.SetFilter(u"");
  records_.Requery();
  EXPECT_EQ(NumberOf([&] { records_.MoveTo(mouse); }), 3021);
}

TEST_F(Records, AMoveBeyondEitherEndFails) {
  Open(u"SELECT Name FROM S WHERE Step = 1");
  records_.MoveNext();
  EXPECT_TRUE(records_.Eof());
  EXPECT_EQ(NumberOf([&] { records_.MoveNext(); }), 3021);
  records_.MovePrevious();
  EXPECT_EQ(Now(u"Name"), "zebra");
  records_.MovePrevious();
  EXPECT_TRUE(records_.Bof());
  EXPECT_FALSE(records_.Eof());
  EXPECT_EQ(NumberOf([&] { records_.MovePrevious(); }), 3021);
  Open(u"SELECT Name FROM S WHERE Step = 0");
  EXPECT_EQ(NumberOf([&] { records_.MoveFirst(); }), 3021);
  EXPECT_EQ(NumberOf([&] { records_.MoveLast(); }), 3021);
}

TEST_F(Records, ACommandTakesItsValuesInTheOrderOfItsParametersAndGivesRows) {
  Command between(connection_, u"SELECT Name, Step FROM S WHERE Step Between @Start And @End");
  records_.Open(between, {std::int64_t{2}, std::int64_t{3}});
  EXPECT_EQ(records_.RecordCount(), 2U);
  records_.SetField(u"Step", std::int64_t{4});
  records_.Update();
  records_.Open(between, {std::int64_t{4}, std::int64_t{4}});
  EXPECT_EQ(records_.RecordCount(), 2U) << "the same command with other values";
  connection_->Execute(u"UPDATE S SET Step = 4");
  records_.Requery();
  EXPECT_EQ(records_.RecordCount(), 4U);

  Command shift(connection_, u"UPDATE S SET Step = Step + @Con , Note = @Con WHERE Name = @N");
  EXPECT_EQ(shift.Execute({std::int64_t{3}, String(u"BEE")}), 1);
  EXPECT_EQ(Rows().back(), "bee 7");
  EXPECT_EQ(NumberOf([&] { shift.Execute({std::int64_t{3}}); }), StoreFailure);
  EXPECT_EQ(between.Execute({std::int64_t{0}, std::int64_t{9}}), 0) << "nothing was changed";
}

TEST_F(Records, ACommandOutlivesTheClosingOfItsConnection) {
  Command all(connection_, u"SELECT Name FROM S");
  records_.Open(all, {});
  connection_->Close();
  EXPECT_EQ(NumberOf([&] { records_.Open(all, {}); }), 3709);
  connection_->OpenMemory("CREATE TABLE S (Name TEXT); INSERT INTO S VALUES ('new')");
  records_.Open(all, {});
  EXPECT_EQ(Now(u"Name"), "new");
}

TEST_F(Records, ATruthValueOfTheOldEngineCanBeChanged) {
  connection_ = test::InMemory("CREATE TABLE T (Enable BOOLEAN); INSERT INTO T VALUES (-1)");
  Open(u"SELECT * FROM T");
  EXPECT_EQ(records_.Field(u"Enable"), Value(true));
  records_.SetField(u"Enable", false);
  records_.Update();
  EXPECT_EQ(FirstColumn(u"SELECT Enable FROM T WHERE Enable = No", connection_), Texts{"False"});
}

TEST_F(Records, EveryUnitOfATextComesBack) {
  String all(u"\0x", 2);
  for (char32_t unit = 0x80; unit <= 0xFFFF; unit += 0x3F) all += static_cast<char16_t>(unit);
  all += u"\xD83D\xDE00\xDC00\xD800\xD800\xD800\xDC00\xDFFF";
  Open(u"SELECT S.* FROM S");
  records_.SetField(u"Note", all);
  records_.Update();
  Open(u"SELECT Note FROM S");
  EXPECT_EQ(records_.Field(u"Note"), Value(all));
}

}  // namespace
}  // namespace tessel::store
