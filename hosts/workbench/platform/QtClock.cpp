#include "hosts/workbench/platform/QtClock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTimer>
#include <algorithm>
#include <chrono>

namespace tessel::workbench {

vb::Date QtClock::Now() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate day = now.date();
  const QTime time = now.time();
  return {day.year(), day.month(), day.day(), time.hour(), time.minute(), time.second()};
}

std::int64_t QtClock::Ticks() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

platform::TimerId QtClock::StartTimer(int ms, std::function<void()> tick) {
  const platform::TimerId id = next_++;
  auto* const source = new QTimer(&owner_);
  source->setSingleShot(true);
  QObject::connect(source, &QTimer::timeout, &owner_, [this, id] { Tick(id); });
  timers_.emplace(id, Timer{source, std::move(tick)});
  source->start(std::max(0, ms));
  return id;
}

void QtClock::StopTimer(platform::TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  found->second.Source->stop();
  found->second.Source->deleteLater();
  timers_.erase(found);
}

void QtClock::Tick(platform::TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  // The tick may start and stop timers, this one included.
  const auto tick = found->second.Tick;
  StopTimer(timer);
  if (RunTick) {
    RunTick(tick);
  } else {
    tick();
  }
}

// The first round brings input and timers, the second what they posted, such as a repaint.
void QtClock::DoEvents() {
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
}

}  // namespace tessel::workbench
