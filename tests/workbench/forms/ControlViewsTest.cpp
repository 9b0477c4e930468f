#include "hosts/workbench/forms/ControlViews.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include "hosts/workbench/forms/SpinArrows.h"
#include "workbench/forms/Desk.h"
#include "workbench/forms/SampleForm.h"

namespace tessel::workbench {
namespace {

using Events = std::vector<String>;

/// A label that shows what is typed.
class ResultForm : public forms::Form {
 public:
  ResultForm() : Form("frmResult", u"Result") {}
  forms::Label lblResult{this, "lblResult", {.Caption = u"nn_"}};
  forms::TextBox txtName{this, "txtName"};
};

class Views : public testing::Test {
 protected:
  Views() {
    desk_.Open(*form_);
    form_->Events.clear();
  }
  ~Views() override { form_->Unload(); }

  template <class Widget>
  Widget& Find(const char* name) {
    return desk_.Find<Widget>(*form_, name);
  }
  static void Click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
  /// A change of the model has come to the widget, and nothing of it went back.
  void ExpectNoEcho() {
    const Events before = form_->Events;
    test::Desk::Turn();
    EXPECT_EQ(form_->Events, before);
  }

  test::Desk desk_;
  std::shared_ptr<test::SampleForm> form_ = std::make_shared<test::SampleForm>();
};

TEST_F(Views, ATypedTextReachesTheTextBox) {
  auto& line = Find<QLineEdit>("txtName");
  line.selectAll();
  QTest::keyClicks(&line, QStringLiteral("ab"));
  EXPECT_EQ(form_->txtName.Text(), u"ab");
  EXPECT_EQ(form_->Events, (Events{u"txtName", u"txtName"}));
}

TEST_F(Views, ATextThatAHandlerBoundsIsPutBackAtOnce) {
  form_->txtName.Change = [this] { form_->txtName.SetText(u"40"); };
  auto& line = Find<QLineEdit>("txtName");
  line.selectAll();
  QTest::keyClicks(&line, QStringLiteral("9"));
  EXPECT_EQ(line.text(), QStringLiteral("40"));
}

TEST_F(Views, LinesThatArePastedBecomeOneLine) {
  auto& line = Find<QLineEdit>("txtName");
  for (int time = 0; time < 2; ++time) {
    line.selectAll();
    QGuiApplication::clipboard()->setText(QStringLiteral("one\r\ntwo\tthree"));
    line.paste();
    EXPECT_EQ(form_->txtName.Text(), u"one two three");
    EXPECT_EQ(line.text(), QStringLiteral("one two three")) << "also over the same text";
  }
}

TEST_F(Views, TheTextOfTheModelReachesTheField) {
  form_->txtName.SetText(u"model");
  ExpectNoEcho();
  EXPECT_EQ(Find<QLineEdit>("txtName").text(), QStringLiteral("model"));
}

TEST_F(Views, ALockedFieldTakesNoTyping) {
  form_->txtName.Locked = true;
  form_->txtName.SetText(u"fixed");
  test::Desk::Turn();
  QTest::keyClicks(&Find<QLineEdit>("txtName"), QStringLiteral("x"));
  EXPECT_EQ(form_->txtName.Text(), u"fixed");
  EXPECT_TRUE(desk_.Boxes.isEmpty());
}

TEST_F(Views, SeveralLinesHaveCrLfInTheModel) {
  auto& field = Find<QPlainTextEdit>("txtNotes");
  field.setFocus();
  QTest::keyClicks(&field, QStringLiteral("a"));
  QTest::keyClick(&field, Qt::Key_Return);
  QTest::keyClicks(&field, QStringLiteral("b"));
  EXPECT_EQ(form_->txtNotes.Text(), u"a\r\nb");
  form_->txtNotes.SetText(u"1\r\n2\r\n3");
  ExpectNoEcho();
  EXPECT_EQ(field.toPlainText(), QStringLiteral("1\n2\n3"));
}

TEST_F(Views, APickedItemReachesTheList) {
  auto& box = Find<QComboBox>("ComKind");
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_Down);
  EXPECT_EQ(form_->ComKind.Text(), u"alpha");
  QTest::keyClick(&box, Qt::Key_Down);
  EXPECT_EQ(form_->ComKind.ListIndex(), 1);
  EXPECT_EQ(form_->Events, (Events{u"ComKind", u"ComKind"}));
}

TEST_F(Views, TheListOfTheModelReachesTheBox) {
  form_->ComKind.AddItem(u"delta");
  form_->ComKind.SetListIndex(3);
  ExpectNoEcho();
  auto& box = Find<QComboBox>("ComKind");
  EXPECT_EQ(box.count(), 4);
  EXPECT_EQ(box.currentText(), QStringLiteral("delta"));
  form_->ComKind.Clear();
  test::Desk::Turn();
  EXPECT_EQ(box.count(), 0);
  EXPECT_EQ(form_->Events, (Events{u"ComKind"}));
}

TEST_F(Views, ATextTypedIntoAnOpenComboPicksNoItemByItself) {
  auto& box = Find<QComboBox>("ComFree");
  box.setFocus();
  QTest::keyClicks(&box, QStringLiteral("beta"));
  EXPECT_EQ(form_->ComFree.Text(), u"beta");
  EXPECT_EQ(form_->ComFree.ListIndex(), -1);
  Find<QLineEdit>("txtName").setFocus();
  test::Desk::Turn();
  EXPECT_EQ(form_->ComFree.ListIndex(), -1);
  EXPECT_EQ(form_->ActiveControl(), &form_->txtName);
}

TEST_F(Views, AnOpenComboShowsTheTextOfTheModel) {
  form_->ComFree.SetText(u"something else");
  ExpectNoEcho();
  EXPECT_EQ(Find<QComboBox>("ComFree").currentText(), QStringLiteral("something else"));
  form_->ComFree.SetListIndex(2);
  test::Desk::Turn();
  EXPECT_EQ(Find<QComboBox>("ComFree").currentText(), QStringLiteral("gamma"));
}

TEST_F(Views, AListBoxIsPickedFromByMouseAndKey) {
  auto& list = Find<QListWidget>("lstItems");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    list.visualItemRect(list.item(1)).center());
  EXPECT_EQ(form_->lstItems.ListIndex(), 1);
  QTest::keyClick(&list, Qt::Key_Up);
  EXPECT_EQ(form_->lstItems.ListIndex(), 0);
  EXPECT_EQ(form_->Events, (Events{u"lstItems", u"lstItems"}));
}

