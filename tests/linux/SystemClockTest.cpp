#include "hosts/linux/SystemClock.h"

#include <gtest/gtest.h>

#include "hosts/memory/VirtualClock.h"

namespace tessel {
namespace {

TEST(Clocks, AWaitEndsWhenItsConditionHolds) {
  linux_host::SystemClock clock;
  int asked = 0;
  EXPECT_TRUE(clock.WaitFor([&] { return ++asked == 3; }, 60000));
  EXPECT_FALSE(clock.WaitFor([] { return false; }, 1));
}

TEST(Clocks, AVirtualWaitCostsItsTimeAndRunsNoTimer) {
  memory::VirtualClock clock;
  bool ticked = false;
  clock.StartTimer(200, [&] { ticked = true; });
  EXPECT_FALSE(clock.WaitFor([&] { return ticked; }, 1000));
  EXPECT_EQ(clock.Ticks(), 1000);
  EXPECT_FALSE(ticked);
  clock.DoEvents();
  EXPECT_TRUE(ticked);
  EXPECT_TRUE(clock.WaitFor([&] { return ticked; }, 1000));
  EXPECT_EQ(clock.Ticks(), 1000) << "nothing to wait for";
}

}  // namespace
}  // namespace tessel
