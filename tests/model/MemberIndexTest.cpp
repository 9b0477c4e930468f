#include "hosts/model/MemberIndex.h"

#include <gtest/gtest.h>

#include <random>

namespace tessel::model {
namespace {

using host::vbext_pk_Get;
using host::vbext_pk_Let;
using host::vbext_pk_Proc;
using host::vbext_ProcKind;

/// Every line's member as one text: "name/kind" or "-".
String Dump(MemberIndex& index, const LineBuffer& lines) {
  String dump = vb::Str(index.CountOfDeclarationLines());
  for (int line = 1; line <= lines.Count(); ++line) {
    vbext_ProcKind kind{};
    const String name = index.ProcOfLine(line, kind);
    dump += name.empty() ? u" -" : u" " + name + u"/" + vb::Str(static_cast<int>(kind));
  }
  return dump;
}

String DumpOf(StringView text) {
  const LineBuffer lines(text);
  MemberIndex index(lines);
  return Dump(index, lines);
}

TEST(MemberIndex, GivesBlankAndCommentLinesToTheMemberBelow) {
  EXPECT_EQ(
      DumpOf(u"Option Explicit\r\n\r\n' about A\r\nSub A()\r\nEnd Sub\r\n\r\nSub B()\r\nEnd Sub"),
      u"1 - A/0 A/0 A/0 A/0 B/0 B/0 B/0");
}

TEST(MemberIndex, GivesTheRestOfTheModuleToTheLastMember) {
  EXPECT_EQ(DumpOf(u"Sub A()\r\nEnd Sub\r\n\r\n' rest\r\n"), u"0 A/0 A/0 A/0 A/0");
}

TEST(MemberIndex, TakesAllLinesForDeclarationsWhereThereIsNoMember) {
  EXPECT_EQ(DumpOf(u"Option Explicit\r\n' x\r\n"), u"2 - -");
  EXPECT_EQ(DumpOf(u""), u"0");
}

struct HeadCase {
  StringView Line;
  StringView Expected;  ///< name and kind, "-" for no head
};

TEST(MemberIndex, KnowsEveryFormOfAHead) {
  const HeadCase cases[] = {
      {u"Sub A()", u"A/0"},
      {u"  private   sub  A ()", u"A/0"},
      {u"Public Static Function A$(x)", u"A/0"},
      {u"Friend Property Get A() As Long", u"A/3"},
      {u"Static Property Let A(ByVal x)", u"A/1"},
      {u"PROPERTY SET A(x)", u"A/2"},
      {u"Public Declare Sub A Lib \"k\" ()", u"-"},
      {u"Private Declare Function A Lib \"k\" () As Long", u"-"},
      {u"Public Event A()", u"-"},
      {u"Dim Sub_A", u"-"},
      {u"' Sub A()", u"-"},
      {u"Rem Sub A()", u"-"},
      {u"x = \"Sub A()\"", u"-"},
      {u"10 Sub A()", u"A/0"},
      {u"Sub [My Name]()", u"My Name/0"},
      {u"Sub \u0416()", u"\u0416/0"},
      {u"x = 1: Sub A()", u"A/0"},
      {u"Exit Sub", u"-"},
      {u"Property Foo", u"-"},
  };
  for (const HeadCase& one : cases) {
    const LineBuffer lines{String(one.Line) + u"\r\nEnd Sub\r\n"};
    MemberIndex index(lines);
    vbext_ProcKind kind{};
    const String name = index.ProcOfLine(1, kind);
    EXPECT_EQ(name.empty() ? u"-" : name + u"/" + vb::Str(static_cast<int>(kind)), one.Expected)
        << vb::ToUtf8(one.Line);
  }
}

TEST(MemberIndex, ReadsAHeadOverSeveralLines) {
  const LineBuffer lines(
      u"Private _\r\n  Sub A( _\r\n  x)\r\nEnd Sub\r\n' c\r\nSub B()\r\nEnd Sub");
  MemberIndex index(lines);
  EXPECT_EQ(Dump(index, lines), u"0 A/0 A/0 A/0 A/0 B/0 B/0 B/0");
  EXPECT_EQ(index.Find(u"a", vbext_pk_Proc)->Body, 1);
  EXPECT_EQ(index.Find(u"B", vbext_pk_Proc)->Body, 6);
  EXPECT_EQ(index.Find(u"B", vbext_pk_Proc)->Start, 5);
}

TEST(MemberIndex, ReadsSeveralStatementsOnTheLineOfTheHead) {
  EXPECT_EQ(DumpOf(u"Sub A(): x = 1: End Sub\r\n\r\nSub B(): y = \"End Sub\"\r\nEnd Sub"),
            u"0 A/0 B/0 B/0 B/0");
}

TEST(MemberIndex, TellsAPropertyTripleOfOneNameApart) {
  const LineBuffer lines(u"Property Get X()\r\nEnd Property\r\nProperty Let X(v)\r\nEnd Property");
  MemberIndex index(lines);
  EXPECT_EQ(Dump(index, lines), u"0 X/3 X/3 X/1 X/1");
  EXPECT_EQ(index.Find(u"x", vbext_pk_Let)->Start, 3);
  EXPECT_EQ(index.Find(u"x", vbext_pk_Get)->Start, 1);
  EXPECT_EQ(index.Find(u"x", vbext_pk_Proc), nullptr);
}

TEST(MemberIndex, PutsConditionalLinesWithWhatFollows) {
  EXPECT_EQ(DumpOf(u"#If X Then\r\nSub A()\r\nEnd Sub\r\n#Else\r\nSub B()\r\nEnd Sub\r\n#End If"),
            u"1 - A/0 A/0 B/0 B/0 B/0 B/0");
}

TEST(MemberIndex, EndsAMemberWithoutAnEndAtTheNextHead) {
  EXPECT_EQ(DumpOf(u"Sub A()\r\nx = 1\r\nSub B()\r\nEnd Sub"), u"0 A/0 A/0 B/0 B/0");
}

TEST(MemberIndex, EndsTheLastMemberWithoutAnEndAtTheEndOfTheModule) {
  EXPECT_EQ(DumpOf(u"Dim x\r\nSub A()\r\nx = 1"), u"1 - A/0 A/0");
}

TEST(MemberIndex, GivesALineThatEndsAndBeginsMembersToTheNewOne) {
  const LineBuffer lines(u"Sub A()\r\nEnd Sub: Sub B()\r\nEnd Sub\r\nSub C()\r\nEnd Sub");
  MemberIndex index(lines);
  EXPECT_EQ(Dump(index, lines), u"0 A/0 B/0 B/0 C/0 C/0");
  EXPECT_EQ(index.Find(u"B", vbext_pk_Proc)->Body, 2);
  EXPECT_EQ(index.Find(u"B", vbext_pk_Proc)->Start, 2);
}

TEST(MemberIndex, CountsAConditionalLineAheadOfTheFirstMemberAsDeclaring) {
  EXPECT_EQ(DumpOf(u"' a\r\n\r\n#If X Then\r\n' b\r\nSub A()\r\nEnd Sub"), u"3 - - - A/0 A/0 A/0");
}

TEST(MemberIndex, LeavesCommentsAheadOfAMemberOutOfTheDeclarations) {
  EXPECT_EQ(DumpOf(u"' head of the module\r\n\r\nSub A()\r\nEnd Sub"), u"0 A/0 A/0 A/0 A/0");
}

TEST(MemberIndex, CountsTypesAndDeclaresAsDeclarations) {
  EXPECT_EQ(DumpOf(u"Type T\r\nFunction As Long\r\nEnd Type\r\n"
                   u"Declare Sub S Lib \"k\" ()\r\nSub A()\r\nEnd Sub"),
            u"4 - - - - A/0 A/0");
}

TEST(MemberIndex, CountsAllLinesOfAContinuedDeclaration) {
  EXPECT_EQ(DumpOf(u"Dim x, _\r\n  y\r\n\r\nSub A()\r\nEnd Sub"), u"2 - - A/0 A/0 A/0");
}

TEST(MemberIndex, ReadsAContinuedCommentAsOneComment) {
  EXPECT_EQ(DumpOf(u"' a _\r\nSub A()\r\nSub B()\r\nEnd Sub"), u"0 B/0 B/0 B/0 B/0");
}

TEST(MemberIndex, FindsTheFirstOfTwoMembersOfOneName) {
  const LineBuffer lines(
      u"#If X Then\r\nSub A()\r\nEnd Sub\r\n#Else\r\nSub a()\r\nEnd Sub\r\n#End If");
  MemberIndex index(lines);
  EXPECT_EQ(index.Find(u"A", vbext_pk_Proc)->Body, 2);
}

TEST(MemberIndex, FindsNamesWithoutRegardToCaseInAnyScript) {
  const LineBuffer lines(u"Sub \u00C4rger()\r\nEnd Sub");
  MemberIndex index(lines);
  EXPECT_NE(index.Find(u"\u00E4RGER", vbext_pk_Proc), nullptr);
}

TEST(MemberIndex, AnswersNothingOutsideTheModule) {
  const LineBuffer lines(u"Sub A()\r\nEnd Sub");
  MemberIndex index(lines);
  vbext_ProcKind kind = vbext_pk_Let;
  EXPECT_EQ(index.ProcOfLine(0, kind), u"");
  EXPECT_EQ(index.ProcOfLine(3, kind), u"");
  EXPECT_EQ(kind, vbext_pk_Let);
}

TEST(MemberIndex, FollowsAMemberThatIsReplacedUnderAnotherName) {
  LineBuffer lines(u"Sub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\nSub C()\r\nEnd Sub\r\n");
  MemberIndex index(lines);
  ASSERT_EQ(index.Find(u"C", vbext_pk_Proc)->Start, 5);
  lines.Delete(3, 2);
  index.Edited(3, 2, 0);
  index.Edited(3, 0, lines.Insert(3, u"' new\r\nSub D()\r\nx = 1\r\nEnd Sub"));
  EXPECT_EQ(index.Find(u"B", vbext_pk_Proc), nullptr);
  EXPECT_EQ(index.Find(u"D", vbext_pk_Proc)->Start, 3);
  EXPECT_EQ(index.Find(u"D", vbext_pk_Proc)->Body, 4);
  EXPECT_EQ(index.Find(u"C", vbext_pk_Proc)->Start, 7);
}

TEST(MemberIndex, NoticesThatAnEndIsContinuedIntoTheNextMember) {
  LineBuffer lines(u"Sub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\nSub C()\r\nEnd Sub\r\n");
  MemberIndex index(lines);
  ASSERT_NE(index.Find(u"B", vbext_pk_Proc), nullptr);
  lines.Delete(2, 1);
  index.Edited(2, 1, lines.Insert(2, u"End Sub ' a _"));
  EXPECT_EQ(Dump(index, lines), u"0 A/0 A/0 A/0 C/0 C/0 C/0");
}

TEST(MemberIndex, AgreesWithAFreshReadingAfterAnyEdits) {
  constexpr StringView Pieces[] = {u"Sub A()",
                                   u"End Sub",
                                   u"",
                                   u"' note",
                                   u"x = 1",
                                   u"Sub B()",
                                   u"Property Get P()",
                                   u"End Property",
                                   u"Dim y _",
                                   u"Function F()",
                                   u"End Function",
                                   u"a\r\nSub C()\r\nEnd Sub",
                                   u"Option Explicit",
                                   u"Sub A()\r\nEnd Sub\r\n",
                                   u"End Sub: Sub D()",
                                   u"Sub E(): End Sub",
                                   u"End Sub ' c _",
                                   u"Private _",
                                   u"#If X Then"};
  std::mt19937 random(3);
  for (int round = 0; round < 400; ++round) {
    LineBuffer lines(u"Option Explicit\r\nSub A()\r\nx = 1\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\n");
    MemberIndex index(lines);
    for (int step = 0; step < 25; ++step) {
      const int count = lines.Count();
      const int at = 1 + static_cast<int>(random() % static_cast<unsigned>(count + 1));
      if (random() % 6 == 0 && at <= count) {
        lines.Delete(at, 1);
        index.Edited(at, 1, lines.Insert(at, Pieces[random() % std::size(Pieces)]));
      } else if (random() % 3 == 0 && at <= count) {
        const int most = count - at + 1;
        const int removed = 1 + static_cast<int>(random() % static_cast<unsigned>(most));
        lines.Delete(at, std::min(removed, 4));
        index.Edited(at, std::min(removed, 4), 0);
      } else {
        const int added = lines.Insert(at, Pieces[random() % std::size(Pieces)]);
        index.Edited(at, 0, added);
      }
      if (random() % 2 == 0) continue;
      MemberIndex fresh(lines);
      ASSERT_EQ(vb::ToUtf8(Dump(index, lines)), vb::ToUtf8(Dump(fresh, lines)))
          << vb::ToUtf8(lines.Count() > 0 ? lines.Text(1, lines.Count()) : String());
    }
  }
}

TEST(MemberIndex, ListsTheMembersInTheOrderOfTheModule) {
  const LineBuffer lines(
      u"Dim x\r\n' c\r\nSub B()\r\nEnd Sub\r\nProperty Get A()\r\nEnd Property\r\n");
  MemberIndex index(lines);
  const auto members = index.Members();
  ASSERT_EQ(members.size(), 2U);
  EXPECT_EQ(members[0].Name, u"B");
  EXPECT_EQ(members[0].Lines.Start, 2);
  EXPECT_EQ(members[0].Lines.Body, 3);
  EXPECT_EQ(members[1].Kind, host::vbext_pk_Get);
  EXPECT_EQ(members[1].Lines.Body, 5);
  EXPECT_EQ(members[1].Lines.Count, 2);
}

}  // namespace
}  // namespace tessel::model
