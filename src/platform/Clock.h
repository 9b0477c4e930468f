// Time, one-shot timers and the message pump.
#pragma once

#include <cstdint>
#include <functional>

#include "vb/Dates.h"

namespace tessel::platform {

using TimerId = std::uint64_t;

class Clock {
 public:
  virtual ~Clock() = default;
  /// Local date and time.
  [[nodiscard]] virtual vb::Date Now() = 0;
  /// Milliseconds since some fixed moment; never runs back.
  [[nodiscard]] virtual std::int64_t Ticks() = 0;
  /// Calls `tick` once, `ms` from now, on the one thread. Never 0.
  virtual TimerId StartTimer(int ms, std::function<void()> tick) = 0;
  /// No effect on a timer that is gone.
  virtual void StopTimer(TimerId timer) = 0;
  /// Lets pending messages and due timers run before it returns.
  virtual void DoEvents() = 0;
};

}  // namespace tessel::platform
