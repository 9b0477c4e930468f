// The system's clock, with timers that run inside DoEvents.
#pragma once

#include <vector>

#include "platform/Clock.h"

namespace tessel::linux_host {

class SystemClock : public platform::Clock {
 public:
  [[nodiscard]] vb::Date Now() override;
  [[nodiscard]] std::int64_t Ticks() override;
  platform::TimerId StartTimer(int ms, std::function<void()> tick) override;
  void StopTimer(platform::TimerId timer) override;
  void DoEvents() override;
  /// Waits that many ms and runs each timer when it falls due.
  void Wait(int ms);

 private:
  struct Timer {
    platform::TimerId Id;
    std::int64_t Due;
    std::function<void()> Tick;
  };
  std::vector<Timer> timers_;
  platform::TimerId next_ = 1;
};

}  // namespace tessel::linux_host
