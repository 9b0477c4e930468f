#include "hosts/workbench/platform/HelpPages.h"

#include <QEvent>
#include <QTextDocument>

namespace tessel::workbench {

HelpPages::HelpPages(QWidget* parent) : QTextBrowser(parent) {
  document()->setDocumentMargin(fontMetrics().height());
  UseDesktopStyle();
}

void HelpPages::UseDesktopStyle() {
  const auto color = [this](QPalette::ColorRole role) { return palette().color(role).name(); };
  document()->setDefaultStyleSheet(
      QStringLiteral("h1, h2 { color: %1; } a { color: %3; }"
                     "code, pre { font-family: monospace; background: %2; }"
                     "td, th { padding: 3px 8px; text-align: left; }")
          .arg(color(QPalette::Highlight), color(QPalette::AlternateBase), color(QPalette::Link)));
}

void HelpPages::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  UseDesktopStyle();
  reload();
}

QVariant HelpPages::loadResource(int type, const QUrl& name) {
  QVariant found = QTextBrowser::loadResource(type, name);
  if (type != QTextDocument::HtmlResource) return found;
  // The links of the head stand apart by a margin, which a text document hasn't.
  QString page = QString::fromUtf8(found.toByteArray());
  return page.replace(QStringLiteral("</a><a"), QStringLiteral("</a> &nbsp; <a"));
}

}  // namespace tessel::workbench
