#include <gtest/gtest.h>
#include <sqlite3.h>

#include <random>

#include "store/MemoryDatabase.h"

namespace tessel::store {
namespace {

constexpr std::string_view EmptyTree =
    "CREATE TABLE Tree (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name VARCHAR(255), lft INTEGER, rgt "
    "INTEGER, Root INTEGER); CREATE INDEX \"Left\" ON Tree (lft);";

/// The listings as their callers know them. "#1" and "#2" are numbers; "TOP 1" is "LIMIT 1" to the
/// engine.
constexpr StringView Listings[] = {
    u"SELECT K2.ID, K2.Name, Count(*) AS lvl, K2.Root FROM Tree AS K1, Tree AS K2 WHERE K2.lft "
    u"Between K1.lft And K1.rgt GROUP BY K2.ID, K2.Name, K2.Root, K2.lft ORDER BY K2.lft",
    u"SELECT K2.ID, K2.Name, COUNT(*) AS lvl, K2.Root  FROM Tree as K1, Tree as K2 WHERE K2.lft "
    u"BETWEEN K1.lft AND K1.rgt GROUP BY K2.ID, K2.Name, K2.Root, K2.lft ORDER BY K2.lft",
    u"SELECT K2.ID, K2.Name, COUNT(*) AS lvl  FROM Tree as K1, Tree as K2, Tree as K3 WHERE "
    u"(K2.lft "
    u"BETWEEN K1.lft AND K1.rgt) AND (K1.lft BETWEEN K3.lft AND K3.rgt) AND (K3.ID = #1) GROUP BY "
    u"K2.lft, K2.ID, K2.Name  ORDER BY COUNT(*), K2.ID",
    u"SELECT Count(P2.ID) AS indentation, P1.ID AS tmpID FROM Tree AS P1, tree AS P2 WHERE "
    u"(((P1.lft) Between P2.lft And P2.rgt)) GROUP BY P1.ID Having (((P1.Id) = #1)) ORDER BY P1.ID",
    u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, tree AS P2 WHERE (P1.lft "
    u"Between P2.lft And P2.rgt) GROUP BY P1.ID HAVING ((P1.ID=( SELECT P3.ID FROM Tree As P3 "
    u"Where "
    u"(P3.lft = (SELECT P5.rgt+1 FROM Tree as P5  WHERE (P5.ID= #1 And P5.Root= #2 ))  And "
    u"P3.Root= "
    u"#2  ) ))) ORDER BY P1.ID",
    u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, tree AS P2 WHERE "
    u"(((P1.lft) Between [P2].[lft] And [P2].[rgt])) GROUP BY P1.ID HAVING (((P1.ID)=(SELECT P3.ID "
    u"FROM Tree As P3 Where (P3.rgt = (SELECT P5.lft-1 FROM Tree as P5  WHERE (P5.ID= #1 )) And "
    u"P3.Root=#2 ) ))) ORDER BY P1.ID",
    u"SELECT TOP 1 Count(P2.ID) AS indentation, P1.ID AS tmpID FROM Tree AS P1, tree AS P2 WHERE "
    u"(((P1.lft) Between P2.lft And P2.rgt) AND (P1.Root=#2)) GROUP BY P1.ID Having "
    u"(((Count(P2.Id)) = #1)) ORDER BY P1.ID",
    u"SELECT Top 1  K2.ID FROM Tree AS K1, Tree AS K2 WHERE (((K2.lft) Between [K1].[lft] And "
    u"[K1].[rgt])) GROUP BY K2.ID, K2.Name, K2.Root, K2.lft HAVING (((K2.Root)=1) AND "
    u"(((Count(*))+1)=(SELECT Count(P2.ID) AS LvlID FROM Tree AS P1, tree AS P2 WHERE (((P1.lft) "
    u"Between P2.lft And P2.rgt)) GROUP BY P1.ID Having (P1.Id = #1) ORDER BY P1.ID    ))) ORDER "
    u"BY "
    u"K2.ID DESC , K2.lft"};

class Trees : public testing::Test {
 protected:
  int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

  /// A sound tree; nodes have numbers in any order.
  void FillSound(int nodes) {
    std::vector<int> ids(static_cast<std::size_t>(nodes));
    for (int at = 0; at < nodes; ++at) ids[static_cast<std::size_t>(at)] = at + 1;
    std::shuffle(ids.begin(), ids.end(), random_);
    int number = 0;
    std::vector<std::string> open;
    for (const int id : ids) {
      while (!open.empty() && Random(3) == 0) Close(open, ++number);
      open.push_back(std::to_string(id) + ", 'n" + std::to_string(Random(9)) + "', " +
                     std::to_string(Random(2)) + ", " + std::to_string(++number));
    }
    while (!open.empty()) Close(open, ++number);
  }
  /// Numbers without any sense.
  void FillDamaged(int nodes) {
    const auto number = [&] { return Random(9) == 0 ? "NULL" : std::to_string(Random(nodes * 2)); };
    for (int id = 1; id <= nodes; ++id) {
      std::vector<std::string> one{std::to_string(id) + ", 'x', 1, " + number()};
      Run("INSERT INTO Tree (ID, Name, Root, lft, rgt) VALUES (" + one.back() + ", " + number() +
          ")");
    }
  }
  void Close(std::vector<std::string>& open, int right) {
    Run("INSERT INTO Tree (ID, Name, Root, lft, rgt) VALUES (" + open.back() + ", " +
        std::to_string(right) + ")");
    open.pop_back();
  }
  void Run(const std::string& sql) {
    ASSERT_EQ(sqlite3_exec(tree_->Handle(), sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sql;
  }

  /// The rows as the engine gives them for the text as it stands.
  std::vector<std::string> Plain(StringView listing) {
    String text(listing);
    for (const StringView top : {u"SELECT TOP 1", u"SELECT Top 1 "}) {
      if (listing.starts_with(top)) text = u"SELECT" + text.substr(top.size()) + u" LIMIT 1";
    }
    std::vector<std::string> rows;
    const auto collect = [](void* to, int count, char** cells, char**) {
      std::string& row = static_cast<std::vector<std::string>*>(to)->emplace_back();
      for (int at = 0; at < count; ++at) row += std::string(cells[at] ? cells[at] : "-") + "|";
      return 0;
    };
    char* why = nullptr;
    EXPECT_EQ(sqlite3_exec(tree_->Handle(), vb::ToUtf8(text).c_str(), collect, &rows, &why),
              SQLITE_OK)
        << (why == nullptr ? "" : why);
    return rows;
  }
  std::vector<std::string> Translated(StringView listing) {
    Recordset records;
    records.Open(listing, tree_);
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < records.RecordCount(); ++row) {
      std::string& text = rows.emplace_back();
      for (std::size_t column = 0; column < records.FieldNames().size(); ++column) {
        text += vb::ToUtf8(ToText(records.Cell(row, column))) + "|";
      }
    }
    return rows;
  }
  /// `ordered`: rows of one number have no order of their own in a damaged tree.
  void Compare(int nodes, bool ordered) {
    for (const StringView listing : Listings) {
      for (int round = 0; round < 6; ++round) {
        String text =
            vb::Replace(listing, u"#1", vb::Str(round < 2 ? round + 1 : Random(nodes + 2)));
        text = vb::Replace(text, u"#2", vb::Str(Random(2)));
        auto plain = Plain(text), linear = Translated(text);
        if (!ordered) {
          std::sort(plain.begin(), plain.end());
          std::sort(linear.begin(), linear.end());
        }
        ASSERT_EQ(linear, plain) << vb::ToUtf8(text);
      }
    }
  }

  std::mt19937 random_{20240817};
  std::shared_ptr<Connection> tree_;
};

TEST_F(Trees, AListingGivesTheSameRowsInTheSameOrderWithOneWalk) {
  for (int round = 0; round < 60; ++round) {
    tree_ = test::InMemory(EmptyTree);
    const int nodes = 1 + Random(60);
    FillSound(nodes);
    Compare(nodes, true);
  }
}

TEST_F(Trees, AListingGivesTheSameRowsOverDamagedNumbers) {
  for (int round = 0; round < 60; ++round) {
    tree_ = test::InMemory(EmptyTree);
    FillDamaged(1 + Random(40));
    Compare(40, false);
  }
}

TEST_F(Trees, NoListingJoinsTheTreeWithItselfForEachNode) {
  tree_ = test::InMemory(EmptyTree);
  for (const StringView listing : Listings) {
    String text = vb::Replace(vb::Replace(listing, u"#1", u"@ID"), u"#2", u"-1");
    const std::string sql = tree_->Translate(text).Sql;
    EXPECT_EQ(sql.find("HAVING"), std::string::npos) << sql;
    EXPECT_EQ(sql.find("Having"), std::string::npos) << sql;
    EXPECT_EQ(sql.find("K2"), std::string::npos) << sql;
  }
}

}  // namespace
}  // namespace tessel::store
