#include "hosts/workbench/forms/StandardBoxes.h"

#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>

#include "forms/Control.h"
#include "support/TemporaryFolder.h"
#include "workbench/forms/Desk.h"

namespace tessel::workbench {
namespace {

using platform::MessageAnswer;
using test::Desk;

/// A box of that style that a key closes.
MessageAnswer AnswerOf(int style, Qt::Key key) {
  Desk::WhenOpen<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, key); });
  return AskMessage(nullptr, u"Text", u"Title", style);
}

TEST(MessageBoxOf, HasTheButtonsOfItsStyle) {
  const std::vector<std::pair<int, std::vector<QMessageBox::StandardButton>>> styles{
      {platform::OKOnly, {QMessageBox::Ok}},
      {platform::OKCancel, {QMessageBox::Ok, QMessageBox::Cancel}},
      {platform::AbortRetryIgnore, {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore}},
      {platform::YesNoCancel, {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}},
      {platform::YesNo, {QMessageBox::Yes, QMessageBox::No}},
      {platform::RetryCancel, {QMessageBox::Retry, QMessageBox::Cancel}}};
  for (const auto& [style, buttons] : styles) {
    QMessageBox::StandardButtons wanted, seen;
    for (const auto button : buttons) wanted |= button;
    Desk::WhenOpen<QMessageBox>([&](QMessageBox& box) {
      seen = box.standardButtons();
      QTest::keyClick(&box, Qt::Key_Return);
    });
    static_cast<void>(AskMessage(nullptr, u"Text", u"Title", style));
    EXPECT_EQ(seen, wanted) << style;
  }
}

TEST(MessageBoxOf, EnterIsTheDefaultButton) {
  EXPECT_EQ(AnswerOf(platform::YesNo, Qt::Key_Return), MessageAnswer::Yes);
  EXPECT_EQ(AnswerOf(platform::YesNo | platform::DefaultButton2, Qt::Key_Return),
            MessageAnswer::No);
  EXPECT_EQ(AnswerOf(platform::YesNoCancel | 2 * platform::DefaultButton2, Qt::Key_Return),
            MessageAnswer::Cancel);
}

TEST(MessageBoxOf, EscapeIsTheAnswerOfClosing) {
  EXPECT_EQ(AnswerOf(platform::OKOnly, Qt::Key_Escape), MessageAnswer::OK);
  EXPECT_EQ(AnswerOf(platform::OKCancel, Qt::Key_Escape), MessageAnswer::Cancel);
  EXPECT_EQ(AnswerOf(platform::AbortRetryIgnore, Qt::Key_Escape), MessageAnswer::Abort);
  EXPECT_EQ(AnswerOf(platform::YesNo, Qt::Key_Escape), MessageAnswer::No);
}

TEST(MessageBoxOf, ShowsTextTitleAndIconAsTheyAre) {
  Desk::WhenOpen<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.text(), QStringLiteral("<b>1 & 2</b>"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Tessel"));
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    QTest::keyClick(&box, Qt::Key_Return);
  });
  static_cast<void>(AskMessage(nullptr, u"<b>1 & 2</b>", u"Tessel", platform::Exclamation));
}

TEST(MessageBoxOf, IsAnsweredWhenItsParentGoes) {
  auto* const parent = new QWidget;
  parent->show();
  Desk::WhenOpen<QMessageBox>([&](QMessageBox&) { parent->deleteLater(); });
  EXPECT_EQ(AskMessage(parent, u"Text", u"Title", platform::YesNo), MessageAnswer::No);
}

TEST(InputBoxOf, GivesTheTextOrNothing) {
  Desk::WhenOpen<QInputDialog>([](QInputDialog& box) {
    EXPECT_EQ(box.textValue(), QStringLiteral("old"));
    box.setTextValue(QStringLiteral("new"));
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(AskInput(nullptr, u"Name:", u"Title", u"old"), String(u"new"));
  Desk::WhenOpen<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(AskInput(nullptr, u"Name:", u"Title", u"old"), std::nullopt);
}

TEST(FileFiltersOf, AreCaptionAndPatterns) {
  EXPECT_EQ(FileFilters(u"Modules (*.bas)|*.bas;*.cls|All|*.*"),
            (std::vector<String>{u"Modules (*.bas *.cls)", u"All (*.*)"}));
  EXPECT_TRUE(FileFilters(u"").empty());
  EXPECT_EQ(FileFilters(u"Odd|*.x|rest"), (std::vector<String>{u"Odd (*.x)"}));
}

TEST(FileDialogOf, GivesFullPathsOrNothing) {
  const test::TemporaryFolder folder;
  folder.Write("a.bas", "x");
  platform::FileDialogRequest request;
  request.InitialDir = folder.Path().u16string();
  request.Title = u"Choose";
  request.Filter = u"Modules|*.bas";
  Desk::WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Choose"));
    EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("Modules (*.bas)")});
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("a.bas"));
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
  });
  EXPECT_EQ(AskFiles(nullptr, request),
            (std::vector<String>{(folder.Path() / "a.bas").u16string()}));
  Desk::WhenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_TRUE(AskFiles(nullptr, request).empty());
}

TEST(FileDialogOf, ASavedNameGetsTheDefaultExtension) {
  const test::TemporaryFolder folder;
  platform::FileDialogRequest request;
  request.Save = true;
  request.InitialDir = folder.Path().u16string();
  request.DefaultExt = u".cls";
  Desk::WhenOpen<QFileDialog>([](QFileDialog& dialog) {
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("new"));
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
  });
  EXPECT_EQ(AskFiles(nullptr, request),
            (std::vector<String>{(folder.Path() / "new.cls").u16string()}));
}

TEST(FontDialogOf, ChangesTheFontWhenAccepted) {
  forms::Font font;
  font.Name = u"DejaVu Serif";
  Desk::WhenOpen<QFontDialog>([](QFontDialog& dialog) {
    QFont chosen(QStringLiteral("DejaVu Serif"), 14, QFont::Bold);
    chosen.setUnderline(true);
    dialog.setCurrentFont(chosen);
    dialog.accept();
  });
  EXPECT_TRUE(AskFont(nullptr, font, u"Font"));
  EXPECT_EQ(font.Size, 14);
  EXPECT_TRUE(font.Bold);
  EXPECT_TRUE(font.Underline);
  EXPECT_FALSE(font.Italic);
  EXPECT_EQ(font.Weight, 700);
}

TEST(FontDialogOf, LeavesTheFontWhenCancelled) {
  forms::Font font;
  const forms::Font before = font;
  Desk::WhenOpen<QFontDialog>([](QFontDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(AskFont(nullptr, font, u""));
  EXPECT_EQ(font, before);
}

}  // namespace
}  // namespace tessel::workbench
