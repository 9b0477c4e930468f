#include "hosts/workbench/forms/QtDesktop.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTextBrowser>
#include <QToolBar>
#include <QWindow>

#include "forms/User.h"
#include "foundation/CAppSettings.h"
#include "foundation/CFormRestore.h"
#include "foundation/ProgressBarWindow.h"
#include "support/TemporaryFolder.h"
#include "workbench/forms/Desk.h"
#include "workbench/forms/SampleForm.h"

namespace tessel::workbench {
namespace {

using platform::ShowStyle;

class DesktopOfQt : public testing::Test {
 protected:
  test::Desk desk_;
  std::shared_ptr<test::SampleForm> form_ = std::make_shared<test::SampleForm>();
};

// Modal forms

TEST_F(DesktopOfQt, AModalFormIsWaitedForUntilItIsHidden) {
  test::Desk::WhenOpen<FormWindow>([&](FormWindow&) { form_->Hide(); });
  form_->Show(ShowStyle::Modal);
  EXPECT_FALSE(form_->Visible());
  EXPECT_TRUE(form_->IsLoaded());
  form_->Unload();
}

TEST_F(DesktopOfQt, AModalFormIsWaitedForUntilItIsUnloaded) {
  test::Desk::WhenOpen<FormWindow>([&](FormWindow&) { form_->Unload(); });
  form_->Show(ShowStyle::Modal);
  EXPECT_FALSE(form_->IsLoaded());
}

TEST_F(DesktopOfQt, AModalFormIsWaitedForUntilItsFrameIsClosed) {
  test::Desk::WhenOpen<FormWindow>([](FormWindow& window) { window.close(); });
  form_->Show(ShowStyle::Modal);
  EXPECT_FALSE(form_->IsLoaded());
}

TEST_F(DesktopOfQt, AModalFormOpensAnotherOne) {
  const auto inner = std::make_shared<test::SampleForm>();
  bool front = false;
  form_->btmRun.Click = [&] {
    test::Desk::WhenOpen<FormWindow>([&](FormWindow& window) {
      front = window.FormOf() == inner;
      inner->Unload();
    });
    inner->Show(ShowStyle::Modal);
    form_->Hide();
  };
  test::Desk::WhenOpen<FormWindow>([&](FormWindow&) {
    QTest::mouseClick(&desk_.Find<QPushButton>(*form_, "btmRun"), Qt::LeftButton);
  });
  form_->Show(ShowStyle::Modal);
  EXPECT_TRUE(front);
  form_->Unload();
}

TEST_F(DesktopOfQt, AModalFormIsClosedWithTheProgram) {
  QTimer::singleShot(0, qApp, [&] { form_->Show(ShowStyle::Modal); });
  test::Desk::WhenOpen<FormWindow>([](FormWindow&) { QCoreApplication::quit(); });
  QApplication::exec();
  EXPECT_FALSE(form_->Visible());
}

// Hook

TEST_F(DesktopOfQt, EveryActionOfTheUserPassesTheHook) {
  desk_.Open(*form_);
  int depth = 0, calls = 0;
  desk_.Desktop().RunTool = [&](const std::function<void()>& action) {
    ++depth;
    ++calls;
    action();
    --depth;
  };
  bool inside = false;
  form_->btmRun.Click = [&] { inside = depth > 0 && desk_.Desktop().IsBusy(); };
  desk_.Find<QPushButton>(*form_, "btmRun").click();
  EXPECT_TRUE(inside);
  EXPECT_GE(calls, 1);
  EXPECT_FALSE(desk_.Desktop().IsBusy());
  form_->Unload();
}

TEST_F(DesktopOfQt, AToolThatFailsIsReported) {
  desk_.Answer(QMessageBox::Ok);
  desk_.Desktop().RunAction([] { throw vb::Failure(91, u"Object variable not set"); });
  EXPECT_EQ(desk_.Boxes.size(), 1);
}

// Progress

TEST_F(DesktopOfQt, TheProgressWindowIsCancelledInTheMiddleOfARun) {
  QMainWindow main;
  main.show();
  desk_.Desktop().SetParent(&main);
  const auto progress = std::make_shared<ProgressBarWindow>(u"Format Text");
  int done = 0;
  bool blocks = false, seen = false;
  desk_.Desktop().RunAction([&] {
    progress->Show();
    progress->SetPRBCount1(1000);
    for (; done < 1000 && !progress->ProgressBarStop(); ++done) {
      progress->SetPRBsi1(done);
      progress->SetMessage1(u"Part " + vb::Str(done));
      platform::Current().Clock().DoEvents();
      if (done != 20) continue;
      blocks = QApplication::activeModalWidget() == &desk_.Window(*progress);
      seen = desk_.Find<QLabel>(*progress, "lblMessage1").text() == QStringLiteral("Part 20");
      QTest::mouseClick(&desk_.Find<QPushButton>(*progress, "btmCancel"), Qt::LeftButton);
    }
    progress->Unload();
  });
  EXPECT_EQ(done, 21);
  EXPECT_TRUE(blocks) << "the rest of the program waits for the run";
  EXPECT_TRUE(seen);
  desk_.Desktop().SetParent(nullptr);
}

TEST_F(DesktopOfQt, AFormThatATooLLeavesOpenBlocksNothingBehindIt) {
  desk_.Desktop().RunAction([&] {
    form_->Show();
    EXPECT_EQ(desk_.Window(*form_).windowModality(), Qt::ApplicationModal);
  });
  EXPECT_EQ(desk_.Window(*form_).windowModality(), Qt::NonModal);
  EXPECT_TRUE(desk_.Window(*form_).isVisible());
  form_->Unload();
}

// Places

platform::WindowPlacement PlacementAt(int left, int top, int width, int height) {
  platform::WindowPlacement placement;
  placement.Left = left;
  placement.Top = top;
  placement.Right = left + width;
  placement.Bottom = top + height;
  return placement;
}

TEST_F(DesktopOfQt, APlaceGivenAheadOfTheShowingIsTaken) {
  form_->Load();
  const QSize least = [&] {
    static_cast<void>(desk_.Desktop().Screen().GetPlacement(*form_));
    return desk_.Window(*form_).minimumSizeHint();
  }();
  desk_.Desktop().Screen().SetPlacement(
      *form_, PlacementAt(30, 40, least.width() + 33, least.height() + 21));
  desk_.Open(*form_);
  EXPECT_EQ(desk_.Window(*form_).pos(), QPoint(30, 40));
  EXPECT_EQ(desk_.Window(*form_).size(), least + QSize(33, 21));
  const auto placement = desk_.Desktop().Screen().GetPlacement(*form_);
  ASSERT_TRUE(placement);
  EXPECT_EQ(placement->Left, 30);
  EXPECT_EQ(placement->Bottom, 40 + least.height() + 21);
  EXPECT_EQ(placement->ShowCommand, 1);
  form_->Unload();
}

TEST_F(DesktopOfQt, APlaceOffTheScreenIsMended) {
  form_->Load();
  desk_.Desktop().Screen().SetPlacement(*form_, PlacementAt(50000, -900, 400, 300));
  desk_.Open(*form_);
  EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(
      QRect(desk_.Window(*form_).pos(), QSize(10, 10))));
  form_->Unload();
}

TEST_F(DesktopOfQt, AMinimizedOrTooSmallPlaceOpensAWholeWindow) {
  form_->Load();
  auto placement = PlacementAt(10, 10, 5, 5);
  placement.ShowCommand = 2;
  desk_.Desktop().Screen().SetPlacement(*form_, placement);
  desk_.Open(*form_);
  EXPECT_FALSE(desk_.Window(*form_).isMinimized());
  EXPECT_GE(desk_.Window(*form_).width(), desk_.Window(*form_).minimumSizeHint().width());
  form_->Unload();
}

TEST_F(DesktopOfQt, AMaximizedPlaceIsKeptAsSuch) {
  form_->Load();
  auto placement = PlacementAt(10, 10, 400, 300);
  placement.ShowCommand = 3;
  desk_.Desktop().Screen().SetPlacement(*form_, placement);
  desk_.Open(*form_);
  EXPECT_EQ(desk_.Desktop().Screen().GetPlacement(*form_)->ShowCommand, 3);
  form_->Unload();
}

TEST_F(DesktopOfQt, TheRestoreOfFormsCentresAndComesBack) {
  const auto settings = std::make_shared<CAppSettings>();
  CFormRestore restore;
  restore.Init(settings, u"Windows settings");
  form_->Load();
  restore.GetPosition(*form_);
  desk_.Open(*form_);
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QRect first(desk_.Window(*form_).pos(), desk_.Window(*form_).size());
  EXPECT_LE((first.center() - screen.center()).manhattanLength(), 4);
  desk_.Window(*form_).resize(desk_.Window(*form_).minimumSizeHint());
  desk_.Window(*form_).move(screen.topLeft() + QPoint(7, 9));
  test::Desk::Turn();
  form_->Hide();
  restore.SavePosition(*form_);  // as a run does, whose form is hidden by then
  form_->Unload();
  form_->Load();
  restore.GetPosition(*form_);
  desk_.Open(*form_);
  EXPECT_EQ(desk_.Window(*form_).pos(), screen.topLeft() + QPoint(7, 9));
  form_->Unload();
}

TEST_F(DesktopOfQt, ACentredFormThatGrowsWithItsContentStaysCentred) {
  form_->Load();
  const auto place = desk_.Desktop().Screen().GetPlacement(*form_);
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const int width = place->Right - place->Left, height = place->Bottom - place->Top;
  desk_.Desktop().Screen().SetPlacement(
      *form_, PlacementAt(screen.center().x() - width / 2, screen.center().y() - height / 2, width,
                          height));
  form_->ComKind.AddItem(String(90, u'w'));
  desk_.Open(*form_);
  const QRect shown(desk_.Window(*form_).pos(), desk_.Window(*form_).size());
  EXPECT_GT(shown.width(), width);
  EXPECT_LE((shown.center() - screen.center()).manhattanLength(), 6);
  form_->Unload();
}

TEST_F(DesktopOfQt, TheDesktopIsTheScreen) {
  const auto placement = desk_.Desktop().Screen().DesktopPlacement();
  ASSERT_TRUE(placement);
  EXPECT_EQ(placement->Right - placement->Left,
            QGuiApplication::primaryScreen()->availableGeometry().width());
}

TEST_F(DesktopOfQt, AFormComesToTheFront) {
  const auto other = std::make_shared<test::SampleForm>();
  desk_.Open(*form_);
  desk_.Open(*other);
  form_->Show();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&desk_.Window(*form_)));
  other->Unload();
  form_->Unload();
}

