#include "hosts/editing/Names.h"

#include <gtest/gtest.h>

#include "support/Modules.h"

namespace tessel::editing {
namespace {

/// "Kind Name line,column" of each declaration.
std::string Listed(StringView text) {
  const model::LineBuffer lines(text);
  std::string listed;
  for (const Declared& one : ReadDeclarations(lines, 1, lines.Count())) {
    static constexpr const char* Kinds[] = {"proc",  "ext",  "event", "var",   "const", "type",
                                            "field", "enum", "value", "param", "local", "label"};
    if (!listed.empty()) listed += ' ';
    listed += std::string(one.Public ? "+" : "") + Kinds[static_cast<int>(one.Kind)] + ":" +
              vb::ToUtf8(one.Name) + "@" + std::to_string(one.Line) + "," +
              std::to_string(one.Column);
  }
  return listed;
}

TEST(Declarations, ReadListsOfVariablesAndConstants) {
  EXPECT_EQ(Listed(u"Dim a, b(1 To 3, 2) As Long, c$\r\nPublic WithEvents d As X"),
            "var:a@1,5 var:b@1,8 var:c@1,30 +var:d@2,19");
  EXPECT_EQ(Listed(u"Const x = f(1, 2), y = 3: Global Const z = 1"),
            "const:x@1,7 const:y@1,20 +const:z@1,40");
}

TEST(Declarations, ReadTypesAndEnumerations) {
  EXPECT_EQ(Listed(u"Private Type T\r\n  Name As String\r\n  Type As Long ' x\r\nEnd Type\r\n"
                   u"Enum E\r\n  eA = 1\r\n  [e b]\r\nEnd Enum\r\nDim v"),
            "type:T@1,14 field:Name@2,3 field:Type@3,3 +enum:E@5,6 +value:eA@6,3 +value:e b@7,3 "
            "var:v@9,5");
}

TEST(Declarations, ReadProceduresWithTheirParametersAndLocals) {
  EXPECT_EQ(Listed(u"Public Function F(ByVal a As Long, Optional b() As X = 3, _\r\n"
                   u"    ParamArray c()) As Long\r\n  Dim d: Static e As Long\r\n"
                   u"again: x = 1\r\n  GoTo again\r\nEnd Function\r\nPrivate Property Get P()"),
            "+proc:F@1,17 param:a@1,25 param:b@1,45 param:c@2,16 local:d@3,7 local:e@3,17 "
            "label:again@4,1 proc:P@7,22");
  EXPECT_EQ(Listed(u"Private Declare Function G Lib \"k\" (ByVal h As Long)\r\nEvent Hit(x)"),
            "ext:G@1,26 +event:Hit@2,7");
}

TEST(Declarations, AreNotTakenFromTextsAndComments) {
  EXPECT_EQ(Listed(u"' Dim a\r\nx = \"Dim b\"\r\nRem Dim c _\r\nDim d\r\n' e _\r\nDim f\r\nDim g"),
            "var:g@7,5");
}

class NamesInProject : public testing::Test {
 protected:
  NamesInProject() {
    world_.Module(u"Module1",
                  u"Public Total As Long\r\nPrivate Hidden\r\nPublic Enum Color\r\n  clRed\r\n"
                  u"End Enum\r\nPublic Sub Work(Amount)\r\n  Dim inner\r\nrestart:\r\n"
                  u"  inner = AMOUNT + total\r\nEnd Sub\r\nPrivate Sub Own()\r\nEnd Sub");
    world_.Module(u"Module2",
                  u"Sub Main()\r\n  Module1.Work total\r\n  x = clred + hidden\r\n"
                  u"  Call Own\r\n  thing.Count = thing.Hidden\r\nEnd Sub");
    world_.Environment.AddComponent(u"", host::vbext_ct_ClassModule, u"Thing",
                                    u"Public Count\r\nPublic Sub Run()\r\n  Me.Run\r\nEnd Sub");
  }
  std::shared_ptr<model::VBComponent> Component(StringView name) {
    return std::dynamic_pointer_cast<model::VBComponent>(world_.Environment.Component(name));
  }
  std::string Found(const std::optional<Definition>& found) {
    if (!found) return "none";
    return vb::ToUtf8(found->Where->PlainName() + u"." + found->What.Name) + " " +
           std::to_string(found->What.Line) + "," + std::to_string(found->What.Column);
  }
  std::string Find(StringView component, int line, StringView name, bool member = false) {
    return Found(names_.Find(*Component(component), line, name, member));
  }
  std::string At(StringView component, int line, int column) {
    return Found(names_.At(*Component(component), line, column));
  }

