#include "hosts/workbench/forms/WorkbenchPlatform.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>

#include "support/TemporaryFolder.h"
#include "vb/Failure.h"
#include "workbench/forms/Desk.h"

namespace tessel::workbench {
namespace {

TEST(WorkbenchPlatform, HoldsEveryService) {
  const test::TemporaryFolder folder;
  WorkbenchPlatform services(folder.Path(), folder.Path() / "settings.sqlite");
  const platform::ScopedPlatform scope(services);
  EXPECT_EQ(platform::Current().App().Path(), folder.Path().u16string());
  EXPECT_FALSE(platform::Current().Identity().UserName().empty());
  services.Registry().SetValue(platform::RootKey::CurrentUser, u"Key", u"Name", String(u"x"));
  EXPECT_TRUE(std::filesystem::exists(folder.Path() / "settings.sqlite"));
}

TEST(WorkbenchPlatform, AFailingTimerIsReportedAndTheProgramGoesOn) {
  const test::TemporaryFolder folder;
  WorkbenchPlatform services(folder.Path(), folder.Path() / "settings.sqlite");
  int wrapped = 0;
  services.Desktop().RunTool = [&](const std::function<void()>& action) {
    ++wrapped;
    action();
  };
  QString text;
  test::Desk::WhenOpen<QMessageBox>([&](QMessageBox& box) {
    text = box.text();
    box.accept();
  });
  services.Clock().StartTimer(0, [] { throw vb::Failure(9, u"Subscript out of range"); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return !text.isEmpty(); }));
  EXPECT_TRUE(text.contains(QStringLiteral("Subscript out of range")));
  EXPECT_EQ(wrapped, 0) << "nobody asked for it: it is no step of the user's";
}

TEST(WorkbenchPlatform, ItsWindowsAreThoseOfTheEnvironment) {
  const test::TemporaryFolder folder;
  WorkbenchPlatform services(folder.Path(), folder.Path() / "settings.sqlite");
  EXPECT_EQ(services.Windows().Find(0, 0, {}, {}), 0) << "there is no environment yet";
  model::WindowTable windows;
  const auto window = windows.Create(u"VbaWindow", u"Module1 (Code)", 0);
  services.UseWindows(windows);
  EXPECT_EQ(services.Windows().ClassName(window), u"VbaWindow");
}

}  // namespace
}  // namespace tessel::workbench
