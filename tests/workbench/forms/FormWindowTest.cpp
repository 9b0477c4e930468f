#include "hosts/workbench/forms/FormWindow.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeView>
#include <random>

#include "contextmenu/frmContextMenu.h"
#include "hosts/workbench/forms/ControlViews.h"
#include "vb/Failure.h"
#include "workbench/forms/Desk.h"
#include "workbench/forms/SampleForm.h"

namespace tessel::workbench {
namespace {

using Events = std::vector<String>;

class Window : public testing::Test {
 protected:
  Window() {
    desk_.Open(*form_);
    form_->Events.clear();
  }
  ~Window() override {
    if (form_) form_->Unload();
  }

  template <class Widget>
  Widget& Find(const char* name) {
    return desk_.Find<Widget>(*form_, name);
  }
  void Focus(const char* name) {
    Find<QWidget>(name).setFocus();
    test::Desk::Turn();
  }
  FormWindow& Shown() { return desk_.Window(*form_); }

  test::Desk desk_;
  std::shared_ptr<test::SampleForm> form_ = std::make_shared<test::SampleForm>();
};

// Keys

TEST_F(Window, TheFirstControlHasTheFocusAtFirst) {
  EXPECT_TRUE(Find<QLineEdit>("txtName").hasFocus());
  EXPECT_EQ(form_->ActiveControl(), &form_->txtName);
}

TEST_F(Window, EnterPressesTheDefaultButton) {
  QTest::keyClick(&Find<QLineEdit>("txtName"), Qt::Key_Return);
  EXPECT_EQ(form_->Events, (Events{u"btmRun"}));
}

TEST_F(Window, EnterOnAnotherButtonPressesThatOne) {
  Focus("btmCancel");
  QTest::keyClick(&Find<QPushButton>("btmCancel"), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(form_->Events, (Events{u"btmCancel"}));
}

TEST_F(Window, EscapePressesTheCancelButtonAndClosesNothingByItself) {
  QTest::keyClick(&Find<QLineEdit>("txtName"), Qt::Key_Escape);
  EXPECT_EQ(form_->Events, (Events{u"btmCancel"}));
  EXPECT_TRUE(Shown().isVisible());
}

TEST_F(Window, EscapeWithoutACancelButtonDoesNothing) {
  form_->btmCancel.Cancel = false;
  QTest::keyClick(&Find<QLineEdit>("txtName"), Qt::Key_Escape);
  EXPECT_TRUE(form_->Events.empty());
  EXPECT_TRUE(form_->Visible());
}

TEST_F(Window, ATextOfSeveralLinesKeepsEnter) {
  Focus("txtNotes");
  QTest::keyClick(&Find<QPlainTextEdit>("txtNotes"), Qt::Key_Return);
  EXPECT_EQ(form_->txtNotes.Text(), u"\r\n");
  EXPECT_EQ(form_->Events, (Events{u"txtNotes"}));
}

TEST_F(Window, TabFollowsTheOrderOfConstruction) {
  const std::vector<forms::Control*> wanted{&form_->txtName, &form_->txtNotes, &form_->ComKind,
                                            &form_->ComFree, &form_->lstItems, &form_->chkOn};
  for (forms::Control* const control : wanted) {
    EXPECT_EQ(form_->ActiveControl(), control);
    QTest::keyClick(&Shown(), Qt::Key_Tab);
    test::Desk::Turn();
  }
}

TEST_F(Window, AnAccessKeyPressesItsButton) {
  QTest::keyClick(&Shown(), Qt::Key_R, Qt::AltModifier);
  // The button is seen going down first.
  EXPECT_TRUE(QTest::qWaitFor([&] { return !form_->Events.empty(); }));
  EXPECT_EQ(form_->Events, (Events{u"btmRun"}));
}

TEST_F(Window, TheAccessKeyOfALabelLeadsToTheControlBehindIt) {
  Focus("btmRun");
  QTest::keyClick(&Shown(), Qt::Key_N, Qt::AltModifier);
  test::Desk::Turn();
  EXPECT_EQ(form_->ActiveControl(), &form_->txtName);
}

TEST_F(Window, AKeyHandlerSwallowsAKey) {
  form_->txtName.KeyPress = [](int& key) {
    if (key < u'0' || key > u'9') key = 0;
  };
  auto& line = Find<QLineEdit>("txtName");
  line.selectAll();
  QTest::keyClicks(&line, QStringLiteral("a1b2"));
  EXPECT_EQ(form_->txtName.Text(), u"12");
}

TEST_F(Window, AKeyHandlerPutsAnotherKeyInItsPlace) {
  const auto upper = [](int& key) { key = QChar(key).toUpper().unicode(); };
  form_->txtName.KeyPress = upper;
  form_->ComFree.KeyPress = upper;
  form_->txtNotes.KeyPress = upper;
  Find<QLineEdit>("txtName").selectAll();
  QTest::keyClicks(&Find<QLineEdit>("txtName"), QStringLiteral("ab"));
  EXPECT_EQ(form_->txtName.Text(), u"AB");
  Focus("ComFree");
  QTest::keyClicks(&Find<QComboBox>("ComFree"), QStringLiteral("c"));
  EXPECT_EQ(form_->ComFree.Text(), u"C");
  Focus("txtNotes");
  QTest::keyClicks(&Find<QPlainTextEdit>("txtNotes"), QStringLiteral("d"));
  EXPECT_EQ(form_->txtNotes.Text(), u"D");
}

TEST_F(Window, AKeyHandlerIsShownEnterOnce) {
  std::vector<int> keys;
  form_->txtName.KeyPress = [&](int& key) {
    keys.push_back(key);
    key = 0;
  };
  QTest::keyClick(&Find<QLineEdit>("txtName"), Qt::Key_Return);
  EXPECT_EQ(keys, (std::vector<int>{13}));
  EXPECT_TRUE(form_->Events.empty()) << "swallowed ahead of the default button";
}

// Focus

TEST_F(Window, TheFocusOfTheUserReachesTheModelWithItsEvents) {
  form_->txtName.LostFocus = [this] { form_->Events.emplace_back(u"lost"); };
  form_->chkOn.GotFocus = [this] { form_->Events.emplace_back(u"got"); };
  Focus("chkOn");
  EXPECT_EQ(form_->Events, (Events{u"lost", u"got"}));
}

TEST_F(Window, TheFocusOfTheModelReachesTheWidget) {
  form_->lstItems.SetFocus();
  test::Desk::Turn();
  EXPECT_TRUE(Find<QWidget>("lstItems").hasFocus());
}

TEST_F(Window, AHandlerThatTakesTheFocusBackHasItBack) {
  form_->txtName.LostFocus = [this] { form_->txtName.SetFocus(); };
  Focus("chkOn");
  EXPECT_EQ(form_->ActiveControl(), &form_->txtName);
  EXPECT_TRUE(Find<QLineEdit>("txtName").hasFocus());
}

TEST_F(Window, AHandlerThatTakesTheFocusBackCutsAClickOff) {
  form_->txtName.LostFocus = [this] { form_->txtName.SetFocus(); };
  QTest::mouseClick(&Find<QPushButton>("btmRun"), Qt::LeftButton);
  EXPECT_TRUE(form_->Events.empty());
  test::Desk::Turn();
  EXPECT_FALSE(Find<QPushButton>("btmRun").isDown());
}

TEST_F(Window, AControlSwitchedOffUnderTheFocusHandsItOn) {
  Focus("chkOn");
  form_->chkOn.SetEnabled(false);
  test::Desk::Turn();
  EXPECT_NE(form_->ActiveControl(), &form_->chkOn);
  EXPECT_EQ(desk_.Window(*form_).Views().Around(QApplication::focusWidget()),
            &desk_.Window(*form_).Views().Of(*form_->ActiveControl()));
}

TEST_F(Window, AClickTellsTheFocusAheadOfItself) {
  form_->txtName.LostFocus = [this] { form_->Events.emplace_back(u"lost"); };
  QTest::mouseClick(&Find<QPushButton>("btmRun"), Qt::LeftButton);
  EXPECT_EQ(form_->Events, (Events{u"lost", u"btmRun"}));
}

// Refusals and failures

TEST_F(Window, ARefusedActionPutsTheWidgetBack) {
  // Switched off in the model, and the widget doesn't know yet.
  form_->chkOn.SetEnabled(false);
  desk_.Answer(QMessageBox::Ok);
  Find<QCheckBox>("chkOn").click();
  EXPECT_FALSE(Find<QCheckBox>("chkOn").isChecked());
  EXPECT_EQ(form_->chkOn.Value(), 0);
  ASSERT_EQ(desk_.Boxes.size(), 1);
  EXPECT_TRUE(desk_.Boxes.front().contains(QStringLiteral("is disabled")));
}

TEST_F(Window, AFailureInAHandlerShowsABoxAndTheWindowLivesOn) {
  form_->btmRun.Click = [] { throw vb::Failure(9, u"Subscript out of range", u"Tessel.Test"); };
  desk_.Answer(QMessageBox::Ok);
  Find<QPushButton>("btmRun").click();
  ASSERT_EQ(desk_.Boxes.size(), 1);
  EXPECT_TRUE(desk_.Boxes.front().contains(QStringLiteral("Subscript out of range")));
  EXPECT_TRUE(desk_.Boxes.front().contains(QStringLiteral("9")));
  Find<QCheckBox>("chkOn").click();
  EXPECT_EQ(form_->chkOn.Value(), 1);
}

TEST_F(Window, AForeignExceptionInAHandlerShowsABoxAndTheWindowLivesOn) {
  form_->chkOn.GotFocus = [] { throw std::out_of_range("deep inside"); };
  desk_.Answer(QMessageBox::Ok);
  Focus("chkOn");
  ASSERT_EQ(desk_.Boxes.size(), 1);
  EXPECT_TRUE(desk_.Boxes.front().contains(QStringLiteral("deep inside")));
  EXPECT_TRUE(Shown().isVisible());
}

// Life

TEST_F(Window, TheFrameClosesTheForm) {
  const QPointer<FormWindow> window(&Shown());
  window->close();
  EXPECT_FALSE(form_->IsLoaded());
  EXPECT_EQ(form_->Events, (Events{u"unload"}));
  test::Desk::Turn();
  EXPECT_TRUE(window.isNull());
}

TEST_F(Window, TheFormMayRefuseToClose) {
  form_->RefusesToClose = true;
  Shown().close();
  EXPECT_TRUE(form_->Visible());
  EXPECT_TRUE(Shown().isVisible());
}

TEST_F(Window, AHandlerMayUnloadItsOwnForm) {
  const QPointer<FormWindow> window(&Shown());
  form_->btmRun.Click = [this] { form_->Unload(); };
  QTest::mouseClick(&Find<QPushButton>("btmRun"), Qt::LeftButton);
  test::Desk::Turn();
  EXPECT_TRUE(window.isNull());
}

TEST_F(Window, AHandlerMayDropTheLastReferenceToItsForm) {
  const QPointer<FormWindow> window(&Shown());
  std::weak_ptr<forms::Form> watched = form_;
  bool alive = false;
  form_->btmRun.Click = [this, &alive, &watched] {
    auto& form = *form_;
    form_.reset();
    form.Unload();
    alive = !watched.expired();
  };
  QTest::mouseClick(&Find<QPushButton>("btmRun"), Qt::LeftButton);
  EXPECT_TRUE(alive);
  EXPECT_TRUE(watched.expired());
  test::Desk::Turn();
  EXPECT_TRUE(window.isNull());
}

TEST_F(Window, AFormThatIsDestroyedOpenTakesItsWindowAlong) {
  const QPointer<FormWindow> window(&Shown());
  form_.reset();
  test::Desk::Turn();
  EXPECT_TRUE(window.isNull());
}

TEST_F(Window, WhatAGridStillHasToDoReadsNothingOfAFormThatIsGone) {
  for (int row = 0; row < 300; ++row) form_->fgRows.AddItem({u"more", u"1", u""});
  test::Desk::Turn();
  auto& table = Find<QTreeView>("fgRows");
  const QPointer<QTreeView> held(&table);
  const QModelIndex cell = table.model()->index(3, 1);
  ASSERT_TRUE(cell.isValid());
  EXPECT_FALSE(cell.data().toString().isEmpty());
  table.setFocus();
  table.doItemsLayout();
  // Timers of the widget are in the air: a layout, a scrolling, the drawing of cells.
  table.scrollToBottom();
  table.setCurrentIndex(cell);
  const std::weak_ptr<forms::Form> watched = form_;
  QTimer::singleShot(0, [&] {
    form_.reset();
    EXPECT_TRUE(watched.expired());
    ASSERT_FALSE(held.isNull());
    EXPECT_EQ(held->model()->rowCount(), 0);
    EXPECT_EQ(held->model()->rowCount(cell), 0);
    EXPECT_FALSE(cell.data().isValid());
    EXPECT_FALSE(cell.parent().isValid());
    EXPECT_FALSE(cell.siblingAtColumn(0).isValid());
    EXPECT_EQ(cell.flags(), Qt::NoItemFlags);
    // An edit that ends now has nowhere to go.
    static_cast<void>(held->model()->setData(cell, QStringLiteral("x"), Qt::EditRole));
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return held.isNull(); }));
}

TEST_F(Window, AHiddenFormThatIsDestroyedLeavesNothingThatIsTouched) {
  form_->Hide();
  form_->txtName.SetText(u"on its way");
  form_.reset();
  test::Desk::Turn();
  const auto next = std::make_shared<test::SampleForm>();
  desk_.Open(*next);
  EXPECT_TRUE(desk_.Window(*next).isVisible());
  next->Unload();
}

TEST_F(Window, AHiddenFormShowsAgainWithWhatChanged) {
  form_->Hide();
  EXPECT_FALSE(Shown().isVisible());
  form_->txtName.SetText(u"meanwhile");
  desk_.Open(*form_);
  EXPECT_EQ(Find<QLineEdit>("txtName").text(), QStringLiteral("meanwhile"));
}

TEST_F(Window, TheCaptionFollowsTheForm) {
  form_->SetCaption(u"Other");
  EXPECT_EQ(Shown().windowTitle(), QStringLiteral("Other"));
}

TEST_F(Window, ManyChangesAreShownAtOnce) {
  int shown = 0;
  QObject::connect(Find<QComboBox>("ComKind").model(), &QAbstractItemModel::modelReset, &Shown(),
                   [&] { ++shown; });
  QObject::connect(Find<QComboBox>("ComKind").model(), &QAbstractItemModel::rowsInserted, &Shown(),
                   [&] { ++shown; });
  for (int item = 0; item < 500; ++item) form_->ComKind.AddItem(vb::Str(item));
  test::Desk::Turn();
  EXPECT_EQ(Find<QComboBox>("ComKind").count(), 503);
  EXPECT_LE(shown, 4);
}

/// A user who presses anything anywhere, always in the same way.
class Storm {
 public:
  explicit Storm(QWidget& window) : window_(window) {
    // Whatever opens on top is closed again: menus, lists, messages.
    QObject::connect(&closer_, &QTimer::timeout, &closer_, [] {
      if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
      if (auto* const box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        box->accept();
      }
    });
    closer_.start(1);
  }
  void Blow(int times) {
    for (int each = 0; each < times; ++each) {
      const auto widgets = window_.findChildren<QWidget*>();
      QWidget* const target = widgets.at(Any(widgets.size()));
      if (!target->isVisible()) continue;
      if (Any(2) == 0) {
        QTest::keyClick(target, Keys[static_cast<std::size_t>(Any(std::size(Keys)))]);
      } else {
        const QPoint place(static_cast<int>(Any(target->width() + 1)),
                           static_cast<int>(Any(target->height() + 1)));
        QTest::mouseClick(target, Qt::LeftButton, {}, place);
      }
      if (Any(8) == 0) QCoreApplication::processEvents();
    }
  }

