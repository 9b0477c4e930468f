#include "hosts/workbench/forms/RichTextView.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QPushButton>
#include <QTextBlock>
#include <QTextLayout>

#include "presentation/ViewTextRichtextbox.h"
#include "workbench/forms/Desk.h"
#include "workbench/forms/SampleForm.h"

namespace tessel::workbench {
namespace {

constexpr forms::Color Red = 0x0000FF, Blue = 0xFF0000;

class RichText : public testing::Test {
 protected:
  RichText() {
    form_->tabPages.SetCurrTab(1);
    desk_.Open(*form_);
    Box().SetFocus();
    test::Desk::Turn();
    form_->Events.clear();
  }
  ~RichText() override { form_->Unload(); }

  forms::RichTextBox& Box() { return form_->RicText; }
  TextEdit& Edit() { return desk_.Find<TextEdit>(*form_, "RicText"); }
  void Show(StringView text) {
    Box().SetText(text);
    test::Desk::Turn();
    form_->Events.clear();
  }
  void Color(int start, int length, forms::Color color) {
    Box().SetSelStart(start);
    Box().SetSelLength(length);
    Box().SetSelColor(color);
    test::Desk::Turn();
  }
  /// The colours of a line by start, length and name.
  std::vector<std::tuple<int, int, QString>> ColorsOf(int line) {
    std::vector<std::tuple<int, int, QString>> found;
    for (const auto& range : Edit().document()->findBlockByNumber(line).layout()->formats()) {
      found.emplace_back(range.start, range.length, range.format.foreground().color().name());
    }
    return found;
  }
  using Ranges = std::vector<std::tuple<int, int, QString>>;

  test::Desk desk_;
  std::shared_ptr<test::SampleForm> form_ = std::make_shared<test::SampleForm>();
};

TEST_F(RichText, TheTextOfTheModelHasLfInTheWidget) {
  Show(u"one\r\ntwo");
  EXPECT_EQ(Edit().PlainText(), QStringLiteral("one\ntwo"));
}

TEST_F(RichText, ATypedTextHasCrLfInTheModel) {
  QTest::keyClicks(&Edit(), QStringLiteral("a"));
  QTest::keyClick(&Edit(), Qt::Key_Return);
  QTest::keyClicks(&Edit(), QStringLiteral("b"));
  EXPECT_EQ(Box().Text(), u"a\r\nb");
  EXPECT_EQ(form_->Events, (std::vector<String>{u"RicText", u"RicText", u"RicText"}));
}

TEST_F(RichText, TheCaretOfTheUserIsTheModels) {
  Show(u"one\r\ntwo");
  QTest::keyClick(&Edit(), Qt::Key_Down);
  QTest::keyClick(&Edit(), Qt::Key_Right);
  EXPECT_EQ(Box().SelStart(), 6) << "CR LF counts two";
  QTest::keyClick(&Edit(), Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Box().SelLength(), 1);
  EXPECT_EQ(Box().SelText(), u"w");
}

TEST_F(RichText, TheSelectionOfTheModelIsTheWidgets) {
  Show(u"one\r\ntwo\r\nthree");
  Box().SetSelStart(5);
  Box().SetSelLength(5);
  test::Desk::Turn();
  EXPECT_EQ(Edit().textCursor().selectionStart(), 4);
  EXPECT_EQ(Edit().textCursor().selectionEnd(), 8);
  EXPECT_EQ(Box().SelLength(), 5) << "and nothing of it came back";
}

TEST_F(RichText, TheCaretStaysWhereTheUserTypesThoughTheModelColoursAnew) {
  Show(u"ab ' note\r\ncd");
  bool coloring = false;
  Box().Change = [&] {
    if (std::exchange(coloring, true)) return;
    mFunctions::ViewTextRichtextbox(Box(), String(Box().Text()));
    coloring = false;
  };
  QTextCursor cursor = Edit().textCursor();
  cursor.setPosition(1);
  Edit().setTextCursor(cursor);
  int rebuilt = 0;
  QObject::connect(Edit().document(), &QTextDocument::contentsChange, &Edit(),
                   [&](int, int removed, int added) { rebuilt += removed + added; });
  QTest::keyClicks(&Edit(), QStringLiteral("xy"));
  EXPECT_EQ(Edit().PlainText(), QStringLiteral("axyb ' note\ncd"));
  EXPECT_EQ(Edit().textCursor().position(), 3);
  EXPECT_EQ(Box().SelStart(), 3);
  EXPECT_EQ(ColorsOf(0), (Ranges{{5, 6, QStringLiteral("#008000")}}));
  EXPECT_LT(rebuilt, 60) << "lines that stay are left alone";
}

TEST_F(RichText, TheUndoListOfTheUserSurvivesTheColours) {
  Show(u"");
  QTest::keyClicks(&Edit(), QStringLiteral("ab"));
  Color(0, 1, Red);
  Edit().undo();
  EXPECT_EQ(Box().Text(), u"");
}

TEST_F(RichText, ColoursHaveRedInTheLowByte) {
  Show(u"one\r\ntwo");
  Color(0, 2, Red);
  Color(5, 3, Blue);
  ASSERT_EQ(ColorsOf(0).size(), 1U);
  const auto [start, length, name] = ColorsOf(0).front();
  EXPECT_EQ(start, 0);
  EXPECT_EQ(length, 2);
  EXPECT_GT(QColor(name).red(), 200) << "a little darker, to be read on white";
  EXPECT_LT(QColor(name).blue(), 60);
  EXPECT_EQ(ColorsOf(1), (Ranges{{0, 3, QStringLiteral("#0000ff")}}));
}

TEST_F(RichText, AReadOnlyTextTakesNoTypingAndCanBeSelected) {
  Box().Locked = true;
  Show(u"fixed");
  QTest::keyClicks(&Edit(), QStringLiteral("x"));
  EXPECT_EQ(Box().Text(), u"fixed");
  Edit().selectAll();
  test::Desk::Turn();
  EXPECT_EQ(Box().SelText(), u"fixed");
  EXPECT_TRUE(desk_.Boxes.isEmpty());
}

TEST_F(RichText, AHandlerThatPutsAnotherTextInHasTheLastWord) {
  Box().Change = [this] {
    if (Box().Text() != u"mine") Box().SetText(u"mine");
  };
  QTest::keyClicks(&Edit(), QStringLiteral("x"));
  EXPECT_EQ(Edit().PlainText(), QStringLiteral("mine"));
  EXPECT_EQ(Edit().textCursor().position(), Box().SelStart());
}

TEST_F(RichText, ASelectionThatTheModelReplacesIsReplacedInTheWidget) {
  Show(u"one two");
  Edit().setTextCursor([&] {
    QTextCursor cursor = Edit().textCursor();
    cursor.setPosition(0);
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    return cursor;
  }());
  Box().SetSelText(u"{Date}");
  test::Desk::Turn();
  EXPECT_EQ(Edit().PlainText(), QStringLiteral("{Date} two"));
  EXPECT_EQ(Edit().textCursor().position(), 6);
}

TEST_F(RichText, FixedBlanksAreKept) {
  Show(u"a\u00A0b");
  QTest::keyClicks(&Edit(), QStringLiteral("x"));
  EXPECT_EQ(Box().Text(), u"xa\u00A0b");
}

TEST_F(RichText, ADarkBackgroundLightensTheColours) {
  Show(u"one");
  Color(0, 3, Blue);
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  Edit().setPalette(dark);
  test::Desk::Turn();
  EXPECT_GT(QColor(std::get<2>(ColorsOf(0).at(0))).lightness(), 140);
}

}  // namespace
}  // namespace tessel::workbench
