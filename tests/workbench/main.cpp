// Runs the workbench's tests in a window system without a screen.
#include <gtest/gtest.h>

#include <QApplication>

#include "hosts/workbench/platform/Pictures.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  tessel::workbench::LoadResources();
  return RUN_ALL_TESTS();
}
