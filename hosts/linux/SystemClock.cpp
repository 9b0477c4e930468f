#include "hosts/linux/SystemClock.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>

namespace tessel::linux_host {

vb::Date SystemClock::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::int64_t SystemClock::Ticks() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

platform::TimerId SystemClock::StartTimer(int ms, std::function<void()> tick) {
  timers_.push_back({next_, Ticks() + ms, std::move(tick)});
  return next_++;
}

void SystemClock::StopTimer(platform::TimerId timer) {
  std::erase_if(timers_, [&](const Timer& one) { return one.Id == timer; });
}

void SystemClock::DoEvents() {
  for (;;) {
    const std::int64_t now = Ticks();
    const auto due = std::find_if(timers_.begin(), timers_.end(),
                                  [&](const Timer& one) { return one.Due <= now; });
    if (due == timers_.end()) return;
    const auto tick = std::move(due->Tick);
    timers_.erase(due);
    tick();
  }
}

void SystemClock::Wait(int ms) {
  const std::int64_t end = Ticks() + ms;
  for (;;) {
    DoEvents();
    std::int64_t next = end;
    for (const Timer& timer : timers_) next = std::min(next, timer.Due);
    if (Ticks() >= end) return;
    std::this_thread::sleep_for(
        std::chrono::milliseconds(std::max<std::int64_t>(0, next - Ticks())));
  }
}

}  // namespace tessel::linux_host