// Clipboard

TEST_F(DesktopOfQt, TheClipboardHasLfOutsideAndCrLfInside) {
  desk_.Desktop().Clipboard().SetText(u"a\r\nb");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("a\nb"));
  EXPECT_EQ(desk_.Desktop().Clipboard().GetText(), u"a\r\nb");
  EXPECT_EQ(desk_.Desktop().Clipboard().GetPicture(), 0);
}

TEST_F(DesktopOfQt, APictureOnTheClipboardIsANumberForUsAndAPictureForOthers) {
  desk_.Desktop().Clipboard().SetPicture(111);
  EXPECT_EQ(desk_.Desktop().Clipboard().GetPicture(), 111);
  EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
  EXPECT_EQ(desk_.Desktop().Clipboard().GetText(), u"");
  desk_.Desktop().Clipboard().Clear();
  EXPECT_EQ(desk_.Desktop().Clipboard().GetPicture(), 0);
}

// Others

TEST_F(DesktopOfQt, KeysAreSentToTheFormInFront) {
  desk_.Open(*form_);
  desk_.Desktop().Shell().SendKeys(u"{HOME}x{ESC}");
  EXPECT_EQ(form_->txtName.Text(), u"xfirst");
  EXPECT_EQ(form_->Events.back(), u"btmCancel");
  form_->Unload();
}

