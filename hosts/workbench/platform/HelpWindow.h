// The window that shows the help topics.
#pragma once

#include <QMainWindow>

#include "vb/Text.h"

class QTextBrowser;

namespace tessel::workbench {

/// Topics are pages of the program's own, named by file, e.g. "formatter.htm". Links between them
/// work, as do back and forward; a link to elsewhere opens in the desktop's browser.
class HelpWindow : public QMainWindow {
 public:
  explicit HelpWindow(QWidget* parent = nullptr);

  /// Shows a topic and brings the window to the front. A topic that there is no page for gives the
  /// start page with a note; an empty one gives the start page.
  void ShowTopic(StringView topic);
  [[nodiscard]] QTextBrowser& Pages() const { return *pages_; }

 private:
  void AddActions();
  void Open(const QString& page);
  void FollowLink(const QUrl& link);
  void ShowTitle();

  QTextBrowser* pages_;
};

}  // namespace tessel::workbench
