#include "watchers/clsEventCODE.h"

#include <algorithm>
#include <utility>

#include "foundation/Routine.h"
#include "platform/Platform.h"
#include "watchers/mTimer.h"

namespace tessel {

std::shared_ptr<clsEventCODE> gEventCODE;
bool ExplorerStarted = false;

namespace {

// Periods in ms. The twitch comes first: what it makes a code window tell is a notice by itself.
constexpr int ActiveWindowPeriod = 50, CodePeriod = 100, ComponentPeriod = 200,
              PropertiesPeriod = 200;

platform::Clock& Clock() { return platform::Current().Clock(); }

}  // namespace

void clsEventCODE::SetVBInstance(std::shared_ptr<host::VBE> value) {
  vbInstance_ = std::move(value);
  if (vbInstance_) return;
  for (const platform::TimerId timer : std::exchange(timers_, {})) Clock().StopTimer(timer);
}

void clsEventCODE::RaiseTree(std::int32_t kind, std::int32_t argument) const {
  if (const auto handler = Tree) handler(kind, argument);
}

void clsEventCODE::RunTimerEventComponent() {
  Routine(u"clsEventCODE.RunTimerEventComponent", [&] { RaiseTree(1, 2); });
}

void clsEventCODE::RunTimerEventProperties() {
  Routine(u"clsEventCODE.RunTimerEventProperties", [&] { RaiseTree(0, 2); });
}

void clsEventCODE::RunTimerEventCode() {
  Routine(u"clsEventCODE.RunTimerEventCode", [&] { RaiseTree(2, 1); });
}

void clsEventCODE::RunTimerActiveWindowCode() {
  Routine(u"clsEventCODE.RunTimerActiveWindowCode",
          [&] { SetTimer(ActiveWindowPeriod, mTimer::TimerActiveWindowCode); });
}

void clsEventCODE::RunActiveWindowCode() {
  Routine(u"clsEventCODE.RunActiveWindowCode", [&](const Statements& run) {
    if (!twitchCursor_) return;
    run([] { platform::Current().Shell().SendKeys(u"{RIGHT}"); });
    run([] { platform::Current().Shell().SendKeys(u"{LEFT}"); });
  });
}

void clsEventCODE::RunTimerCode() {
  Routine(u"clsEventCODE.RunTimerCode", [&] { SetTimer(CodePeriod, mTimer::TimerProcCode); });
}

void clsEventCODE::RunTimerComponent() {
  Routine(u"clsEventCODE.RunTimerComponent",
          [&] { SetTimer(ComponentPeriod, mTimer::TimerProcComponent); });
}

void clsEventCODE::RunTimerProperties() {
  const auto self = weak_from_this().lock();
  Routine(u"clsEventCODE.RunTimerProperties", [&](const Statements& run) {
    run([] { Clock().DoEvents(); });
    run([&] { SetTimer(PropertiesPeriod, mTimer::TimerProcProperties); });
  });
}

/// The environment may have gone while events ran: nothing is to tick behind it.
void clsEventCODE::SetTimer(int ms, TimerProcedure procedure) {
  if (!vbInstance_) return;
  const auto timer = std::make_shared<platform::TimerId>(0);
  *timer = Clock().StartTimer(ms, [timer, procedure] { procedure(*timer); });
  timers_.push_back(*timer);
}

void clsEventCODE::KillTimer(platform::TimerId timer) {
  std::erase(timers_, timer);
  Clock().StopTimer(timer);
}

}  // namespace tessel