TEST_F(Views, AListBoxFollowsTheModel) {
  form_->lstItems.SetListIndex(2);
  ExpectNoEcho();
  EXPECT_EQ(Find<QListWidget>("lstItems").currentRow(), 2);
  form_->lstItems.RemoveItem(0);
  test::Desk::Turn();
  EXPECT_EQ(Find<QListWidget>("lstItems").currentItem()->text(), QStringLiteral("gamma"));
  EXPECT_EQ(form_->Events, (Events{u"lstItems"}));
}

TEST_F(Views, ADoubleClickInAListIsOne) {
  auto& list = Find<QListWidget>("lstItems");
  const QPoint place = list.visualItemRect(list.item(2)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(form_->lstItems.ListIndex(), 2);
  EXPECT_EQ(form_->Events.back(), u"lstItems twice");
}

TEST_F(Views, ATickReachesTheModelAndBack) {
  auto& box = Find<QCheckBox>("chkOn");
  QTest::keyClick(&box, Qt::Key_Space);
  EXPECT_EQ(form_->chkOn.Value(), 1);
  form_->chkOn.SetValue(0);
  test::Desk::Turn();
  EXPECT_FALSE(box.isChecked());
  EXPECT_EQ(form_->Events, (Events{u"chkOn", u"chkOn"}));
}

TEST_F(Views, OptionsExcludeEachOtherByTheModel) {
  auto &one = Find<QRadioButton>("OptOne"), &two = Find<QRadioButton>("OptTwo");
  one.click();
  EXPECT_TRUE(form_->OptOne.Value());
  two.click();
  EXPECT_FALSE(form_->OptOne.Value());
  EXPECT_FALSE(one.isChecked());
  EXPECT_EQ(form_->Events, (Events{u"OptOne", u"OptTwo"}));
}

TEST_F(Views, OptionsCanAllBeOff) {
  Find<QRadioButton>("OptOne").click();
  form_->OptOne.SetValue(false);
  test::Desk::Turn();
  EXPECT_FALSE(Find<QRadioButton>("OptOne").isChecked());
  EXPECT_FALSE(Find<QRadioButton>("OptTwo").isChecked());
}

TEST_F(Views, ArrowsWalkThroughTheOptions) {
  Find<QRadioButton>("OptOne").click();
  Find<QRadioButton>("OptOne").setFocus();
  QTest::keyClick(&Find<QRadioButton>("OptOne"), Qt::Key_Right);
  EXPECT_TRUE(form_->OptTwo.Value());
}

TEST_F(Views, AButtonIsPressed) {
  Click(Find<QPushButton>("btmRun"));
  EXPECT_EQ(form_->Events, (Events{u"btmRun"}));
  EXPECT_EQ(form_->ActiveControl(), &form_->btmRun);
}

TEST_F(Views, AnItemOfADropDownButtonIsPressedByItsKey) {
  auto* const menu = Find<QAbstractButton>("btmMore").findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  emit menu->aboutToShow();
  ASSERT_EQ(menu->actions().size(), 3);
  EXPECT_TRUE(menu->actions().at(1)->isSeparator());
  menu->actions().at(2)->trigger();
  EXPECT_EQ(form_->Events, (Events{u"btmMore B"}));
}

TEST_F(Views, TheArrowsTurnTheNumber) {
  auto& arrows = Find<SpinArrows>("VScrollNumber");
  Click(arrows.Up());
  EXPECT_EQ(form_->VScrollNumber.Value(), 2);
  arrows.setFocus();
  QTest::keyClick(&arrows, Qt::Key_PageUp);
  EXPECT_EQ(form_->VScrollNumber.Value(), 12);
  QTest::keyClick(&arrows, Qt::Key_Down);
  EXPECT_EQ(form_->VScrollNumber.Value(), 11);
}

TEST_F(Views, TheArrowsEndAtTheBounds) {
  form_->VScrollNumber.SetValue(20);
  test::Desk::Turn();
  EXPECT_FALSE(Find<SpinArrows>("VScrollNumber").Up().isEnabled());
  EXPECT_TRUE(Find<SpinArrows>("VScrollNumber").Down().isEnabled());
}

TEST_F(Views, TheProgressFollowsTheModel) {
  form_->barDone.SetValue(42.5);
  test::Desk::Turn();
  EXPECT_EQ(Find<QProgressBar>("barDone").text(), QStringLiteral("42%"));
}

TEST_F(Views, APictureIsPressedAndReplaced) {
  Click(Find<QToolButton>("picSign"));
  EXPECT_EQ(form_->Events, (Events{u"picSign"}));
  form_->picSign.SetPicture(0);
  test::Desk::Turn();
  EXPECT_TRUE(Find<QToolButton>("picSign").icon().isNull());
}

TEST_F(Views, APageIsTurnedByTheUser) {
  auto& tabs = Find<QTabWidget>("tabPages");
  QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(1).center());
  EXPECT_EQ(form_->tabPages.CurrTab(), 1);
  EXPECT_EQ(form_->Events, (Events{u"tabPages"}));
}

