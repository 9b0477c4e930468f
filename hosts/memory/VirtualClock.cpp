#include "hosts/memory/VirtualClock.h"

#include <algorithm>
#include <chrono>

namespace tessel::memory {

vb::Date VirtualClock::Now() {
  using namespace std::chrono;
  const sys_days day = year{Start.Year} / Start.Month / Start.Day;
  const sys_seconds now = day + hours{Start.Hour} + minutes{Start.Minute} + seconds{Start.Second} +
                          seconds{ticks_ / 1000};
  const auto today = floor<days>(now);
  const year_month_day date{today};
  const hh_mm_ss time{now - today};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

platform::TimerId VirtualClock::StartTimer(int ms, std::function<void()> tick) {
  timers_.push_back({nextId_, ticks_ + ms, std::move(tick)});
  return nextId_++;
}

void VirtualClock::StopTimer(platform::TimerId timer) {
  std::erase_if(timers_, [&](const Timer& one) { return one.Id == timer; });
}

bool VirtualClock::RunOneDue(std::int64_t limit) {
  const auto next = std::min_element(
      timers_.begin(), timers_.end(),
      [](const Timer& a, const Timer& b) { return a.Due != b.Due ? a.Due < b.Due : a.Id < b.Id; });
  if (next == timers_.end() || next->Due > limit) return false;
  const Timer timer = std::move(*next);
  timers_.erase(next);
  ticks_ = std::max(ticks_, timer.Due);
  timer.Tick();
  return true;
}

void VirtualClock::DoEvents() {
  if (OnDoEvents) OnDoEvents();
  while (RunOneDue(ticks_)) {
  }
}

void VirtualClock::Advance(int ms) {
  const std::int64_t end = ticks_ + ms;
  while (RunOneDue(end)) {
  }
  ticks_ = std::max(ticks_, end);
}

}  // namespace tessel::memory
