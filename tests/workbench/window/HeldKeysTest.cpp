#include "hosts/workbench/window/HeldKeys.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tessel::workbench {
namespace {

class HeldKey : public testing::Test {
 protected:
  HeldKey() { qApp->installEventFilter(&filter_); }
  ~HeldKey() override { qApp->removeEventFilter(&filter_); }

  static void Send(QWidget& to, int key, bool repeated) {
    const QString text = key == Qt::Key_Return ? QStringLiteral("\r") : QString(QChar(key));
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text, repeated);
    QApplication::sendEvent(&to, &press);
  }

  HeldKeys filter_;
  QPlainTextEdit code_;
};

TEST_F(HeldKey, DoesNotGoOnBehindTheDialogThatItClosed) {
  auto dialog = std::make_unique<QDialog>();
  auto* const button = new QPushButton(dialog.get());
  button->setDefault(true);
  QObject::connect(button, &QPushButton::clicked, dialog.get(), &QDialog::accept);
  dialog->show();
  Send(*dialog, Qt::Key_Return, false);
  EXPECT_FALSE(dialog->isVisible());
  for (int repeat = 0; repeat < 5; ++repeat) Send(code_, Qt::Key_Return, true);
  dialog.reset();
  Send(code_, Qt::Key_Return, true);
  EXPECT_TRUE(code_.toPlainText().isEmpty());
  Send(code_, Qt::Key_Return, false);
  Send(code_, Qt::Key_Return, true);
  EXPECT_EQ(code_.toPlainText(), QStringLiteral("\n\n")) << "pressed anew it repeats";
}

TEST_F(HeldKey, DoesNotAnswerTheDialogThatComesUpUnderIt) {
  Send(code_, Qt::Key_Return, false);
  QDialog dialog;
  auto* const button = new QPushButton(&dialog);
  button->setDefault(true);
  QObject::connect(button, &QPushButton::clicked, &dialog, &QDialog::accept);
  dialog.show();
  Send(dialog, Qt::Key_Return, true);
  EXPECT_TRUE(dialog.isVisible());
  Send(dialog, Qt::Key_Return, false);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(HeldKey, ThatAnswersNoDialogRepeatsWhereverItIs) {
  QWidget other;
  Send(other, Qt::Key_A, false);
  Send(code_, Qt::Key_A, true);
  EXPECT_EQ(code_.toPlainText(), QStringLiteral("A"));
}

}  // namespace
}  // namespace tessel::workbench
