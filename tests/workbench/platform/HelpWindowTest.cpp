#include "hosts/workbench/platform/HelpWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDir>
#include <QStatusBar>
#include <QTextBrowser>
#include <QUrl>

namespace tessel::workbench {
namespace {

class Help : public testing::Test {
 protected:
  QString Page() const { return window_.Pages().source().fileName(); }
  QAction& Action(const QString& text) {
    for (QAction* const action : window_.findChildren<QAction*>()) {
      if (action->text() == text) return *action;
    }
    throw std::runtime_error("no such action");
  }
  HelpWindow window_;
};

TEST_F(Help, ATopicIsShownWithItsTitle) {
  window_.ShowTopic(u"formatter.htm");
  EXPECT_EQ(Page(), QStringLiteral("formatter.htm"));
  EXPECT_TRUE(window_.isVisible());
  EXPECT_TRUE(window_.windowTitle().startsWith(QStringLiteral("Code Formatter")));
  EXPECT_TRUE(window_.statusBar()->currentMessage().isEmpty());
  QDir().mkpath(QStringLiteral("screenshots"));
  window_.grab().save(QStringLiteral("screenshots/HelpWindow.png"));
}

TEST_F(Help, AnUnknownTopicIsTheStartPageWithANote) {
  window_.ShowTopic(u"nowhere.htm");
  EXPECT_EQ(Page(), QStringLiteral("support.htm"));
  EXPECT_TRUE(window_.statusBar()->currentMessage().contains(QStringLiteral("nowhere.htm")));
  window_.ShowTopic(u"errors.htm");
  EXPECT_TRUE(window_.statusBar()->currentMessage().isEmpty());
}

TEST_F(Help, WithoutATopicItIsTheStartPage) {
  window_.ShowTopic(u"");
  EXPECT_EQ(Page(), QStringLiteral("support.htm"));
  EXPECT_TRUE(window_.statusBar()->currentMessage().isEmpty());
}

TEST_F(Help, BackAndForwardWalkThroughThePagesSeen) {
  window_.ShowTopic(u"support.htm");
  EXPECT_FALSE(Action(QStringLiteral("Back")).isEnabled());
  emit window_.Pages().anchorClicked(QUrl(QStringLiteral("formatter.htm")));
  EXPECT_EQ(Page(), QStringLiteral("formatter.htm"));
  Action(QStringLiteral("Back")).trigger();
  EXPECT_EQ(Page(), QStringLiteral("support.htm"));
  Action(QStringLiteral("Forward")).trigger();
  EXPECT_EQ(Page(), QStringLiteral("formatter.htm"));
  Action(QStringLiteral("Start")).trigger();
  EXPECT_EQ(Page(), QStringLiteral("support.htm"));
}

TEST_F(Help, EscapeClosesTheWindow) {
  window_.ShowTopic(u"");
  Action(QStringLiteral("Close")).trigger();
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(Action(QStringLiteral("Close")).shortcut(), QKeySequence(Qt::Key_Escape));
}

TEST_F(Help, EveryLinkOfEveryPageLeadsToAPage) {
  for (const QString& page : QDir(QStringLiteral(":/help")).entryList({QStringLiteral("*.htm")})) {
    window_.ShowTopic(page.toStdU16String());
    EXPECT_FALSE(window_.Pages().document()->toPlainText().trimmed().isEmpty());
    for (const QTextFormat& format : window_.Pages().document()->allFormats()) {
      const QString link = format.toCharFormat().anchorHref();
      if (link.isEmpty() || link.startsWith(u"http") || link.startsWith(u"mailto")) continue;
      EXPECT_TRUE(QFile::exists(QStringLiteral(":/help/") + link.section(u'#', 0, 0)))
          << link.toStdString() << " on " << page.toStdString();
    }
  }
}

}  // namespace
}  // namespace tessel::workbench