 private:
  static constexpr Qt::Key Keys[] = {Qt::Key_A,     Qt::Key_9,  Qt::Key_Space, Qt::Key_Return,
                                     Qt::Key_Down,  Qt::Key_Up, Qt::Key_Left,  Qt::Key_Right,
                                     Qt::Key_Tab,   Qt::Key_F2, Qt::Key_Home,  Qt::Key_Delete,
                                     Qt::Key_Escape};
  qsizetype Any(qsizetype below) {
    return static_cast<qsizetype>(random_() % static_cast<std::uint32_t>(below));
  }
  QWidget& window_;
  QTimer closer_;
  std::mt19937 random_{7};
};

TEST_F(Window, WidgetsAndModelAgreeAfterAnyInput) {
  form_->fgRows.BeforeEdit = [](int row, int, bool& cancel) { cancel = row == 2; };
  form_->chkOn.LostFocus = [this] { form_->RicText.SetText(u"left"); };
  form_->OptTwo.Click = [] { throw vb::Failure(5, u"no"); };
  Storm(Shown()).Blow(1500);
  test::Desk::Turn();
  Focus("btmRun");  // ends what is half typed
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtName").text()), form_->txtName.Text());
  EXPECT_EQ(Find<QPlainTextEdit>("txtNotes").toPlainText().count(u'\n') + 1,
            static_cast<qsizetype>(
                std::max<std::size_t>(1, vb::Split(form_->txtNotes.Text(), vb::CrLf).size())));
  EXPECT_EQ(Find<QComboBox>("ComKind").currentIndex(), form_->ComKind.ListIndex());
  EXPECT_EQ(FromQt(Find<QComboBox>("ComFree").currentText()), form_->ComFree.Text());
  EXPECT_EQ(Find<QCheckBox>("chkOn").isChecked(), form_->chkOn.Value() == 1);
  EXPECT_EQ(Find<QTabWidget>("tabPages").currentIndex(), form_->tabPages.CurrTab());
  const auto& grid = *Find<QTreeView>("fgRows").model();
  for (int col = 0; col < 2; ++col) {
    EXPECT_EQ(FromQt(grid.index(0, col).data().toString()), form_->fgRows.TextMatrix(1, col));
  }
  EXPECT_EQ(form_->fgRows.TextMatrix(2, 0), u"Child") << "a row that refuses edits";
  EXPECT_GT(form_->Events.size(), 50U);
}

TEST(FormWindowFrame, TellsTheBordersApart) {
  test::Desk desk;
  struct Sizable : test::SampleForm {
    Sizable() { Border = forms::BorderStyle::Sizable; }
  };
  struct Tool : test::SampleForm {
    Tool() {
      Border = forms::BorderStyle::ToolWindow;
      Icon = 111;
    }
  };
  const auto dialog = std::make_shared<test::SampleForm>();
  const auto sizable = std::make_shared<Sizable>();
  const auto tool = std::make_shared<Tool>();
  for (forms::Form* const form : std::initializer_list<forms::Form*>{&*dialog, &*sizable, &*tool}) {
    desk.Open(*form);
  }
  EXPECT_FALSE(desk.Window(*dialog).windowFlags() & Qt::WindowMaximizeButtonHint);
  EXPECT_TRUE(desk.Window(*sizable).windowFlags() & Qt::WindowMaximizeButtonHint);
  EXPECT_EQ(desk.Window(*tool).windowType(), Qt::Tool);
  EXPECT_FALSE(desk.Window(*tool).windowIcon().isNull());
  for (forms::Form* const form : std::initializer_list<forms::Form*>{&*dialog, &*sizable, &*tool}) {
    form->Unload();
  }
}

// Without a frame

class ListAtAPlace : public testing::Test {
 protected:
  ListAtAPlace() {
    for (int row = 1; row <= 40; ++row) list_->ArrayMenu.push_back(u"Entry" + vb::Str(row));
    list_->CodeX = 120;
    list_->CodeY = 90;
  }

