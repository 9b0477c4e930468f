#include "hosts/workbench/forms/TextBoxView.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QToolButton>

#include "hosts/workbench/forms/SpinArrows.h"
#include "workbench/forms/Desk.h"

namespace tessel::workbench {
namespace {

/// A number whose field and arrows follow each other inside 40 to 140.
class NumberForm : public forms::Form {
 public:
  NumberForm() : Form("frmNumber", u"Number") {
    using namespace forms;
    SetLayout(Column({Row({Item(txtNumber), Item(VScrollNumber), Space()}), Item(btmRun)}));
    btmRun.Default = true;
    txtNumber.SetText(u"90");
    VScrollNumber.SetValue(90);
    txtNumber.Change = [this] {
      const int value = std::clamp(std::atoi(vb::ToUtf8(txtNumber.Text()).c_str()), 40, 140);
      txtNumber.SetText(vb::Str(value));
      VScrollNumber.SetValue(value);
    };
    VScrollNumber.Change = [this] { txtNumber.SetText(vb::Str(VScrollNumber.Value())); };
    btmRun.Click = [this] { Seen = txtNumber.Text(); };
  }
  forms::TextBox txtNumber{this, "txtNumber"};
  forms::SpinButton VScrollNumber{this, "VScrollNumber", 40, 140};
  forms::Button btmRun{this, "btmRun", {.Caption = u"Run"}};
  String Seen;
};

class NumberField : public testing::Test {
 protected:
  NumberField() { desk_.Open(*form_); }
  ~NumberField() override { form_->Unload(); }

  QLineEdit& Line() { return desk_.Find<QLineEdit>(*form_, "txtNumber"); }
  void Type(const QString& text) {
    Line().selectAll();
    QTest::keyClicks(&Line(), text);
  }

  test::Desk desk_;
  std::shared_ptr<NumberForm> form_ = std::make_shared<NumberForm>();
};

TEST_F(NumberField, ANumberCanBeTypedDigitByDigit) {
  Type(QStringLiteral("100"));
  EXPECT_EQ(Line().text(), QStringLiteral("100"));
  EXPECT_EQ(form_->txtNumber.Text(), u"100");
  EXPECT_EQ(form_->VScrollNumber.Value(), 100);
}

TEST_F(NumberField, ANumberAboveTheBoundsIsPulledInAtOnce) {
  Type(QStringLiteral("999"));
  EXPECT_EQ(Line().text(), QStringLiteral("140"));
}

TEST_F(NumberField, ANumberBelowTheBoundsIsPulledInWhenTheFieldIsLeft) {
  Type(QStringLiteral("7"));
  EXPECT_EQ(form_->txtNumber.Text(), u"90");
  desk_.Find<QPushButton>(*form_, "btmRun").setFocus();
  test::Desk::Turn();
  EXPECT_EQ(form_->txtNumber.Text(), u"40");
  EXPECT_EQ(Line().text(), QStringLiteral("40"));
  EXPECT_EQ(form_->ActiveControl(), &form_->btmRun);
}

TEST_F(NumberField, ANumberOnItsWayIsToldAheadOfAButton) {
  Type(QStringLiteral("5"));
  desk_.Find<QPushButton>(*form_, "btmRun").click();
  EXPECT_EQ(form_->Seen, u"40");
}

TEST_F(NumberField, ANumberOnItsWayIsToldAheadOfEnter) {
  Type(QStringLiteral("5"));
  QTest::keyClick(&Line(), Qt::Key_Return);
  EXPECT_EQ(form_->Seen, u"40");
}

TEST_F(NumberField, TheArrowsTurnFromTheNumberTyped) {
  Type(QStringLiteral("1"));
  QTest::mouseClick(&desk_.Find<SpinArrows>(*form_, "VScrollNumber").Up(), Qt::LeftButton);
  EXPECT_EQ(Line().text(), QStringLiteral("41"));
}

TEST_F(NumberField, IsAsWideAsItsNumberAndNoWider) {
  const QFontMetrics metrics = Line().fontMetrics();
  EXPECT_GE(Line().width(), metrics.horizontalAdvance(QStringLiteral("140")) + 8);
  EXPECT_LE(Line().width(), metrics.horizontalAdvance(QStringLiteral("1401401")) + 30);
}

}  // namespace
}  // namespace tessel::workbench
