#include "hosts/workbench/platform/HelpWindow.h"

#include <QAction>
#include <QDesktopServices>
#include <QFile>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUrl>

#include "hosts/workbench/platform/HelpPages.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int PageColumns = 110, PageLines = 40;

const QString& StartPage() {
  static const QString page = QStringLiteral("support.htm");
  return page;
}

QString FileOf(const QString& page) { return QStringLiteral(":/help/") + page; }

bool IsOwnPage(const QUrl& link) { return link.scheme().isEmpty() || link.scheme() == "qrc"; }

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QMainWindow(parent), pages_(new HelpPages(this)) {
  setObjectName(QStringLiteral("HelpWindow"));
  pages_->setSearchPaths({QStringLiteral(":/help")});
  pages_->setOpenLinks(false);
  setCentralWidget(pages_);
  AddActions();
  connect(pages_, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { FollowLink(link); });
  connect(pages_, &QTextBrowser::sourceChanged, this, [this] { ShowTitle(); });
  const QFontMetrics metrics = fontMetrics();
  resize(PageColumns * metrics.averageCharWidth(), PageLines * metrics.lineSpacing());
}

void HelpWindow::AddActions() {
  QToolBar* const bar = addToolBar(tr("Navigation"));
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](QStyle::StandardPixmap icon, const QString& text, const QKeySequence& keys) {
    QAction* const action = bar->addAction(style()->standardIcon(icon), text);
    action->setShortcut(keys);
    return action;
  };
  QAction* const back = add(QStyle::SP_ArrowBack, tr("Back"), QKeySequence::Back);
  QAction* const forward = add(QStyle::SP_ArrowForward, tr("Forward"), QKeySequence::Forward);
  QAction* const start = add(QStyle::SP_DirHomeIcon, tr("Start"), QKeySequence(tr("Alt+Home")));
  back->setEnabled(false);
  forward->setEnabled(false);
  auto* const close = new QAction(tr("Close"), this);
  close->setShortcut(QKeySequence(Qt::Key_Escape));
  addAction(close);
  connect(close, &QAction::triggered, this, &QWidget::close);
  connect(back, &QAction::triggered, pages_, &QTextBrowser::backward);
  connect(forward, &QAction::triggered, pages_, &QTextBrowser::forward);
  connect(start, &QAction::triggered, this, [this] { ShowTopic(u""); });
  connect(pages_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(pages_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::ShowTopic(StringView topic) {
  const QString page = topic.empty() ? StartPage() : ToQt(topic);
  const bool known = QFile::exists(FileOf(page.section(u'#', 0, 0)));
  Open(known ? page : StartPage());
  if (!known) statusBar()->showMessage(tr("There is no page on \"%1\".").arg(page));
  show();
  raise();
  activateWindow();
}

void HelpWindow::Open(const QString& page) {
  statusBar()->clearMessage();
  pages_->setSource(QUrl(QStringLiteral("qrc:/help/") + page));
}

void HelpWindow::FollowLink(const QUrl& link) {
  if (IsOwnPage(link)) {
    ShowTopic(FromQt(link.fileName() + (link.hasFragment() ? u'#' + link.fragment() : QString())));
  } else {
    QDesktopServices::openUrl(link);
  }
}

void HelpWindow::ShowTitle() {
  const QString title = pages_->documentTitle();
  setWindowTitle(title == QStringLiteral("Tessel") || title.isEmpty()
                     ? tr("Tessel Help")
                     : tr("%1 - Tessel Help").arg(title));
}

}  // namespace tessel::workbench
