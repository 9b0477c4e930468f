#include "presentation/mCodeConverter.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

#include "forms/RichTextBox.h"
#include "presentation/PlainMakeRTF.h"

namespace tessel::mCodeConverter {
namespace {

String BodyOf(const String& document) {
  const StringView head = u"\\fs20 ";
  const std::size_t start = document.find(head) + head.size();
  return document.substr(start, document.size() - start - StringView(u"\r\n\\par }").size());
}

String Body(StringView text) { return BodyOf(MakeRTF(text, 0)); }

TEST(Keywords, Are302InTheirOrder) {
  ASSERT_EQ(Keywords().size(), 302U);
  EXPECT_EQ(Keywords()[0], u"Abs(");
  EXPECT_EQ(Keywords()[32], u" Dir(");
  EXPECT_EQ(Keywords()[301], u" Space$(");
}

TEST(MakeRTF, HasTheFrameOfTheDocument) {
  EXPECT_EQ(
      MakeRTF(u"x", 204),
      u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 Courier New "
      u"Cyr;}}\r\n{\\colortbl "
      u";\\red0\\green187\\blue0;\\red187\\green0\\blue0;\\red0\\green0\\blue187;}"
      u"\r\n\\viewkind4\\uc1\\pard\\f0\\fs20 x\r\n\\par }");
  EXPECT_NE(MakeRTF(u"x", 5).find(u"Courier New;"), String::npos);
}

TEST(MakeRTF, ColoursAKeywordAtTheHeadOfALine) {
  EXPECT_EQ(Body(u"Dim x\r\nDim y"), u"\\cf3Dim\\cf0  x\\par \r\n\\cf3Dim\\cf0  y");
}

TEST(MakeRTF, LeavesAnIdentifierThatEndsInTheLettersOfAnEntryWithALeadingBlank) {
  EXPECT_EQ(Body(u"ReDimmer x"), u"ReDimmer x");
}

TEST(MakeRTF, NeverColoursAKeywordInACommentOrString) {
  EXPECT_EQ(Body(u"x = \" Dim \" ' Dim "), u"x = \\cf2 \" Dim \"\\cf0  \\cf1 ' Dim \\cf0 ");
}

TEST(MakeRTF, TakesAMarkInCodeForACommentOnceThereAreTwo) {
  EXPECT_EQ(Body(u"k1k 'a\r\n'b"), u"\\cf1 'b\\cf0  \\cf1 'a\\cf0 \\par \r\n\\cf1 'b\\cf0 ");
  EXPECT_EQ(Body(u"k1k 'a"), u"k1k \\cf1 'a\\cf0 ");
}

TEST(MakeRTF, TakesAMarkInCodeForAStringOnceThereAreTwo) {
  EXPECT_EQ(Body(u"?1? \"a\" \"b\""), u"\\cf2 \"b\"\\cf0  \\cf2 \"a\"\\cf0  \\cf2 \"b\"\\cf0 ");
}

TEST(MakeRTF, KeepsAnUnterminatedStringInTheTextAndItsKeywordsAreColoured) {
  EXPECT_EQ(Body(u"x = \"a Then"), u"x = \"a \\cf3Then\\cf0 ");
}

TEST(MakeRTF, DropsALineOf80Dashes) {
  EXPECT_EQ(Body(u"a\r\n" + String(80, u'-') + u"\r\nb"), u"a\\par \r\n\\par \r\nb");
}

TEST(MakeRTF, OpensACommentAtAnApostropheInASecondString) {
  EXPECT_EQ(Body(u"a \"b\" \"it's\""), u"a \\cf2 \"b\"\\cf0  \"it\\cf1 's\"\\cf0 ");
}

TEST(MakeRTF, ReadsBackAsTheSourceText) {
  const String source = u"Public Sub A()\r\n    x = \"text\" ' note\r\nEnd Sub";
  EXPECT_EQ(vb::Replace(forms::ReadRichText(MakeRTF(source, 0)).Text, u" ", u""),
            vb::Replace(source, u" ", u""));
}

/// Fragments that get in each other's way.
constexpr StringView Fragments[] = {
    u"k0k",
    u"k1k",
    u"k",
    u"0",
    u"1",
    u"?0?",
    u"?1?",
    u"?",
    u"\"",
    u"'",
    u"_",
    u"\r\n",
    u" ",
    u" ",
    u"\\",
    u"\r",
    u"\n",
    u"Dim ",
    u" Dim ",
    u"If ",
    u"Then",
    u" Then",
    u"End Sub",
    u"End",
    u" End If",
    u"Else",
    u"Exit Do",
    u"As ",
    u"Has ",
    u"Left(",
    u"Left$(",
    u"Lcase$$(",
    u"^",
    u"On Error",
    u" GoTo ",
    u"Width ",
    u"Now",
    u"Rnd",
    u"Case ",
    u" Select Case",
    u"Print",
    u"{",
    u"}",
    u"Property Get",
    u"--------------------------------------------------------------------------------",
    u"ByVal ",
    u"Optional ",
    u"String",
    u" String",
    u"Resume Next",
    u" On",
    u"é",
    u"\x0E"};

TEST(MakeRTF, GivesWhatThePlainPassesGiveOverRandomText) {
  std::mt19937 random(20);
  for (int round = 0; round < 3000; ++round) {
    String text;
    for (auto count = random() % 30; count > 0; --count) {
      text += Fragments[random() % std::size(Fragments)];
    }
    ASSERT_EQ(MakeRTF(text, 0), PlainMakeRTF(text, 0)) << vb::ToUtf8(text);
  }
}

}  // namespace
}  // namespace tessel::mCodeConverter
