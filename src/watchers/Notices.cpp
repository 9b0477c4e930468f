#include "watchers/Notices.h"

namespace tessel {

bool TakeRunEvents(clsEventCODE& watcher) {
  if (!watcher.RunEvents()) return false;
  watcher.SetRunEvents(false);
  return true;
}

void RenewProject(const Statements& run, const std::shared_ptr<clsEventCODE>& watcher) {
  if (!ExplorerStarted || !watcher || !watcher->RunEventsProject()) return;
  watcher->SetRunEventsProject(false);
  if (TakeRunEvents(*watcher)) run([&] { watcher->RunTimerProperties(); });
}

}  // namespace tessel
