#include "hosts/model/LineBuffer.h"

#include <gtest/gtest.h>

#include <random>

namespace tessel::model {
namespace {

/// "text<end>" for each line, ends written as \rn, \n and \r; what the buffer holds at one glance.
String Dump(const LineBuffer& buffer) {
  constexpr StringView Ends[] = {u"<crlf>", u"<lf>", u"<cr>"};
  String dump;
  for (int line = 1; line <= buffer.Count(); ++line) {
    dump += buffer.Line(line);
    dump += Ends[static_cast<std::size_t>(buffer.EndOf(line))];
  }
  return dump;
}

/// A text of `count` lines "line N".
String Numbered(int count) {
  String text;
  for (int line = 1; line <= count; ++line) text += u"line " + vb::Str(line) + u"\r\n";
  return text;
}

TEST(LineBuffer, HoldsNoLineForAnEmptyText) {
  const LineBuffer buffer(u"");
  EXPECT_EQ(buffer.Count(), 0);
  EXPECT_EQ(buffer.DefaultEnd(), LineEnd::CrLf);
}

TEST(LineBuffer, KeepsTheEndOfEachLine) {
  const LineBuffer buffer(u"a\r\nb\nc\rd\r\n");
  EXPECT_EQ(buffer.Count(), 4);
  EXPECT_EQ(Dump(buffer), u"a<crlf>b<lf>c<cr>d<crlf>");
  EXPECT_TRUE(buffer.EndsLast());
}

TEST(LineBuffer, TakesLfCrForTwoLineEnds) {
  EXPECT_EQ(Dump(LineBuffer(u"a\n\rb\r\n")), u"a<lf><cr>b<crlf>");
  EXPECT_EQ(Dump(LineBuffer(u"a\r\r\nb\r\n")), u"a<cr><crlf>b<crlf>");
}

TEST(LineBuffer, RemembersThatTheLastLineHasNoEnd) {
  const LineBuffer buffer(u"a\nb");
  EXPECT_EQ(buffer.Count(), 2);
  EXPECT_EQ(buffer.Line(2), u"b");
  EXPECT_FALSE(buffer.EndsLast());
}

TEST(LineBuffer, CountsBlankLinesAtTheEnd) {
  EXPECT_EQ(LineBuffer(u"a\r\n\r\n").Count(), 2);
  EXPECT_EQ(LineBuffer(u"\r\n").Count(), 1);
}

TEST(LineBuffer, GivesNewLinesTheEndThatMostLinesHave) {
  LineBuffer buffer(u"a\nb\r\nc\n");
  EXPECT_EQ(buffer.DefaultEnd(), LineEnd::Lf);
  buffer.Insert(2, u"new");
  EXPECT_EQ(Dump(buffer), u"a<lf>new<lf>b<crlf>c<lf>");
  buffer.SetDefaultEnd(LineEnd::Cr);
  buffer.Insert(1, u"top");
  EXPECT_EQ(buffer.EndOf(1), LineEnd::Cr);
}

TEST(LineBuffer, PrefersCrLfWhereEndsAreEven) {
  EXPECT_EQ(LineBuffer(u"a\nb\r\n").DefaultEnd(), LineEnd::CrLf);
  EXPECT_EQ(LineBuffer(u"a").DefaultEnd(), LineEnd::CrLf);
}

struct InsertCase {
  StringView Text;
  StringView Expected;  ///< lines separated by "|"
};

TEST(LineBuffer, InsertsOneLineMoreThanTheTextHasLineEnds) {
  const InsertCase cases[] = {
      {u"", u"1||2"},           {u"a", u"1|a|2"},      {u"a\r\n", u"1|a||2"},
      {u"a\rb", u"1|a|b|2"},    {u"a\nb", u"1|a|b|2"}, {u"a\n\rb", u"1|a||b|2"},
      {u"\r\n\r\n", u"1||||2"},
  };
  for (const InsertCase& one : cases) {
    LineBuffer buffer(u"1\r\n2\r\n");
    const int added = buffer.Insert(2, one.Text);
    EXPECT_EQ(buffer.Count(), 2 + added);
    EXPECT_EQ(vb::Replace(buffer.Text(1, buffer.Count()), vb::CrLf, u"|"), one.Expected)
        << vb::ToUtf8(one.Text);
  }
}

TEST(LineBuffer, InsertsAtBothEndsAndIntoNothing) {
  LineBuffer buffer;
  EXPECT_EQ(buffer.Insert(1, u"b"), 1);
  buffer.Insert(1, u"a");
  buffer.Insert(3, u"c");
  EXPECT_EQ(buffer.Text(1, 3), u"a\r\nb\r\nc");
}

TEST(LineBuffer, InsertsALineOfItsOwn) {
  LineBuffer buffer(Numbered(3));
  buffer.Insert(1, buffer.Line(3));
  EXPECT_EQ(buffer.Line(1), u"line 3");
  EXPECT_EQ(buffer.Line(4), u"line 3");
}

TEST(LineBuffer, DeletesOverManyBlocks) {
  LineBuffer buffer(Numbered(5000));
  buffer.Delete(100, 4800);
  ASSERT_EQ(buffer.Count(), 200);
  EXPECT_EQ(buffer.Line(99), u"line 99");
  EXPECT_EQ(buffer.Line(100), u"line 4900");
  buffer.Delete(1, 200);
  EXPECT_EQ(buffer.Count(), 0);
  buffer.Insert(1, u"again");
  EXPECT_EQ(buffer.Line(1), u"again");
}

TEST(LineBuffer, TakesAWholeModuleIntoTheMiddle) {
  LineBuffer buffer(Numbered(10));
  EXPECT_EQ(buffer.Insert(6, Numbered(3000)), 3001);
  EXPECT_EQ(buffer.Count(), 3011);
  EXPECT_EQ(buffer.Line(5), u"line 5");
  EXPECT_EQ(buffer.Line(6), u"line 1");
  EXPECT_EQ(buffer.Line(3005), u"line 3000");
  EXPECT_EQ(buffer.Line(3006), u"");
  EXPECT_EQ(buffer.Line(3007), u"line 6");
}

TEST(LineBuffer, WhatHangsOnLinesAndTheirEndsStayBesideAWholeModuleThatComesBetween) {
  LineBuffer buffer(u"a\nb\rc\r\nd\r\n");
  const auto hang = [&](int line, StringView text) {
    HiddenLine one;
    one.Text = text;
    buffer.SetHidden(line, {one});
  };
  hang(2, u"of b");
  hang(3, u"of c");
  EXPECT_EQ(buffer.Insert(3, Numbered(1000)), 1001);
  EXPECT_EQ(buffer.LinesWithHidden(0, buffer.Count()), (std::vector<int>{2, 1004}));
  ASSERT_EQ(buffer.HiddenAt(2).size(), 1U);
  EXPECT_EQ(buffer.HiddenAt(2).front().Text, u"of b");
  ASSERT_EQ(buffer.HiddenAt(1004).size(), 1U);
  EXPECT_EQ(buffer.HiddenAt(1004).front().Text, u"of c");
  EXPECT_EQ(buffer.EndOf(1), LineEnd::Lf);
  EXPECT_EQ(buffer.EndOf(2), LineEnd::Cr);
  EXPECT_EQ(buffer.EndOf(3), LineEnd::CrLf);
  EXPECT_EQ(buffer.EndOf(1003), LineEnd::CrLf);
  EXPECT_EQ(buffer.Text(1004, 2), u"c\r\nd");
}

TEST(LineBuffer, FindsLinesInAnyOrder) {
  const LineBuffer buffer(Numbered(3000));
  for (const int line : {3000, 1, 1500, 512, 513, 2, 2999, 1024, 1025}) {
    EXPECT_EQ(buffer.Line(line), u"line " + vb::Str(line));
  }
}

TEST(LineBuffer, GivesLinesSeparatedByCrLfWhateverTheirEnds) {
  const LineBuffer buffer(u"a\nb\rc\n");
  EXPECT_EQ(buffer.Text(1, 3), u"a\r\nb\r\nc");
  EXPECT_EQ(buffer.Text(2, 1), u"b");
  EXPECT_EQ(buffer.Text(2, 0), u"");
}

/// The same edits on a plain list of lines.
struct PlainLines {
  std::vector<String> Lines;
  void Insert(int line, StringView text) {
    const auto pieces = CutLines(text);
    Lines.insert(Lines.begin() + (line - 1), pieces.begin(), pieces.end());
  }
  void Delete(int first, int count) {
    Lines.erase(Lines.begin() + (first - 1), Lines.begin() + (first - 1 + count));
  }
};

TEST(LineBuffer, AgreesWithAPlainListAfterAnyEdits) {
  std::mt19937 random(11);
  const auto upTo = [&](int most) {
    return static_cast<int>(random() % static_cast<unsigned>(most));
  };
  LineBuffer buffer(Numbered(2000));
  PlainLines plain;
  for (int line = 1; line <= 2000; ++line) plain.Lines.emplace_back(u"line " + vb::Str(line));
  for (int step = 0; step < 600; ++step) {
    const int at = 1 + upTo(buffer.Count() + 1);
    if (upTo(2) == 0 && at <= buffer.Count()) {
      const int count = 1 + upTo(std::min(buffer.Count() - at + 1, step % 50 == 0 ? 1500 : 20));
      buffer.Delete(at, count);
      plain.Delete(at, count);
    } else {
      const String text = Numbered(upTo(step % 40 == 0 ? 1200 : 6)) + u"last";
      buffer.Insert(at, text);
      plain.Insert(at, text);
    }
    ASSERT_EQ(buffer.Count(), static_cast<int>(plain.Lines.size()));
    for (int look = 0; look < 5 && buffer.Count() > 0; ++look) {
      const int line = 1 + upTo(buffer.Count());
      ASSERT_EQ(buffer.Line(line), plain.Lines[static_cast<std::size_t>(line) - 1]);
    }
  }
  EXPECT_EQ(buffer.Text(1, buffer.Count()), vb::Join(plain.Lines, vb::CrLf));
}

TEST(LineBuffer, EndsOfManyLinesAreReadAndSetAtOnce) {
  String text;
  std::vector<LineEnd> expected;
  for (int line = 0; line < 1000; ++line) {
    text += vb::Str(line) + (line % 7 == 3 ? u"\n" : u"\r\n");
    expected.push_back(line % 7 == 3 ? LineEnd::Lf : LineEnd::CrLf);
  }
  LineBuffer lines(text);
  const auto part = [&](int first, int count) {
    return std::vector<LineEnd>(expected.begin() + first - 1, expected.begin() + first - 1 + count);
  };
  EXPECT_EQ(lines.EndsOf(1, 1000), expected);
  EXPECT_EQ(lines.EndsOf(120, 400), part(120, 400));
  EXPECT_TRUE(lines.EndsOf(5, 6).empty()) << "all of them end as new lines do";
  EXPECT_TRUE(lines.EndsOf(1, 0).empty());
  lines.SetEnds(500, std::vector<LineEnd>(300, LineEnd::Cr));
  EXPECT_EQ(lines.EndsOf(1, 499), part(1, 499));
  EXPECT_EQ(lines.EndsOf(500, 300), std::vector<LineEnd>(300, LineEnd::Cr));
  EXPECT_EQ(lines.EndsOf(800, 201), part(800, 201));
}

}  // namespace
}  // namespace tessel::model
