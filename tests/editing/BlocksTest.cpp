#include "hosts/editing/Blocks.h"

#include <gtest/gtest.h>

namespace tessel::editing {
namespace {

String EndOf(StringView text, int line) {
  const auto missing = FindMissingEnd(model::LineBuffer(text), line);
  return missing ? missing->Head + u"|" + missing->End : String(u"-");
}

TEST(MissingEnd, IsWrittenForAHeadWithoutOne) {
  EXPECT_EQ(EndOf(u"Sub A()\r\n", 1), u"Sub A()|End Sub");
  EXPECT_EQ(EndOf(u"  private function F(x) as long\r\n\r\nSub B()\r\nEnd Sub", 1),
            u"  private function F(x) as long|  End Function");
  EXPECT_EQ(EndOf(u"Property Get P()", 1), u"Property Get P()|End Property");
  EXPECT_EQ(EndOf(u"Sub A(x, _\r\n  y)\r\n", 2), u"  y)|End Sub");
}

TEST(MissingEnd, BringsTheParenthesesThatTheHeadLacks) {
  EXPECT_EQ(EndOf(u"sub Foo", 1), u"sub Foo()|End Sub");
  EXPECT_EQ(EndOf(u"Public Function Foo$ As String ' x", 1),
            u"Public Function Foo$() As String ' x|End Function");
  EXPECT_EQ(EndOf(u"property let Foo", 1), u"property let Foo()|End Property");
}

TEST(MissingEnd, IsNotWrittenWhereThereIsOne) {
  EXPECT_EQ(EndOf(u"Sub A()\r\n  x = 1\r\nEnd Sub", 1), u"-");
  EXPECT_EQ(EndOf(u"Sub A(): End Sub\r\nSub B()", 1), u"-");
  EXPECT_EQ(EndOf(u"#If x Then\r\nSub A(a)\r\n#Else\r\nSub A()\r\n#End If\r\nEnd Sub", 2), u"-");
}

TEST(MissingEnd, IsNotWrittenForWhatIsNoHead) {
  for (const StringView line :
       {u"x = 1", u"Declare Sub A Lib \"k\" ()", u"Event E()", u"' Sub A()", u"Sub A(x, _", u"",
        u"End Sub", u"Exit Sub", u"Sub As Long", u"Type T"}) {
    EXPECT_EQ(EndOf(line, 1), u"-") << vb::ToUtf8(line);
  }
  EXPECT_EQ(EndOf(u"Sub A()", 0), u"-");
  EXPECT_EQ(EndOf(u"Sub A()", 2), u"-");
}

TEST(CommentBlock, GoesAheadOfEveryLineAndComesOffAgain) {
  const std::vector<StringView> lines{u"  x = 1", u"", u"' note", u"\ty"};
  const auto commented = Commented(lines);
  EXPECT_EQ(commented, (std::vector<String>{u"'  x = 1", u"'", u"'' note", u"'\ty"}));
  const std::vector<StringView> again(commented.begin(), commented.end());
  EXPECT_EQ(Uncommented(again), (std::vector<String>(lines.begin(), lines.end())));
}

TEST(CommentBlock, LeavesLinesThatAreNoComments) {
  EXPECT_EQ(Uncommented({u"x = 1 ' note", u"  'a", u"Rem b", u""}),
            (std::vector<String>{u"x = 1 ' note", u"  a", u"Rem b", u""}));
}

}  // namespace
}  // namespace tessel::editing
