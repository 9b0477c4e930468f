#include "connections/CSQLDataType.h"

#include <gtest/gtest.h>

#include "support/SharedDatabase.h"

namespace tessel {
namespace {

class DataTypes : public testing::Test {
 protected:
  void Run(StringView statement) { shared_.Connection->Execute(statement); }
  test::SharedDatabase shared_;
};

TEST_F(DataTypes, StandInTheOrderOfTheirNamesBehindTheFirstItem) {
  Run(u"DELETE * FROM MemberType");
  Run(u"INSERT INTO MemberType (Name, Prefix) VALUES (\"long\", \"lng\")");
  Run(u"INSERT INTO MemberType (Name, Prefix) VALUES (\"Byte\", \"byt\")");
  const CSQLDataType types;
  EXPECT_EQ(*types.GetAllType(NoType), (std::vector<String>{u"(None)", u"Byte", u"long"}));
  EXPECT_EQ(*types.GetAllType(u""), (std::vector<String>{u"Byte", u"long"}));
  const auto rows = types.GetAllTypeMemberVariable(u"first");
  ASSERT_EQ(rows->size(), 3U);
  EXPECT_EQ(rows->at(0).Name, u"first");
  EXPECT_EQ(rows->at(0).Prefix, u"");
  EXPECT_EQ(rows->at(2).Name, u"long");
  EXPECT_EQ(rows->at(2).Prefix, u"lng");
}

TEST_F(DataTypes, RowsWithoutANameArePassedOver) {
  Run(u"DELETE * FROM MemberType");
  Run(u"INSERT INTO MemberType (Name, Prefix) VALUES (NULL, \"x\")");
  EXPECT_EQ(CSQLDataType().GetAllType(u""), std::vector<String>());
  EXPECT_EQ(CSQLDataType().GetAllType(u"a")->size(), 1U);
}

TEST_F(DataTypes, AnEmptyTableGivesNothingAtAll) {
  Run(u"DELETE * FROM MemberType");
  EXPECT_FALSE(CSQLDataType().GetAllType(u"(None)"));
  EXPECT_FALSE(CSQLDataType().GetAllTypeMemberVariable(u""));
}

TEST_F(DataTypes, TheDeliveredTableHasTheUsualTypesEachWithAPrefix) {
  const auto rows = CSQLDataType().GetAllTypeMemberVariable(u"");
  ASSERT_TRUE(rows);
  for (const auto& row : *rows) EXPECT_FALSE(row.Prefix.empty()) << vb::ToUtf8(row.Name);
  for (const StringView name : {u"Boolean", u"Byte", u"Currency", u"Date", u"Double", u"Integer",
                                u"Long", u"Object", u"Single", u"String", u"Variant"}) {
    EXPECT_TRUE(std::any_of(rows->begin(), rows->end(), [&](const auto& row) {
      return row.Name == name;
    })) << vb::ToUtf8(name);
  }
}

}  // namespace
}  // namespace tessel