  /// Opens the list and acts as soon as it is there.
  void Show(const std::function<void(FormWindow&)>& act) {
    QTimer::singleShot(0, qApp, [&] { act(desk_.Window(*list_)); });
    list_->Show(platform::ShowStyle::Modal);
    test::Desk::Turn();
  }
  QListWidget& Rows() { return desk_.Find<QListWidget>(*list_, "lstMenu"); }

  test::Desk desk_;
  std::shared_ptr<frmContextMenu> list_ = std::make_shared<frmContextMenu>();
};

TEST_F(ListAtAPlace, StandsThereWithoutAFrameAndIsAsLargeAsTheList) {
  list_->ArrayMenu = {u"One", u"Two", u"Three"};
  Show([&](FormWindow& window) {
    EXPECT_EQ(window.pos(), QPoint(120, 90));
    EXPECT_EQ(window.size(), Rows().size());
    EXPECT_TRUE(window.windowFlags() & Qt::FramelessWindowHint);
    const QRect last = Rows().visualItemRect(Rows().item(2));
    EXPECT_TRUE(Rows().viewport()->rect().contains(last)) << "every row is in sight";
    EXPECT_LT(Rows().viewport()->height(), 2 * last.bottom());
    QDir().mkpath(QStringLiteral("screenshots"));
    window.grab().save(QStringLiteral("screenshots/frmContextMenu.png"));
    list_->Hide();
  });
}

TEST_F(ListAtAPlace, ALongListStaysOnTheScreen) {
  Show([&](FormWindow& window) {
    const QRect room = window.screen()->availableGeometry();
    EXPECT_TRUE(room.contains(window.geometry()));
    EXPECT_LE(window.height(), room.height() / 2 + 2);
    list_->Hide();
  });
}

TEST_F(ListAtAPlace, TheKeysPickARow) {
  Show([&](FormWindow&) {
    QTest::keyClick(&Rows(), Qt::Key_Down);
    QTest::keyClick(&Rows(), Qt::Key_Down);
    QTest::keyClick(&Rows(), Qt::Key_Return, Qt::ControlModifier);
  });
  EXPECT_EQ(list_->ItemMenu, u"Entry2");
  Show([&](FormWindow&) {
    QTest::keyClick(&Rows(), Qt::Key_Down);
    QTest::keyClick(&Rows(), Qt::Key_Escape);
  });
  EXPECT_EQ(list_->ItemMenu, u"Entry1");
}

TEST_F(ListAtAPlace, NoRowIsChosenUntilTheUserChoosesOne) {
  Show([&](FormWindow&) {
    EXPECT_TRUE(Rows().hasFocus());
    QTest::keyClick(&Rows(), Qt::Key_Escape);
  });
  EXPECT_EQ(list_->ItemMenu, u"");
}

TEST_F(ListAtAPlace, ADoubleClickPicksARow) {
  Show([&](FormWindow&) {
    const QPoint row = Rows().visualItemRect(Rows().item(2)).center();
    QTest::mouseClick(Rows().viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(Rows().viewport(), Qt::LeftButton, {}, row);
  });
  EXPECT_EQ(list_->ItemMenu, u"Entry3");
}

TEST_F(ListAtAPlace, ClosingItTakesNothing) {
  Show([&](FormWindow& window) {
    QTest::keyClick(&Rows(), Qt::Key_Down);
    window.close();
  });
  EXPECT_EQ(list_->ItemMenu, u"");
  EXPECT_FALSE(list_->IsLoaded());
}

}  // namespace
}  // namespace tessel::workbench
