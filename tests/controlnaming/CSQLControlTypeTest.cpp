#include "controlnaming/CSQLControlType.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "store/Recordset.h"
#include "support/SharedDatabase.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

class ControlTypes : public testing::Test {
 protected:
  struct Row {
    String Name, Prefix;
  };
  [[nodiscard]] std::vector<Row> Rows() const {
    store::Recordset records;
    records.Open(u"SELECT * FROM ControlType ORDER BY ControlType.Name", database_.Connection);
    std::vector<Row> rows;
    for (; !records.Eof(); records.MoveNext()) {
      rows.push_back(
          {store::ToText(records.Field(u"Name")), store::ToText(records.Field(u"Prefix"))});
    }
    return rows;
  }
  void Execute(StringView statement) { database_.Connection->Execute(statement); }
  [[nodiscard]] static String Prefix(StringView className) {
    return CSQLControlType().GetPrefixControl(className);
  }

  test::SharedDatabase database_;
};

TEST_F(ControlTypes, EveryDeliveredClassHasItsPrefix) {
  const auto rows = Rows();
  ASSERT_GT(rows.size(), 40U);
  std::set<String> names;
  for (const Row& row : rows) {
    EXPECT_EQ(Prefix(row.Name), row.Prefix) << vb::ToUtf8(row.Name);
    EXPECT_TRUE(names.insert(vb::UCase(row.Name)).second) << vb::ToUtf8(row.Name) << " is double";
    EXPECT_EQ(row.Prefix.size(), 3U) << vb::ToUtf8(row.Name);
    EXPECT_TRUE(std::all_of(row.Prefix.begin(), row.Prefix.end(), [](char16_t unit) {
      return unit >= u'a' && unit <= u'z';
    })) << vb::ToUtf8(row.Name);
  }
}

TEST_F(ControlTypes, NoTwoDeliveredClassesShareAPrefix) {
  std::set<String> prefixes;
  for (const Row& row : Rows()) {
    EXPECT_TRUE(prefixes.insert(row.Prefix).second) << vb::ToUtf8(row.Name);
  }
}

TEST_F(ControlTypes, EveryControlOfTheEnvironmentItselfIsDelivered) {
  for (const StringView name :
       {StringView(u"CheckBox"), StringView(u"ComboBox"),     StringView(u"CommandButton"),
        StringView(u"Data"),     StringView(u"DirListBox"),   StringView(u"DriveListBox"),
        StringView(u"Frame"),    StringView(u"FileListBox"),  StringView(u"HScrollBar"),
        StringView(u"Image"),    StringView(u"Label"),        StringView(u"Line"),
        StringView(u"ListBox"),  StringView(u"Menu"),         StringView(u"OLE"),
        StringView(u"Shape"),    StringView(u"OptionButton"), StringView(u"PictureBox"),
        StringView(u"TextBox"),  StringView(u"Timer"),        StringView(u"VScrollBar")}) {
    EXPECT_NE(Prefix(name), u"") << vb::ToUtf8(name);
  }
  EXPECT_EQ(Prefix(u"CommandButton"), u"cmd");
  EXPECT_EQ(Prefix(u"TextBox"), u"txt");
}

TEST_F(ControlTypes, AnEmptyOrUnknownClassHasNone) {
  EXPECT_EQ(Prefix(u""), u"");
  EXPECT_EQ(Prefix(u"NeverHeardOf"), u"");
}

TEST_F(ControlTypes, AQuoteInAClassIsPartOfItsName) {
  EXPECT_EQ(Prefix(u"A\"b"), u"");
  EXPECT_EQ(Prefix(u"\" OR \"1\"=\"1"), u"");
  Execute(u"INSERT INTO ControlType (Name, Prefix, Enable) VALUES (\"A\"\"b\", \"abc\", Yes)");
  EXPECT_EQ(Prefix(u"A\"b"), u"abc");
}

TEST_F(ControlTypes, ARowThatIsSwitchedOffTakesNoPart) {
  Execute(u"UPDATE ControlType SET Enable=No WHERE Name=\"Timer\"");
  EXPECT_EQ(Prefix(u"Timer"), u"");
  Execute(u"INSERT INTO ControlType (Name, Prefix, Enable) VALUES (\"Timer\", \"clk\", Yes)");
  EXPECT_EQ(Prefix(u"Timer"), u"clk");
}

TEST_F(ControlTypes, ARowWithoutAPrefixGivesNone) {
  Execute(u"UPDATE ControlType SET Prefix=NULL WHERE Name=\"Timer\"");
  EXPECT_EQ(Prefix(u"Timer"), u"");
}

TEST_F(ControlTypes, TheFirstOfTwoRowsCounts) {
  Execute(u"INSERT INTO ControlType (Name, Prefix, Enable) VALUES (\"Timer\", \"clk\", Yes)");
  EXPECT_EQ(Prefix(u"Timer"), u"tmr");
}

TEST(ControlTypesWithoutADatabase, FailsAsOnNothing) {
  ASSERT_EQ(gConnectionMDBs, nullptr);
  EXPECT_THROW(CSQLControlType(), vb::Failure);
}

}  // namespace
}  // namespace tessel
