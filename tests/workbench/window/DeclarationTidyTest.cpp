#include "hosts/workbench/window/DeclarationTidy.h"

#include <gtest/gtest.h>

#include "hosts/workbench/window/BasicWords.h"

namespace tessel::workbench {
namespace {

struct TidyCase {
  StringView Entered, Tidy;
};

constexpr TidyCase Cases[] = {
    {u"dim  a as   integer", u"Dim a As Integer"},
    {u"    PRIVATE sub  Go( byval x as long ,y() as string )",
     u"    Private Sub Go(ByVal x As Long, y() As String)"},
    {u"public function Text$(a$,optional b%=-1)as string",
     u"Public Function Text$(a$, Optional b% = -1) As String"},
    {u"const c=1+2*-3 ' note   here", u"Const c = 1 + 2 * -3 ' note   here"},
    {u"Private Const d As Date=#1/2/2003 10:00:00 AM#",
     u"Private Const d As Date = #1/2/2003 10:00:00 AM#"},
    {u"declare function F lib \"k er\" alias \"x\"(byval h as long)as long",
     u"Declare Function F Lib \"k er\" Alias \"x\"(ByVal h As Long) As Long"},
    {u"dim a(1 to 3),b as new Collection:dim c", u"Dim a(1 To 3), b As New Collection: Dim c"},
    {u"Dim [my name] as ADODB.recordset", u"Dim [my name] As ADODB.recordset"},
    {u"option   explicit", u"Option Explicit"},
    {u"Public Const Mask=&HFF00&", u"Public Const Mask = &HFF00&"},
    {u"private sub Form_Load( _", u"Private Sub Form_Load( _"},
    {u"Public Property get name() as String", u"Public Property Get name() As String"},
    {u"event Text(byval t)", u"Event Text(ByVal t)"},
    {u"x  =  1", u"x  =  1"},
    {u"Type  =  3", u"Type  =  3"},
    {u"dim s = \"open", u"dim s = \"open"},
    {u"", u""},
};

TEST(TidyDeclaration, SpacesAndSpellsADeclarationAsTheEnvironmentDoes) {
  for (const TidyCase& one : Cases) {
    EXPECT_EQ(vb::ToUtf8(TidyDeclaration(one.Entered)), vb::ToUtf8(one.Tidy));
  }
}

TEST(TidyDeclaration, ChangesNothingASecondTime) {
  for (const TidyCase& one : Cases) {
    const String once = TidyDeclaration(one.Entered);
    EXPECT_EQ(vb::ToUtf8(TidyDeclaration(once)), vb::ToUtf8(once));
  }
}

TEST(BasicWords, AreFoundInAnyCase) {
  for (const StringView word : BasicWords()) {
    EXPECT_EQ(CanonicalWord(vb::UCase(word)), word);
    EXPECT_EQ(CanonicalWord(vb::LCase(word)), word);
  }
  EXPECT_TRUE(CanonicalWord(u"frmMain").empty());
}

}  // namespace
}  // namespace tessel::workbench