TEST_F(DesktopOfQt, ATargetThatIsNotThereIsNotFound) {
  const test::TemporaryFolder folder;
  const String missing = (folder.Path() / "nothing.txt").u16string();
  EXPECT_EQ(desk_.Desktop().Shell().OpenDocument(missing, u"open", u""), 2);
  EXPECT_EQ(desk_.Desktop().Shell().OpenDocument(missing, u"dance", u""), 31);
}

TEST_F(DesktopOfQt, AProgramIsStartedWithItsParameters) {
  const test::TemporaryFolder folder;
  const String mark = (folder.Path() / "mark").u16string();
  EXPECT_EQ(desk_.Desktop().Shell().OpenDocument(u"touch", u"open", u"\"" + mark + u"\""),
            platform::ShellSuccess);
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder.Path() / "mark"); }));
}

HelpWindow* OpenHelp() {
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    if (auto* const one = dynamic_cast<HelpWindow*>(widget)) return one;
  }
  return nullptr;
}

TEST_F(DesktopOfQt, AHelpTopicOpensTheHelpWindow) {
  desk_.Desktop().Shell().ShowHelp(u"C:\\Program\\Marlow.CHM", u"formatter.htm");
  ASSERT_NE(OpenHelp(), nullptr);
  EXPECT_TRUE(OpenHelp()->isVisible());
  EXPECT_TRUE(OpenHelp()->Pages().source().toString().endsWith(QStringLiteral("formatter.htm")));
}

TEST_F(DesktopOfQt, TheHelpOfAModalFormCanBeRead) {
  desk_.Desktop().Shell().ShowHelp(u"", u"errors.htm");  // open already, and blocked by the form
  test::Desk::WhenOpen<FormWindow>([&](FormWindow&) {
    desk_.Desktop().Shell().ShowHelp(u"", u"formatter.htm");
    HelpWindow& help = *OpenHelp();
    static_cast<void>(QTest::qWaitForWindowExposed(&help));
    auto* const bar = help.findChild<QToolBar*>();
    const QRect start = bar->actionGeometry(bar->actions().at(2));
    const QPoint place = bar->mapTo(&help, start.center());
    QTest::mouseClick(help.windowHandle(), Qt::LeftButton, {}, place);
    test::Desk::Turn();
    EXPECT_TRUE(help.Pages().source().toString().endsWith(QStringLiteral("support.htm")));
    form_->Unload();
  });
  form_->Show(ShowStyle::Modal);
}

}  // namespace
}  // namespace tessel::workbench
