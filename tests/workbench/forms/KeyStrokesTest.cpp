#include "hosts/workbench/forms/KeyStrokes.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

using Keys = std::vector<int>;

Keys KeysOf(StringView text) {
  Keys keys;
  for (const KeyStroke& stroke : ReadKeys(text)) keys.push_back(stroke.Key);
  return keys;
}

TEST(ReadKeysOf, PlainCharactersTypeThemselves) {
  const auto strokes = ReadKeys(u"aB");
  ASSERT_EQ(strokes.size(), 2U);
  EXPECT_EQ(strokes[0], (KeyStroke{Qt::Key_A, Qt::NoModifier, QStringLiteral("a")}));
  EXPECT_EQ(strokes[1].Text, QStringLiteral("B"));
}

TEST(ReadKeysOf, NamesAreKeysInAnyCase) {
  EXPECT_EQ(KeysOf(u"{ESC}{enter}{TAB}{F4}{Home}~"),
            (Keys{Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_F4, Qt::Key_Home,
                  Qt::Key_Return}));
}

TEST(ReadKeysOf, ANumberRepeatsAKey) {
  EXPECT_EQ(KeysOf(u"{DOWN 3}"), (Keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}));
  EXPECT_EQ(KeysOf(u"{x 2}"), (Keys{Qt::Key_X, Qt::Key_X}));
}

TEST(ReadKeysOf, ModifiersHoldForAKeyOrAGroup) {
  const auto strokes = ReadKeys(u"^c%x+a^(kl)m+{F1}^+v");
  ASSERT_EQ(strokes.size(), 8U);
  EXPECT_EQ(strokes[0], (KeyStroke{Qt::Key_C, Qt::ControlModifier, QString()}));
  EXPECT_EQ(strokes[1], (KeyStroke{Qt::Key_X, Qt::AltModifier, QString()}));
  EXPECT_EQ(strokes[2], (KeyStroke{Qt::Key_A, Qt::ShiftModifier, QStringLiteral("A")}));
  EXPECT_EQ(strokes[4].Modifiers, Qt::ControlModifier);
  EXPECT_EQ(strokes[5].Modifiers, Qt::NoModifier);
  EXPECT_EQ(strokes[6], (KeyStroke{Qt::Key_F1, Qt::ShiftModifier, QString()}));
  EXPECT_EQ(strokes[7].Modifiers, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST(ReadKeysOf, BracketsMakeCharactersOfSigns) {
  std::u16string typed;
  for (const KeyStroke& stroke : ReadKeys(u"{+}{^}{%}{~}{(}{)}{{}{}}")) {
    typed += stroke.Text.toStdU16String();
  }
  EXPECT_EQ(typed, u"+^%~(){}");
}

TEST(ReadKeysOf, WhatCanNotBeReadFails) {
  for (const char16_t* keys : {u"{NOWHERE}", u"{ESC", u"^(ab", u"^", u"{}"}) {
    EXPECT_THROW(static_cast<void>(ReadKeys(keys)), vb::Failure) << vb::ToUtf8(keys);
  }
}

class Sending : public testing::Test {
 protected:
  Sending() {
    auto* const column = new QVBoxLayout(&window_);
    column->addWidget(&line_);
    column->addWidget(&box_);
    window_.show();
    window_.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window_));
    line_.setFocus();
  }
  QWidget window_;
  QLineEdit line_{&window_};
  QCheckBox box_{QStringLiteral("&Box"), &window_};
};

TEST_F(Sending, KeysGoToTheFocus) {
  SendStrokes(ReadKeys(u"abc{LEFT}{BS}+d"));
  EXPECT_EQ(line_.text(), QStringLiteral("aDc"));
}

TEST_F(Sending, TabMovesOnAndTheNextKeyGoesThere) {
  SendStrokes(ReadKeys(u"{TAB} "));
  EXPECT_TRUE(box_.isChecked());
}

TEST_F(Sending, AnAccessKeyPressesItsButton) {
  SendStrokes(ReadKeys(u"%b"));
  EXPECT_TRUE(box_.isChecked());
}

TEST_F(Sending, AShortcutTriggersItsAction) {
  QAction action(&window_);
  action.setShortcut(QKeySequence(Qt::Key_F4));
  int triggered = 0;
  QObject::connect(&action, &QAction::triggered, &window_, [&] { ++triggered; });
  SendStrokes(ReadKeys(u"{F4}"));
  action.setEnabled(false);
  SendStrokes(ReadKeys(u"{F4}"));
  EXPECT_EQ(triggered, 1);
}

}  // namespace
}  // namespace tessel::workbench
