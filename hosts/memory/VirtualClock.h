// Time that passes when somebody says so.
#pragma once

#include <functional>
#include <vector>

#include "platform/Clock.h"

namespace tessel::memory {

/// A clock that stands still until it is told to go on.
class VirtualClock : public platform::Clock {
 public:
  [[nodiscard]] vb::Date Now() override;
  [[nodiscard]] std::int64_t Ticks() override { return ticks_; }
  platform::TimerId StartTimer(int ms, std::function<void()> tick) override;
  void StopTimer(platform::TimerId timer) override;
  /// Runs the timers that are due, in the order of their times.
  void DoEvents() override;
  /// Moves the clock on, running each timer at its own time.
  void Advance(int ms);
  [[nodiscard]] std::size_t PendingTimers() const { return timers_.size(); }

  /// Moment at tick 0.
  vb::Date Start{2026, 11, 21, 14, 5, 9};
  /// Called by every DoEvents, before the timers.
  std::function<void()> OnDoEvents;

 private:
  struct Timer {
    platform::TimerId Id;
    std::int64_t Due;
    std::function<void()> Tick;
  };
  bool RunOneDue(std::int64_t limit);
  std::int64_t ticks_ = 0;
  platform::TimerId nextId_ = 1;
  std::vector<Timer> timers_;
};

}  // namespace tessel::memory
