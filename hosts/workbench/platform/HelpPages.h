// The help's pages as a text browser reads them.
#pragma once

#include <QTextBrowser>

namespace tessel::workbench {

/// Pages are written for a web browser; here they take fonts and colours of the desktop.
class HelpPages : public QTextBrowser {
 public:
  explicit HelpPages(QWidget* parent);
  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void UseDesktopStyle();
};

}  // namespace tessel::workbench
