#include "hosts/model/AttributeKeeper.h"

#include <gtest/gtest.h>

#include <random>

namespace tessel::model {
namespace {

/// A module written as its file has it: a line "Attribute Foo.x" hangs on the line ahead of it.
class Module {
 public:
  explicit Module(StringView file) {
    String visible;
    for (const StringView line : CutLines(file)) {
      if (!IsAttribute(line)) visible += String(visible.empty() ? u"" : u"\r\n") + String(line);
    }
    lines_ = LineBuffer(visible);
    index_.emplace(lines_);
    int at = 0, order = 0;
    for (const StringView line : CutLines(file)) {
      if (!IsAttribute(line)) {
        ++at;
        continue;
      }
      HiddenLines hidden = lines_.HiddenAt(at);
      const String owner(line.substr(10, line.find(u'.') - 10));
      int kind = VariableKind;
      for (const auto& one : DeclarationsIn(lines_, at, 1, lines_.Count())) {
        if (one.Name == owner) kind = one.Kind;
      }
      hidden.push_back({owner, String(line), LineEnd::CrLf, kind, order++});
      lines_.SetHidden(at, std::move(hidden));
    }
    keeper_.emplace(lines_, *index_);
  }

  void Insert(int line, StringView text) { keeper_->Insert(line, text); }
  void Delete(int first, int count) { keeper_->Delete(first, count); }
  void Replace(int line, int count, StringView text) { keeper_->Replace(line, count, text); }
  void SetText(StringView text) {
    Delete(1, lines_.Count());
    Insert(1, text);
  }
  [[nodiscard]] int Count() const { return lines_.Count(); }
  [[nodiscard]] String Lines(int first, int count) const { return lines_.Text(first, count); }
  [[nodiscard]] int LineOf(StringView text) const {
    for (int line = 1; line <= lines_.Count(); ++line) {
      if (lines_.Line(line) == text) return line;
    }
    return 0;
  }

  /// As it would be written.
  String File() {
    keeper_->Settle();
    String file;
    for (int line = 1; line <= lines_.Count(); ++line) {
      file += String(line == 1 ? u"" : u"\r\n") + String(lines_.Line(line));
      for (const HiddenLine& one : lines_.HiddenAt(line)) {
        if (!one.Idle) file += u"\r\n" + one.Text;
      }
    }
    return file;
  }

