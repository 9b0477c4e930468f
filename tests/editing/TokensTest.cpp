#include "hosts/editing/Tokens.h"

#include <gtest/gtest.h>

namespace tessel::editing {
namespace {

/// The tokens with bars between.
std::string Pieces(StringView line, LineStart start = LineStart::Statement) {
  const CutLine cut = Cut(line, start);
  std::string pieces = cut.Whole ? "" : "? ";
  for (const Token& token : cut.Tokens) {
    if (&token != &cut.Tokens.front()) pieces += '|';
    pieces += vb::ToUtf8(token.Text);
  }
  return pieces;
}

TokenKind KindOf(StringView line, std::size_t at) { return Cut(line).Tokens.at(at).Kind; }

TEST(Tokens, KeepTypeCharactersWithTheirNames) {
  EXPECT_EQ(Pieces(u"a$ = Left$(b%, 2&) & c"), "a$|=|Left$|(|b%|,|2&|)|&|c");
  EXPECT_EQ(Pieces(u"x# = 1.5E-3! + .5@"), "x#|=|1.5E-3!|+|.5@");
  EXPECT_EQ(Pieces(u"y = &HFF00^"), "y|=|&HFF00^");
  EXPECT_EQ(Pieces(u"y = 2^x"), "y|=|2|^|x");
}

TEST(Tokens, TellAMemberFromATypeCharacter) {
  EXPECT_EQ(Pieces(u"rs!Name = x! + rs![a b]"), "rs|!|Name|=|x!|+|rs|!|[a b]");
  EXPECT_EQ(KindOf(u"rs!Name", 1), TokenKind::Bang);
  EXPECT_EQ(Pieces(u"a.5"), "a|.|5");
}

TEST(Tokens, TellADateFromAFileNumber) {
  EXPECT_EQ(Pieces(u"d = #1/2/2003 10:00 AM#"), "d|=|#1/2/2003 10:00 AM#");
  EXPECT_EQ(Pieces(u"Print #1, a: Print #2, b"), "Print|#|1|,|a|:|Print|#|2|,|b");
  EXPECT_EQ(Pieces(u"Close #1, #2"), "Close|#|1|,|#|2");
  EXPECT_EQ(Pieces(u"print#1,x"), "print|#|1|,|x");
}

TEST(Tokens, TakeDirectivesAndCommentsWhole) {
  EXPECT_EQ(Pieces(u"#If Win64 Then"), "#If|Win64|Then");
  EXPECT_EQ(Pieces(u"x = \"a'b\"\"\" ' note"), "x|=|\"a'b\"\"\"|' note");
  EXPECT_EQ(Pieces(u"a: Rem b: c"), "a|:|Rem b: c");
  EXPECT_EQ(Pieces(u"Remark = 1"), "Remark|=|1");
  EXPECT_EQ(Pieces(u"If a Then Rem x=1"), "If|a|Then|Rem x=1");
}

TEST(Tokens, TellHexadecimalFromJoining) {
  EXPECT_EQ(Pieces(u"\"a\"&Hex(1)"), "\"a\"|&|Hex|(|1|)");
  EXPECT_EQ(Pieces(u"x = &O17 + &17"), "x|=|&O17|+|&17");
}

TEST(Tokens, SayWhenALineIsNotUnderstood) {
  EXPECT_FALSE(Cut(u"x = \"open").Whole);
  EXPECT_FALSE(Cut(u"x = a&b").Whole);
  EXPECT_FALSE(Cut(u"x = [open").Whole);
  EXPECT_FALSE(Cut(u"x = {}").Whole);
  EXPECT_TRUE(Cut(u"").Whole);
}

TEST(Tokens, KnowWhatTheNextLineBeginsWith) {
  EXPECT_EQ(Cut(u"x = 1 + _").Next, LineStart::Inside);
  EXPECT_EQ(Cut(u"x = 1 ' note _").Next, LineStart::Remark);
  EXPECT_EQ(Cut(u"more _", LineStart::Remark).Next, LineStart::Remark);
  EXPECT_EQ(Cut(u"x_").Next, LineStart::Statement);
  EXPECT_EQ(Pieces(u"it's x=1", LineStart::Remark), "it's x=1");
  EXPECT_EQ(Pieces(u"Rem = 1", LineStart::Inside), "Rem|=|1");
}

}  // namespace
}  // namespace tessel::editing
