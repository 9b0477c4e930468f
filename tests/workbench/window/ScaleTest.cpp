// The window on a screen of 1400 by 950 at scale factor 2, in a process of its own: both are said
// to a program as it starts.
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QScreen>

#include "hosts/workbench/designer/DesignerView.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

constexpr int ScreenWidth = 1400, ScreenHeight = 950, Scale = 2;

/// Run by the other test alone, on its screen.
using DISABLED_OnASmallScreen = InWindow;

TEST_F(DISABLED_OnASmallScreen, TheWindowStandsWholeWithThreeWindowsInIt) {
  const QRect room = window_->screen()->availableGeometry();
  ASSERT_EQ(room.size(), QSize(ScreenWidth / Scale, ScreenHeight / Scale));
  ASSERT_EQ(window_->devicePixelRatio(), Scale);
  // As the program opens it, not as the fixture sized it.
  window_ = std::make_unique<MainWindow>(services_, State());
  window_->show();
  window_->ConnectAddin();
  OpenSample();
  std::shared_ptr<model::VBComponent> form;
  for (const auto& one : window_->Root()->Active()->Components().All()) {
    if (one->PlainType() == host::vbext_ct_VBForm) form = one;
  }
  std::vector<QWidget*> frames{Code(u"modMain").parentWidget(),
                               window_->ShowDesigner(form)->parentWidget(),
                               window_->ShowCode(form)->parentWidget()};
  for (QWidget* const frame : frames) {
    frame->showNormal();
    QApplication::processEvents();
    EXPECT_TRUE(window_->Children().viewport()->rect().contains(frame->geometry()));
  }
  EXPECT_TRUE(room.contains(window_->frameGeometry()))
      << window_->frameGeometry().width() << " by " << window_->frameGeometry().height();
  // Room enough to work in.
  EXPECT_GE(window_->Children().viewport()->height(), room.height() / 2)
      << window_->Children().viewport()->height();
  EXPECT_GE(window_->Children().viewport()->width(), room.width() / 3)
      << window_->Children().viewport()->width();
}

TEST(ScaleFactorTwo, TheWindowFitsAScreenOfFourteenHundredByNineHundredAndFifty) {
  const test::TemporaryFolder folder;
  const QJsonObject screen{{"name", "small"},
                           {"x", 0},
                           {"y", 0},
                           {"width", ScreenWidth},
                           {"height", ScreenHeight},
                           {"logicalDpi", 96},
                           {"logicalBaseDpi", 96},
                           {"dpr", 1}};
  const QJsonObject screens{{"synchronousWindowSystemEvents", false},
                            {"windowFrameMargins", true},
                            {"screens", QJsonArray{screen}}};
  const auto config =
      folder.Write("screens.json", QJsonDocument(screens).toJson().toStdString()).string();
  QProcess other;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                     QStringLiteral("offscreen:configfile=") + QString::fromStdString(config));
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(Scale));
  other.setProcessEnvironment(environment);
  other.setProcessChannelMode(QProcess::MergedChannels);
  other.start(QApplication::applicationFilePath(),
              {QStringLiteral("--gtest_filter=DISABLED_OnASmallScreen.*"),
               QStringLiteral("--gtest_also_run_disabled_tests")});
  constexpr int OtherProcessMs = 120'000;
  ASSERT_TRUE(other.waitForFinished(OtherProcessMs));
  const std::string told = other.readAll().toStdString();
  EXPECT_EQ(other.exitCode(), 0) << told;
  EXPECT_NE(told.find("[  PASSED  ] 1 test."), std::string::npos) << told;
}

}  // namespace
}  // namespace tessel::workbench
