// The watchers' life, and the request that the Explorer follow what a tool has done.

#include "addin/Connect.h"
#include "platform/Platform.h"
#include "watchers/cVbaWindows.h"

namespace tessel {
namespace {

/// Events run while a window is let go, so others may come and go.
void LetWindowsGo() {
  while (gVbaWindows && gVbaWindows->Count() > 0) {
    const auto [key, window] = *gVbaWindows->begin();
    window->UnSubClass();
    if (gVbaWindows && gVbaWindows->Find(key)) gVbaWindows->Remove(key);
  }
}

}  // namespace

void Connect::StartWatchers() {
  gEventCODE = std::make_shared<clsEventCODE>();
  gEventCODE->SetVBInstance(vbInstance_);
  WinProperties = std::make_shared<cWinProperties>();
  WinProperties->SetEventCODE(gEventCODE);
  WinProperties->Start(vbInstance_);
  gVbaWindows = std::make_shared<cVbaWindows>();
  gVbaWindows->SetEventCODE(gEventCODE);
  MDIClient = std::make_shared<cMDIClient>();
  MDIClient->SetEventCODE(gEventCODE);
  MDIClient->Start(vbInstance_);
}

/// A start that failed has left some of them out.
void Connect::StopWatchers() {
  LetWindowsGo();
  if (WinProperties) {
    WinProperties->UnSubClass();
    WinProperties->SetEventCODE(nullptr);
    WinProperties.reset();
  }
  if (MDIClient) {
    MDIClient->UnSubClass();
    MDIClient->SetEventCODE(nullptr);
    MDIClient.reset();
  }
  if (gEventCODE) gEventCODE->SetVBInstance(nullptr);
  gEventCODE.reset();
  if (gVbaWindows) gVbaWindows->SetEventCODE(nullptr);
  gVbaWindows.reset();
  // The next connection has an Explorer of its own, which wasn't shown yet.
  ExplorerStarted = false;
}

void Connect::RefreshTreeExplorer(bool twitchCursor) {
  Run(u"Connect.RefreshTreeExplorer", [&](const Statements& run) {
    run([] { platform::Current().Clock().DoEvents(); });
    const auto watcher = gEventCODE;  // gone when the events have disconnected us
    if (!watcher) return;
    watcher->SetTwitchCursor(twitchCursor);
    run([&] { watcher->RunTimerActiveWindowCode(); });
  });
}

}  // namespace tessel
