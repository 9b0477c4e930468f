#include "hosts/workbench/forms/TextEdit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTextDocument>

namespace tessel::workbench {
namespace {

TEST(TextEditPositions, CountACrLfOnceOrTwice) {
  EXPECT_EQ(ShownPosition(u"a\r\nb\r\nc", 6), 4);
  EXPECT_EQ(ShownPosition(u"a\r\nb", 2), 1) << "between CR and LF is ahead of the line end";
  EXPECT_EQ(ModelPosition(QStringLiteral("a\nb\nc"), 4), 6);
  EXPECT_EQ(ModelPosition(QStringLiteral("a\nb"), 1), 1);
}

TEST(TextEditPositions, GoThereAndBackAtEveryPlace) {
  const String text = u"\r\nab\r\n\r\nc\r\n";
  const QString shown = WithLf(text);
  for (int at = 0; at <= shown.size(); ++at) {
    EXPECT_EQ(ShownPosition(text, ModelPosition(shown, at)), at);
  }
  EXPECT_EQ(WithModelEnds(shown), text);
}

TEST(TextEditText, HasEveryCharacterAsItIs) {
  TextEdit edit(20, 4);
  const QString text = QStringLiteral("a\u00A0b\tc\n\u4E16\n");
  edit.ShowPlainText(text);
  EXPECT_EQ(edit.PlainText(), text);
}

TEST(TextEditText, ReplacesOnlyWhatDiffers) {
  TextEdit edit(20, 4);
  edit.ShowPlainText(QStringLiteral("one\ntwo\nthree"));
  int removed = -1, added = -1;
  QObject::connect(edit.document(), &QTextDocument::contentsChange, &edit,
                   [&](int, int out, int in) {
                     removed = out;
                     added = in;
                   });
  edit.ShowPlainText(QStringLiteral("one\ntwo2\nthree"));
  EXPECT_EQ(removed, 0);
  EXPECT_EQ(added, 1);
}

TEST(TextEditText, ReplacesInsideRepeatedCharacters) {
  TextEdit edit(20, 4);
  for (const QString& text : {QStringLiteral("aaa"), QStringLiteral("aaaa"), QStringLiteral("a"),
                              QString(), QStringLiteral("aba"), QStringLiteral("ababa")}) {
    edit.ShowPlainText(text);
    EXPECT_EQ(edit.PlainText(), text);
  }
}

TEST(TextEditSize, GrowsWithTheFont) {
  TextEdit edit(20, 4);
  const QSize before = edit.sizeHint();
  QFont font = edit.font();
  font.setPointSizeF(font.pointSizeF() * 2);
  edit.setFont(font);
  EXPECT_GT(edit.sizeHint().width(), before.width());
  EXPECT_GT(edit.sizeHint().height(), before.height());
}

}  // namespace
}  // namespace tessel::workbench