 private:
  static bool IsAttribute(StringView line) { return vb::StartsWithText(line, u"Attribute "); }
  LineBuffer lines_;
  std::optional<MemberIndex> index_;
  std::optional<AttributeKeeper> keeper_;
};

String Lines(std::initializer_list<StringView> lines) {
  return vb::Join(std::vector<String>(lines.begin(), lines.end()), vb::CrLf);
}

const String Twice = Lines({u"Option Explicit", u"#If VBA7 Then", u"Sub Foo(a As LongPtr)",
                            u"x = 1", u"End Sub", u"#Else", u"Sub Foo(a As Long)",
                            u"Attribute Foo.VB_D = 2", u"x = 2", u"End Sub", u"#End If"});

TEST(AttributeKeeper, ALineAheadMovesAttributesWithTheirDeclarations) {
  Module module(Twice);
  module.Insert(1, u"' new");
  EXPECT_EQ(module.File(), u"' new\r\n" + Twice);
  module.Delete(1, 1);
  EXPECT_EQ(module.File(), Twice);
}

TEST(AttributeKeeper, ARewrittenSecondDeclarationKeepsItsOwn) {
  Module module(Twice);
  const int line = module.LineOf(u"Sub Foo(a As Long)");
  module.Delete(line, 3);
  module.Insert(line, u"  Sub Foo( a As Long )\r\n    x = 2\r\n  End Sub");
  const String expected =
      Lines({u"Option Explicit", u"#If VBA7 Then", u"Sub Foo(a As LongPtr)", u"x = 1", u"End Sub",
             u"#Else", u"  Sub Foo( a As Long )", u"Attribute Foo.VB_D = 2", u"    x = 2",
             u"  End Sub", u"#End If"});
  EXPECT_EQ(module.File(), expected);
  // The first one too: it had none and gets none.
  module.Delete(3, 3);
  module.Insert(3, u"Sub Foo(b)\r\nEnd Sub");
  String other = expected;
  const String before = u"Sub Foo(a As LongPtr)\r\nx = 1\r\nEnd Sub";
  other.replace(other.find(before), before.size(), u"Sub Foo(b)\r\nEnd Sub");
  EXPECT_EQ(module.File(), other);
}

TEST(AttributeKeeper, BothDeletedAheadOfBothInsertionsFindTheirPlaces) {
  Module module(Twice);
  module.Delete(7, 3);
  module.Delete(3, 3);
  module.Insert(3, u"Sub Foo(q)\r\nEnd Sub");
  module.Insert(6, u"Sub Foo(p)\r\nEnd Sub");
  EXPECT_EQ(module.File(),
            Lines({u"Option Explicit", u"#If VBA7 Then", u"Sub Foo(q)", u"End Sub", u"#Else",
                   u"Sub Foo(p)", u"Attribute Foo.VB_D = 2", u"End Sub", u"#End If"}));
}

TEST(AttributeKeeper, AWholeTextSetAnewGivesTheNthOfANameItsOwn) {
  Module module(Twice);
  const String text = Lines({u"'", u"#If VBA7 Then", u"Sub Foo (a)", u"End Sub", u"#Else",
                             u"Sub Foo (a)", u"End Sub", u"#End If"});
  module.SetText(text);
  String expected = text;
  expected.insert(expected.rfind(u"\r\nEnd Sub"), u"\r\nAttribute Foo.VB_D = 2");
  EXPECT_EQ(module.File(), expected);
}

TEST(AttributeKeeper, ABodyInsertedLineByLineGetsItsOwn) {
  Module module(Twice);
  module.Delete(2, 9 - 2 + 2 - 1);
  int at = 2;
  for (const StringView line : {u"#If VBA7 Then", u" Sub Foo(a As LongPtr)", u" End Sub", u"#Else",
                                u" Sub Foo(a As Long)", u" End Sub"}) {
    module.Insert(at++, line);
  }
  const String file = module.File();
  EXPECT_NE(file.find(u" Sub Foo(a As Long)\r\nAttribute Foo.VB_D = 2\r\n End Sub"), String::npos)
      << vb::ToUtf8(file);
}

TEST(AttributeKeeper, ADeletedDeclarationTakesItsAttributesAlongAndBringsThemBack) {
  Module module(Twice);
  module.Delete(7, 3);
  EXPECT_EQ(module.File().find(u"Attribute"), String::npos);
  EXPECT_EQ(module.LineOf(u"Sub Foo(a As LongPtr)"), 3);
  // Pasted below everything.
  module.Insert(module.Count() + 1, u"Sub Foo(a As Long)\r\nEnd Sub");
  EXPECT_TRUE(module.File().ends_with(u"Sub Foo(a As Long)\r\nAttribute Foo.VB_D = 2\r\nEnd Sub"));
}

TEST(AttributeKeeper, TheFirstOfTwoDeletedDoesNotGiveItsAttributesToTheOther) {
  Module module(Lines({u"#If A Then", u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub", u"#Else",
                       u"Sub Foo()", u"End Sub", u"#End If"}));
  module.Replace(2, 3, u"#Else");
  EXPECT_EQ(module.File(), Lines({u"#If A Then", u"#Else", u"Sub Foo()", u"End Sub", u"#End If"}));
}

TEST(AttributeKeeper, AMemberCopiedAheadOfTheDeletionOfItsOriginalTakesOver) {
  Module module(
      Lines({u"Sub A()", u"End Sub", u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub"}));
  module.Insert(1, u"Sub Foo()\r\nEnd Sub");
  EXPECT_EQ(module.File(), Lines({u"Sub Foo()", u"End Sub", u"Sub A()", u"End Sub", u"Sub Foo()",
                                  u"Attribute Foo.VB_D = 1", u"End Sub"}))
      << "the copy has none of its own";
  module.Delete(5, 2);
  EXPECT_EQ(module.File(),
            Lines({u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub", u"Sub A()", u"End Sub"}));
}

TEST(AttributeKeeper, ARenamedDeclarationKeepsItsAttributesUnderTheNewName) {
  Module module(
      Lines({u"Sub Foo()", u"Attribute Foo.VB_D = \"Foo\"", u"End Sub", u"Sub B()", u"End Sub"}));
  module.Replace(1, 1, u"Sub Bar()");
  EXPECT_EQ(module.File(), Lines({u"Sub Bar()", u"Attribute Bar.VB_D = \"Foo\"", u"End Sub",
                                  u"Sub B()", u"End Sub"}));
  // Typed over letter by letter, with no declaration there for a while.
  for (const StringView text : {u"Sub Ba()", u"Sub B()", u"Sub ()", u"", u"P", u"Function Q"}) {
    module.Replace(1, 1, text);
  }
  EXPECT_EQ(module.File(), Lines({u"Function Q", u"Attribute Q.VB_D = \"Foo\"", u"End Sub",
                                  u"Sub B()", u"End Sub"}));
  // By a tool that takes the member out and puts it back under another name.
  module.Delete(1, 2);
  module.Insert(1, u"Function R\r\nEnd Function");
  EXPECT_TRUE(module.File().starts_with(u"Function R\r\nAttribute R.VB_D"));
  // Something else in its place is no renaming.
  module.Delete(1, 2);
  module.Insert(1, u"Sub Other()\r\nBeep\r\nEnd Sub");
  EXPECT_EQ(module.File().find(u"Attribute"), String::npos);
}

TEST(AttributeKeeper, ALineThatIsNoDeclarationForAWhileIsWrittenWithoutAttributes) {
  Module module(Lines({u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub"}));
  module.Replace(1, 1, u"'Sub Foo()");
  EXPECT_EQ(module.File(), Lines({u"'Sub Foo()", u"End Sub"}));
  module.Replace(1, 1, u"Sub Foo()");
  EXPECT_EQ(module.File(), Lines({u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub"}));
}

TEST(AttributeKeeper, LinesInsertedInFrontWithinOneEditLeaveTheDeclarationItsOwn) {
  Module module(Lines({u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub"}));
  module.Replace(1, 1, u"\r\nSub Foo()");
  EXPECT_EQ(module.File(), Lines({u"", u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub"}));
  module.Replace(1, 2, u"Sub Foo()");
  module.Replace(1, 1, u"Sub Foo(a, _\r\n  b)");
  EXPECT_EQ(module.File(),
            Lines({u"Sub Foo(a, _", u"Attribute Foo.VB_D = 1", u"  b)", u"End Sub"}));
}

TEST(AttributeKeeper, VariablesOfOneLineTakeTheirOwnToTheirOwnLines) {
  Module module(Lines({u"Private WithEvents t As Timer, WithEvents u As Timer",
                       u"Attribute t.VB_VarHelpID = -1", u"Attribute u.VB_VarHelpID = -2",
                       u"Sub A()", u"End Sub"}));
  module.Delete(1, 1);
  module.Insert(1, u"Private WithEvents u As Timer\r\nPrivate WithEvents t As Timer");
  EXPECT_EQ(module.File(),
            Lines({u"Private WithEvents u As Timer", u"Attribute u.VB_VarHelpID = -2",
                   u"Private WithEvents t As Timer", u"Attribute t.VB_VarHelpID = -1", u"Sub A()",
                   u"End Sub"}));
  // A local variable of that name is somebody else.
  module.SetText(u"Sub A()\r\nDim t As Timer\r\nEnd Sub");
  EXPECT_EQ(module.File(), u"Sub A()\r\nDim t As Timer\r\nEnd Sub");
  module.SetText(u"Private WithEvents tick As Timer, u\r\nSub A()\r\nEnd Sub");
  EXPECT_EQ(module.File(), Lines({u"Private WithEvents tick As Timer, u",
                                  u"Attribute u.VB_VarHelpID = -2", u"Sub A()", u"End Sub"}));
}

TEST(AttributeKeeper, PropertiesOfOneNameAreToldApartByTheirKind) {
  const String file = Lines({u"Property Get V()", u"Attribute V.VB_D = 1", u"End Property",
                             u"Property Let V(x)", u"Attribute V.VB_D = 2", u"End Property"});
  Module module(file);
  module.SetText(u"Property Let V(x)\r\nEnd Property\r\nProperty Get V()\r\nEnd Property");
  EXPECT_EQ(module.File(), Lines({u"Property Let V(x)", u"Attribute V.VB_D = 2", u"End Property",
                                  u"Property Get V()", u"Attribute V.VB_D = 1", u"End Property"}));
}

TEST(AttributeKeeper, OneOfTwoThatWentAwayIsToldByItsNeighbours) {
  Module module(Lines({u"Sub A()", u"End Sub", u"Sub Foo()", u"Attribute Foo.VB_D = 1", u"End Sub",
                       u"Sub B()", u"End Sub", u"Sub Foo()", u"Attribute Foo.VB_D = 2", u"End Sub",
                       u"Sub C()", u"End Sub"}));
  module.SetText(Lines({u"Sub A()", u"End Sub", u"Sub B()", u"End Sub", u"Sub Foo(x)", u"End Sub",
                        u"Sub C()", u"End Sub"}));
  EXPECT_NE(module.File().find(u"Foo.VB_D = 2"), String::npos);
  EXPECT_EQ(module.File().find(u"Foo.VB_D = 1"), String::npos);
}

TEST(AttributeKeeper, SeveralRenamedByOneRewritingKeepTheirsByTheirPlaces) {
  Module module(Lines({u"Sub T_Go()", u"Attribute T_Go.VB_D = 1", u"End Sub", u"Sub T_Stop()",
                       u"Attribute T_Stop.VB_D = 2", u"End Sub", u"Sub Stays()",
                       u"Attribute Stays.VB_D = 3", u"End Sub"}));
  module.SetText(
      Lines({u"Sub N_Go()", u"End Sub", u"Sub N_Stop()", u"End Sub", u"Sub Stays()", u"End Sub"}));
  EXPECT_EQ(module.File(), Lines({u"Sub N_Go()", u"Attribute N_Go.VB_D = 1", u"End Sub",
                                  u"Sub N_Stop()", u"Attribute N_Stop.VB_D = 2", u"End Sub",
                                  u"Sub Stays()", u"Attribute Stays.VB_D = 3", u"End Sub"}));
}

TEST(AttributeKeeper, WhatStandsApartFromItsOwnerStaysThereThroughARewriting) {
  const String file = Lines({u"Sub A()", u"x", u"End Sub", u"Attribute A.VB_D = 1", u"Sub T_Go()",
                             u"End Sub", u"Attribute T_Go.VB_D = 2", u"Privat Sub Damaged()",
                             u"Attribute Damaged.VB_D = 3", u"End Sub"});
  Module module(file);
  ASSERT_EQ(module.File(), file);
  module.SetText(module.Lines(1, module.Count()));
  EXPECT_EQ(module.File(), file);
  module.SetText(vb::Replace(module.Lines(1, module.Count()), u"T_Go", u"N_Go"));
  EXPECT_EQ(module.File(), vb::Replace(file, u"T_Go", u"N_Go"));
  // Taken back by an editor, which deletes and inserts too.
  const String before = vb::Replace(module.Lines(1, module.Count()), u"N_Go", u"T_Go");
  module.Delete(1, module.Count());
  module.Replace(1, 0, before);
  EXPECT_EQ(module.File(), file);
}

TEST(AttributeKeeper, AsManyLinesAsWentEndAsThoseDid) {
  const StringView text = u"a\r\n' one\rtwo\r\nb\nc\r\nd";
  const std::vector<LineEnd> ends{LineEnd::CrLf, LineEnd::Cr, LineEnd::CrLf, LineEnd::Lf,
                                  LineEnd::CrLf};
  LineBuffer lines(text);
  MemberIndex index(lines);
  AttributeKeeper keeper(lines, index);
  const auto endsNow = [&] {
    std::vector<LineEnd> now;
    for (int line = 1; line <= lines.Count(); ++line) now.push_back(lines.EndOf(line));
    return now;
  };
  keeper.Delete(1, 6);
  keeper.Insert(1, u"a\r\n' one\r\ntwo\r\nB\r\nc\r\nd");
  auto now = endsNow();
  now.pop_back();
  EXPECT_EQ(now, ends);
  keeper.Replace(2, 3, u"x\r\ny\r\nz");
  now = endsNow();
  now.pop_back();
  EXPECT_EQ(now, ends);
  keeper.Delete(1, 3);
  keeper.Insert(1, u"a\r\nb");
  EXPECT_EQ(lines.EndOf(2), LineEnd::CrLf) << "other lines end as new ones do";
}

TEST(AttributeKeeper, AnyEditsTakenBackInOrderLeaveTheFileAsItWas) {
  std::mt19937 random(5);
  String file = u"Private WithEvents w As X, v As Y\r\nAttribute w.VB_VarHelpID = -1";
  for (int member = 0; member < 40; ++member) {
    const String name = u"M" + vb::Str(member % 25);
    file += u"\r\nSub " + name + u"()\r\n";
    if (member % 3 != 0) file += u"Attribute " + name + u".VB_D = " + vb::Str(member) + u"\r\n";
    file += u"x = " + vb::Str(member) + u"\r\nEnd Sub";
  }
  Module module(file);
  const auto upTo = [&](int most) {
    return static_cast<int>(random() % static_cast<unsigned>(most));
  };
  for (int round = 0; round < 300; ++round) {
    const int first = 1 + upTo(module.Count());
    const int count = 1 + upTo(std::min(30, module.Count() - first + 1));
    const String before = module.Lines(first, count);
    if (round % 2 == 0) {
      module.Delete(first, count);
      module.Insert(first, before);
    } else {
      module.Replace(first, count, u"'gone");
      module.Replace(first, 1, before);
    }
    ASSERT_EQ(module.File(), file) << round << ": " << first << ", " << count;
  }
}

}  // namespace
}  // namespace tessel::model