TEST_F(Views, APageIsTurnedByTheModel) {
  form_->tabPages.SetCurrTab(1);
  ExpectNoEcho();
  EXPECT_EQ(Find<QTabWidget>("tabPages").currentIndex(), 1);
  EXPECT_EQ(form_->Events, (Events{u"tabPages"}));
}

TEST_F(Views, ALabelFollowsTheModel) {
  form_->lblName.SetCaption(u"Other & more");
  test::Desk::Turn();
  EXPECT_EQ(Find<QLabel>("lblName").text(), QStringLiteral("Other & more"));
}

TEST_F(Views, AnAmpersandThatCodePutsIntoALabelIsNoAccessKey) {
  const auto form = std::make_shared<ResultForm>();
  desk_.Open(*form);
  form->lblResult.SetCaption(u"Color = &HFF");
  test::Desk::Turn();
  const auto& label = desk_.Find<QLabel>(*form, "lblResult");
  EXPECT_EQ(label.buddy(), nullptr) << "the label would show it as a line below the H";
  EXPECT_EQ(label.text(), QStringLiteral("Color = &HFF"));
  EXPECT_NE(Find<QLabel>("lblName").buddy(), nullptr) << "one that was made with a key keeps it";
  form->Unload();
}

/// Puts texts into its labels ahead of its window, as a handler of loading does.
class LoadedForm : public forms::Form {
 public:
  LoadedForm() : Form("frmLoaded", u"Loaded") {}
  forms::Label lblFile{this, "lblFile"};
  forms::Label lblName{this, "lblName"};
  forms::TextBox txtName{this, "txtName"};
  forms::Label lblResult{this, "lblResult", {.Caption = u"nn_"}};
  forms::Button btnOK{this, "btnOK", {.Caption = u"OK"}};

 protected:
  void Form_Load() override {
    lblFile.SetCaption(u"R&D.mdb");
    lblName.SetCaption(u"&Name:");
    lblResult.SetCaption(u"Color = &HFF");
  }
};

TEST_F(Views, AnAccessKeyThatLoadingPutsIntoALabelLeadsToItsFieldAndDataLeadNowhere) {
  const auto form = std::make_shared<LoadedForm>();
  desk_.Open(*form);
  EXPECT_EQ(desk_.Find<QLabel>(*form, "lblName").buddy(), &desk_.Find<QWidget>(*form, "txtName"));
  for (const char* const name : {"lblFile", "lblResult"}) {
    EXPECT_EQ(desk_.Find<QLabel>(*form, name).buddy(), nullptr) << name;
  }
  form->Unload();
}

TEST_F(Views, EnabledVisibleAndToolTipFollowTheModel) {
  form_->chkOn.SetEnabled(false);
  form_->OptOne.SetVisible(false);
  form_->btmRun.SetToolTipText(u"Runs it");
  test::Desk::Turn();
  EXPECT_FALSE(Find<QCheckBox>("chkOn").isEnabled());
  EXPECT_FALSE(Find<QRadioButton>("OptOne").isVisible());
  EXPECT_EQ(Find<QPushButton>("btmRun").toolTip(), QStringLiteral("Runs it"));
}

TEST_F(Views, AToolTipIsPlainText) {
  form_->btmRun.SetToolTipText(u"<b>x</b>");
  test::Desk::Turn();
  EXPECT_TRUE(Find<QPushButton>("btmRun").toolTip().contains(QStringLiteral("&lt;b&gt;")));
}

TEST_F(Views, AChangeAheadOfTheShowingIsSeenToo) {
  form_->Unload();
  form_->txtName.SetText(u"before");
  desk_.Open(*form_);
  EXPECT_EQ(Find<QLineEdit>("txtName").text(), QStringLiteral("before"));
}

}  // namespace
}  // namespace tessel::workbench
