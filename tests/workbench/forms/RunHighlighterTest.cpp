#include "hosts/workbench/forms/RunHighlighter.h"

#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace tessel::workbench {
namespace {

double Brightness(const QColor& color) {
  return 0.299 * color.redF() + 0.587 * color.greenF() + 0.114 * color.blueF();
}

TEST(ReadableColorOf, LeavesWhatCanBeRead) {
  EXPECT_EQ(ReadableColor(QColor(0, 0, 255), Qt::white), QColor(0, 0, 255));
  EXPECT_EQ(ReadableColor(QColor(250, 250, 120), QColor(30, 30, 30)), QColor(250, 250, 120));
}

TEST(ReadableColorOf, LightensOnDarkAndDarkensOnLight) {
  EXPECT_GT(Brightness(ReadableColor(QColor(0, 0, 255), QColor(30, 30, 30))), 0.4);
  EXPECT_LT(Brightness(ReadableColor(QColor(255, 255, 0), Qt::white)), 0.6);
}

class Highlighter : public testing::Test {
 protected:
  /// Columns and lengths of the colours of a line.
  std::vector<std::pair<int, int>> Line(int number) {
    std::vector<std::pair<int, int>> spans;
    for (const auto& range : document_.findBlockByNumber(number).layout()->formats()) {
      spans.emplace_back(range.start, range.length);
    }
    return spans;
  }
  using Spans = std::vector<std::pair<int, int>>;
  QTextDocument document_{QStringLiteral("ab\ncd\n\nef")};
  RunHighlighter colors_{&document_};
};

TEST_F(Highlighter, ARunOverSeveralLinesColoursEachOfThem) {
  colors_.Show({u"ab\r\ncd\r\n\r\nef", {{1, 0}, {8, 255}, {3, 0}}});
  EXPECT_EQ(Line(0), (Spans{{1, 1}}));
  EXPECT_EQ(Line(1), (Spans{{0, 2}}));
  EXPECT_EQ(Line(2), (Spans{}));
  EXPECT_EQ(Line(3), (Spans{}));
}

TEST_F(Highlighter, TheColourOfPlainTextIsThatOfThePalette) {
  colors_.Show({u"ab\r\ncd\r\n\r\nef", {{12, forms::DefaultColor}}});
  for (const int line : {0, 1, 2, 3}) EXPECT_EQ(Line(line), (Spans{}));
}

TEST_F(Highlighter, OnlyLinesThatDifferAreDrawnAgain) {
  colors_.Show({u"ab\r\ncd\r\n\r\nef", {{2, 255}, {10, 0}}});
  QTextDocument* const document = &document_;
  std::vector<int> changed;
  QObject::connect(document, &QTextDocument::contentsChange, document,
                   [&](int at, int, int) { changed.push_back(at); });
  colors_.Show({u"ab\r\ncd\r\n\r\nef", {{2, 255}, {8, 0}, {2, 0xFF0000}}});
  EXPECT_EQ(Line(0), (Spans{{0, 2}}));
  EXPECT_EQ(Line(3), (Spans{{0, 2}}));
  EXPECT_TRUE(changed.empty()) << "colours are no change of the text";
}

TEST_F(Highlighter, ColoursThatGoAreTakenOff) {
  colors_.Show({u"ab\r\ncd\r\n\r\nef", {{12, 255}}});
  colors_.Show({u"ab\r\ncd\r\n\r\nef", {{12, 0}}});
  EXPECT_EQ(Line(1), (Spans{}));
}

}  // namespace
}  // namespace tessel::workbench
