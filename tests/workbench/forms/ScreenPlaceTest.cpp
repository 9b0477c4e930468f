#include "hosts/workbench/forms/ScreenPlace.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>

namespace tessel::workbench {
namespace {

QRect Room() { return QGuiApplication::primaryScreen()->availableGeometry(); }

TEST(ScreenPlace, AWindowOnTheScreenStaysWhereItIs) {
  const QRect place(Room().topLeft() + QPoint(20, 30), QSize(200, 100));
  EXPECT_EQ(KeptOnScreen(place), place);
}

TEST(ScreenPlace, AWindowOffTheScreenComesBackWhole) {
  for (const QPoint& corner : {QPoint(-5000, -5000), QPoint(9000, 50),
                               QPoint(Room().right() - 10, Room().bottom() - 10)}) {
    const QRect kept = KeptOnScreen(QRect(corner, QSize(300, 200)));
    EXPECT_TRUE(Room().contains(kept));
    EXPECT_EQ(kept.size(), QSize(300, 200));
  }
}

TEST(ScreenPlace, AWindowLargerThanTheScreenFillsIt) {
  EXPECT_EQ(KeptOnScreen(QRect(-10, -10, 90000, 90000)), Room());
}

}  // namespace
}  // namespace tessel::workbench
