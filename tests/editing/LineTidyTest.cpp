#include "hosts/editing/LineTidy.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace tessel::editing {
namespace {

struct TidyCase {
  StringView Entered, Tidy;
};

constexpr TidyCase Statements[] = {
    {u"if x=1 then", u"If x = 1 Then"},
    {u"  a=b+c*-d", u"  a = b + c * -d"},
    {u"for i=10 to 1 step -1", u"For i = 10 To 1 Step -1"},
    {u"x=a-1:y=-1", u"x = a - 1: y = -1"},
    {u"print#1,x;y,-1", u"Print #1, x; y, -1"},
    {u"if(a)and(not b)then goto 10", u"If (a) And (Not b) Then GoTo 10"},
    {u"foo a:=1,b:=-2", u"foo a:=1, b:=-2"},
    {u"call foo( a ,b )", u"Call foo(a, b)"},
    {u"msgbox \"a  b\",,\"c\"", u"MsgBox \"a  b\", , \"c\""},
    {u"s=\"a\"&hex(1)&chr$(13)", u"s = \"a\" & Hex(1) & Chr$(13)"},
    {u"10 x=1", u"10 x = 1"},
    {u"10   x=1 ' note  =x", u"10   x = 1 ' note  =x"},
    {u"again:x=1", u"again: x = 1"},
    {u"#if win64 then", u"#If win64 Then"},
    {u"select case x", u"Select Case x"},
    {u"case is>3,-1 to 5", u"Case Is > 3, -1 To 5"},
    {u"x=&hff00and&o17", u"x=&hff00and&o17"},
    {u"x=&hff00 and &o17", u"x = &HFF00 And &O17"},
    {u"open f for binary access read as #1 len=5", u"Open f For Binary Access Read As #1 Len = 5"},
    {u"on error goto 0", u"On Error GoTo 0"},
    {u"me.width=5", u"Me.width = 5"},
    {u"rs!name=rs![ a ]", u"rs!name = rs![ a ]"},
    {u"d=#1/2/2003#+1", u"d = #1/2/2003# + 1"},
    {u"end   if", u"End If"},
    {u"if a<>b or c<=d then e=f else g=h", u"If a <> b Or c <= d Then e = f Else g = h"},
};

constexpr TidyCase Declarations[] = {
    {u"dim  a as   integer", u"Dim a As Integer"},
    {u"    PRIVATE sub  Go( byval x as long ,y() as string )",
     u"    Private Sub Go(ByVal x As Long, y() As String)"},
    {u"public function Text$(a$,optional b%=-1)as string",
     u"Public Function Text$(a$, Optional b% = -1) As String"},
    {u"const c=1+2*-3 ' note   here", u"Const c = 1 + 2 * -3 ' note   here"},
    {u"Private Const d As Date=#1/2/2003 10:00:00 AM#",
     u"Private Const d As Date = #1/2/2003 10:00:00 AM#"},
    {u"declare function F lib \"k er\" alias \"x\"(byval h as long)as long",
     u"Declare Function F Lib \"k er\" Alias \"x\" (ByVal h As Long) As Long"},
    {u"dim a(1 to 3),b as new Collection:dim c", u"Dim a(1 To 3), b As New Collection: Dim c"},
    {u"Dim [my name] as ADODB.recordset", u"Dim [my name] As ADODB.recordset"},
    {u"option   explicit", u"Option Explicit"},
    {u"Public Const Mask=&HFF00&", u"Public Const Mask = &HFF00&"},
    {u"private sub Form_Load( _", u"Private Sub Form_Load( _"},
    {u"dim s as string*5", u"Dim s As String * 5"},
    {u"  Type as long", u"  Type As Long"},
    {u"private a    as long", u"Private a    As Long"},
};

/// What must stay: it is tidy, or could mean two things, or isn't understood.
constexpr StringView Kept[] = {
    u"Foo -1",
    u"Foo - 1",
    u"Foo (x)",
    u"Foo .Bar, !Baz",
    u"Foo , , 3",
    u".Line (x1, y1)-(x2, y2), c, BF",
    u"Me.Line Step(1, 2)-Step(3, 4)",
    u"Line Input #1, s",
    u"Print #1,",
    u"Debug.Print a; b;",
    u"x = 1    ' note",
    u"    Dim a     As Long, b As Long",
    u"Again:   x = 1",
    u"x = .5 + 1E-3",
    u"Rem x=1:y=2",
    u"' x=1:y=2",
    u"x = a(1)(2)",
    u"Set x = objService.Get(\"a\")",
    u"y = cmdStart.UBound + 1",
    u"DefLng A-Z",
    u"Public Property Get Step() As Long",
    u"dim s = \"open",
    u"",
    u"   ",
    u"x = a _",
};

TEST(LineTidy, SpacesAndSpellsAStatementAsTheEnvironmentDoes) {
  for (const TidyCase& one : Statements) {
    EXPECT_EQ(vb::ToUtf8(TidyLine(one.Entered, {}, {})), vb::ToUtf8(one.Tidy));
  }
}

TEST(LineTidy, SpacesAndSpellsADeclarationAsTheEnvironmentDoes) {
  for (const TidyCase& one : Declarations) {
    EXPECT_EQ(vb::ToUtf8(TidyLine(one.Entered, {}, {})), vb::ToUtf8(one.Tidy));
  }
}

TEST(LineTidy, LeavesWhatIsTidyOrCouldMeanTwoThings) {
  for (const StringView line : Kept)
    EXPECT_EQ(vb::ToUtf8(TidyLine(line, {}, {})), vb::ToUtf8(line));
}

TEST(LineTidy, ReadsALineByTheLinesThatItGoesOn) {
  const std::vector<StringView> call{u"Foo a, _"}, remark{u"' a note _"}, sum{u"x = a _"};
  EXPECT_EQ(TidyLine(u"  -1,b", call, {}), u"  -1, b");
  EXPECT_EQ(TidyLine(u"x=1", remark, {}), u"x=1");
  EXPECT_EQ(TidyLine(u"-b", sum, {}), u"- b");
}

TEST(LineTidy, GivesNamesTheCaseOfTheirDeclaration) {
  const std::map<String, String> names{{u"total", u"Total"}, {u"text", u"text"}, {u"mid", u"mID"}};
  const auto known = [&](StringView name, bool member, std::size_t) {
    if (member) return vb::SameText(name, u"caption") ? String(u"Caption") : String();
    const auto found = names.find(vb::LCase(name));
    return found == names.end() ? String() : found->second;
  };
  EXPECT_EQ(TidyLine(u"TOTAL=total%+lbl.caption+TEXT", {}, known),
            u"Total = Total% + lbl.Caption + text");
  EXPECT_EQ(TidyLine(u"x = mid$(s, 1)", {}, known), u"x = mID$(s, 1)");
  EXPECT_EQ(TidyLine(u"option compare TEXT", {}, known), u"Option Compare Text");
  EXPECT_EQ(TidyLine(u"on ERROR goto TEXT", {}, known), u"On Error GoTo text");
  EXPECT_EQ(TidyLine(u"rs!total = foo(total:=1)", {}, known), u"rs!total = foo(total:=1)");
}

TEST(LineTidy, ChangesNothingASecondTime) {
  for (const TidyCase& one : Statements) {
    EXPECT_EQ(vb::ToUtf8(TidyLine(one.Tidy, {}, {})), vb::ToUtf8(one.Tidy));
  }
  for (const TidyCase& one : Declarations) {
    EXPECT_EQ(vb::ToUtf8(TidyLine(one.Tidy, {}, {})), vb::ToUtf8(one.Tidy));
  }
}

/// Blanks taken out outside of texts and comments.
String Essence(StringView line) {
  String essence;
  bool text = false;
  for (const char16_t unit : line) {
    if (unit == u'"') text = !text;
    if (text || !IsBlank(unit)) essence += unit;
  }
  return vb::LCase(essence);
}

TEST(LineTidy, NeverAddsOrTakesAnythingButBlanksAndCase) {
  std::mt19937 random(5);
  constexpr StringView Parts[] = {
      u"If",  u"then",  u"x",  u"a$",         u"1",  u".5",   u"&HFF", u"\"t\"", u"+", u"-",
      u"&",   u"=",     u"<",  u">",          u":",  u",",    u";",    u"(",     u")", u".",
      u"!",   u"#",     u" ",  u"  ",         u" _", u"'",    u"[b",   u"]",     u"^", u"to",
      u"Rem", u"print", u":=", u"#1/2/2003#", u"_",  u"step", u"Line", u"10",    u"Ä"};
  for (int round = 0; round < 40000; ++round) {
    String line;
    for (auto part = random() % 9; part-- > 0;) line += Parts[random() % std::size(Parts)];
    const String tidy = TidyLine(line, {}, {});
    ASSERT_EQ(vb::ToUtf8(Essence(tidy)), vb::ToUtf8(Essence(line)));
    ASSERT_EQ(vb::ToUtf8(TidyLine(tidy, {}, {})), vb::ToUtf8(tidy)) << vb::ToUtf8(line);
  }
}

}  // namespace
}  // namespace tessel::editing
