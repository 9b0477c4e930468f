#include "watchers/mTimer.h"

#include "foundation/Routine.h"
#include "platform/Platform.h"
#include "watchers/clsEventCODE.h"

namespace tessel::mTimer {
namespace {

using Operation = void (clsEventCODE::*)();

void Kill(platform::TimerId timer) {
  if (gEventCODE) {
    gEventCODE->KillTimer(timer);
  } else {
    platform::Current().Clock().StopTimer(timer);
  }
}

void Tick(StringView routine, platform::TimerId timer, Operation operation) {
  Enter([&] {
    Routine(routine, [&](const Statements& run) {
      run([&] { Kill(timer); });
      const auto watcher = gEventCODE;  // the listener may let it go
      run([&] { (Need(watcher).*operation)(); });
    });
  });
}

}  // namespace

void TimerActiveWindowCode(platform::TimerId timer) {
  Tick(u"mTimer.TimerActiveWindowCode", timer, &clsEventCODE::RunActiveWindowCode);
}

void TimerProcCode(platform::TimerId timer) {
  Tick(u"mTimer.TimerProcCode", timer, &clsEventCODE::RunTimerEventCode);
}

void TimerProcComponent(platform::TimerId timer) {
  Tick(u"mTimer.TimerProcComponent", timer, &clsEventCODE::RunTimerEventComponent);
}

void TimerProcProperties(platform::TimerId timer) {
  Enter([&] {
    Routine(u"mTimer.TimerProcProperties", [&](const Statements& run) {
      run([&] { Kill(timer); });
      const auto watcher = gEventCODE;
      run([&] {
        if (watcher) watcher->RunTimerEventProperties();
      });
    });
  });
}

}  // namespace tessel::mTimer
