// The procedures that the watchers' timers call.
#pragma once

#include "platform/Clock.h"

namespace tessel::mTimer {

// Each kills its timer, so that it fires once, and hands on to gEventCODE. Failures are reported
// and none gets out.

void TimerActiveWindowCode(platform::TimerId timer);
void TimerProcCode(platform::TimerId timer);
void TimerProcComponent(platform::TimerId timer);
/// Does nothing without gEventCODE: the windows that are let go at shut-down start it.
void TimerProcProperties(platform::TimerId timer);

}  // namespace tessel::mTimer