  test::World world_;
  Names names_;
};

TEST_F(NamesInProject, AreFoundInsideTheProcedureFirst) {
  EXPECT_EQ(Find(u"Module1", 9, u"AMOUNT"), "Module1.Amount 6,17");
  EXPECT_EQ(Find(u"Module1", 9, u"INNER"), "Module1.inner 7,7");
  EXPECT_EQ(Find(u"Module1", 9, u"RESTART"), "Module1.restart 8,1");
  EXPECT_EQ(Find(u"Module1", 11, u"AMOUNT"), "none");
}

TEST_F(NamesInProject, AreSeenFromOtherModulesWhenTheyArePublic) {
  EXPECT_EQ(Find(u"Module2", 2, u"total"), "Module1.Total 1,8");
  EXPECT_EQ(Find(u"Module2", 3, u"CLRED"), "Module1.clRed 4,3");
  EXPECT_EQ(Find(u"Module2", 2, u"work"), "Module1.Work 6,12");
  EXPECT_EQ(Find(u"Module2", 3, u"hidden"), "none");
  EXPECT_EQ(Find(u"Module2", 4, u"own"), "none");
  EXPECT_EQ(Find(u"Module1", 9, u"own"), "Module1.Own 11,13");
  EXPECT_EQ(Find(u"Module2", 5, u"count"), "none");
  EXPECT_EQ(Find(u"Module2", 5, u"count", true), "Thing.Count 1,8");
  EXPECT_EQ(Find(u"Module2", 5, u"THING"), "Thing.Thing 0,0");
}

TEST_F(NamesInProject, AreFoundBehindTheNameOfTheirComponent) {
  EXPECT_EQ(At(u"Module2", 2, 12), "Module1.Work 6,12");
  EXPECT_EQ(At(u"Module2", 2, 4), "Module1.Module1 0,0");
  EXPECT_EQ(At(u"Thing", 3, 7), "Thing.Run 2,12");
  EXPECT_EQ(At(u"Module2", 1, 2), "none");  // a keyword
  EXPECT_EQ(At(u"Module2", 99, 1), "none");
}

TEST_F(NamesInProject, FollowEveryChangeOfTheLines) {
  EXPECT_EQ(Find(u"Module2", 2, u"total"), "Module1.Total 1,8");
  world_.Environment.Component(u"Module1")->CodeModule()->InsertLines(1, u"Public TOTAL2\r\n");
  EXPECT_EQ(Find(u"Module2", 2, u"total"), "Module1.Total 3,8");
  EXPECT_EQ(Find(u"Module2", 2, u"total2"), "Module1.TOTAL2 1,8");
  world_.Environment.Component(u"Module1")->CodeModule()->ReplaceLine(9, u"  Dim outer");
  EXPECT_EQ(Find(u"Module1", 10, u"inner"), "none");
  EXPECT_EQ(Find(u"Module1", 10, u"OUTER"), "Module1.outer 9,7");
}

TEST_F(NamesInProject, AreLookedForInModulesThatWereReadWhenToldTo) {
  const auto other = Component(u"Module1");
  int reads = 0;
  other->AddModule([&reads] {
    ++reads;
    return model::LineBuffer(u"Public Total");
  });
  const auto find = [&](Reach reach) {
    return names_.Find(*Component(u"Module2"), 2, u"TOTAL", false, reach).has_value();
  };
  EXPECT_FALSE(find(Reach::Loaded));
  EXPECT_EQ(reads, 0);
  EXPECT_TRUE(find(Reach::All));
  EXPECT_TRUE(find(Reach::Loaded));
  EXPECT_EQ(reads, 1);
}

TEST_F(NamesInProject, AreNotFoundInProcedureOfAnotherModule) {
  EXPECT_EQ(Find(u"Module2", 2, u"inner"), "none");
  EXPECT_EQ(Find(u"Module2", 2, u""), "none");
}

}  // namespace
}  // namespace tessel::editing
