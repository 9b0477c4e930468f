// Time and timers inside Qt's event loop.
#pragma once

#include <QObject>
#include <functional>
#include <map>

#include "platform/Clock.h"

class QTimer;

namespace tessel::workbench {

class QtClock : public platform::Clock {
 public:
  QtClock() = default;
  ~QtClock() override = default;
  QtClock(const QtClock&) = delete;
  QtClock& operator=(const QtClock&) = delete;

  /// Carries every tick, so that a tick that fails doesn't fail inside the event loop. Without one
  /// a tick is just called.
  std::function<void(const std::function<void()>& tick)> RunTick;

  [[nodiscard]] vb::Date Now() override;
  [[nodiscard]] std::int64_t Ticks() override;
  platform::TimerId StartTimer(int ms, std::function<void()> tick) override;
  void StopTimer(platform::TimerId timer) override;
  void DoEvents() override;

 private:
  void Tick(platform::TimerId timer);

  struct Timer {
    QTimer* Source;
    std::function<void()> Tick;
  };
  QObject owner_;  // of the timers
  std::map<platform::TimerId, Timer> timers_;
  platform::TimerId next_ = 1;
};

}  // namespace tessel::workbench
