#include "hosts/workbench/platform/QtClock.h"

#include <gtest/gtest.h>

#include <QTest>

namespace tessel::workbench {
namespace {

TEST(QtClock, ATimerTicksOnceInsideTheEventLoop) {
  QtClock clock;
  int ticks = 0;
  EXPECT_NE(clock.StartTimer(0, [&] { ++ticks; }), 0U);
  EXPECT_EQ(ticks, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }));
  clock.DoEvents();
  clock.DoEvents();
  EXPECT_EQ(ticks, 1);
}

TEST(QtClock, ATimerThatIsDueTicksInsideDoEvents) {
  QtClock clock;
  int ticks = 0;
  clock.StartTimer(0, [&] { ++ticks; });
  clock.DoEvents();
  EXPECT_EQ(ticks, 1);
}

TEST(QtClock, AStoppedTimerDoesNotTick) {
  QtClock clock;
  int ticks = 0;
  const auto timer = clock.StartTimer(0, [&] { ++ticks; });
  clock.StopTimer(timer);
  clock.StopTimer(timer);
  clock.StopTimer(12345);
  clock.DoEvents();
  EXPECT_EQ(ticks, 0);
}

TEST(QtClock, ATickMayStopItselfAndStartTheNext) {
  QtClock clock;
  int ticks = 0;
  platform::TimerId timer = 0;
  std::function<void()> tick = [&] {
    clock.StopTimer(timer);
    if (++ticks < 3) timer = clock.StartTimer(0, tick);
  };
  timer = clock.StartTimer(0, tick);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 3; }));
}

TEST(QtClock, ATickIsCarriedByTheRunner) {
  QtClock clock;
  std::vector<int> order;
  clock.RunTick = [&](const std::function<void()>& tick) {
    order.push_back(1);
    tick();
    order.push_back(3);
  };
  clock.StartTimer(0, [&] { order.push_back(2); });
  clock.DoEvents();
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST(QtClock, AClockThatGoesTakesItsTimersAlong) {
  int ticks = 0;
  {
    QtClock clock;
    clock.StartTimer(0, [&] { ++ticks; });
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(ticks, 0);
}

TEST(QtClock, TimeRunsForward) {
  QtClock clock;
  const auto before = clock.Ticks();
  EXPECT_GE(clock.Ticks(), before);
  const vb::Date now = clock.Now();
  EXPECT_GT(now.Year, 2000);
  EXPECT_GE(now.Month, 1);
  EXPECT_LT(now.Hour, 24);
}

}  // namespace
}  // namespace tessel::workbench
