// Keys, sounds, documents and help on a desktop of Qt.
#pragma once

#include <QPointer>

#include "hosts/workbench/platform/HelpWindow.h"
#include "platform/Shell.h"

namespace tessel::workbench {

class QtShell : public platform::Shell {
 public:
  QtShell() = default;
  ~QtShell() override;
  QtShell(const QtShell&) = delete;
  QtShell& operator=(const QtShell&) = delete;

  void SendKeys(StringView keys) override;
  void Beep() override;
  int OpenDocument(StringView target, StringView verb, StringView parameters) override;
  void ShowHelp(StringView helpFile, StringView topic) override;

 private:
  void UnblockHelp();
  QPointer<HelpWindow> help_;
};

}  // namespace tessel::workbench
