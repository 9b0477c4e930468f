#include "hosts/model/Windows.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "forms/Document.h"
#include "tests/support/Modules.h"
#include "vb/Failure.h"

namespace tessel::model {
namespace {

std::vector<String> Classes(const std::vector<WindowInfo>& windows) {
  std::vector<String> classes;
  classes.reserve(windows.size());
  for (const WindowInfo& window : windows) classes.push_back(window.Class);
  return classes;
}

TEST(Windows, ShowTheEnvironmentsOwnFromTheStart) {
  const Windows windows(std::make_shared<OperationHook>());
  const auto all = windows.All();
  EXPECT_EQ(Classes(all), (std::vector<String>{u"wndclass_desked_gsk", u"MDIClient", u"PROJECT",
                                               u"wndclass_pbrs"}));
  for (const WindowInfo& window : all) EXPECT_TRUE(window.Visible) << vb::ToUtf8(window.Class);
  EXPECT_EQ(windows.Main()->HWnd(), all.front().Handle);
}

TEST(Windows, HaveHandlesOfTheirOwn) {
  Windows windows(std::make_shared<OperationHook>());
  std::set<std::intptr_t> handles;
  std::vector<std::shared_ptr<Window>> held;
  held.reserve(50);
  for (int count = 0; count < 50; ++count) held.push_back(windows.Create(u"VbaWindow", u"x"));
  for (const WindowInfo& window : windows.All()) handles.insert(window.Handle);
  EXPECT_EQ(handles.size(), 54U);
  EXPECT_FALSE(handles.contains(0));
}

TEST(Windows, TurnThePropertiesOnceBehindABatchAndNotForNothing) {
  Windows windows(std::make_shared<OperationHook>());
  // Each turn opens a field, which takes a handle.
  const auto turns = [&](const std::function<void()>& act) {
    const auto before = windows.Create(u"VbaWindow", u"x")->Handle();
    act();
    return (windows.Create(u"VbaWindow", u"x")->Handle() - before) / 0x10 - 1;
  };
  EXPECT_EQ(turns([&] { windows.ShowProperties(); }), 1);
  EXPECT_EQ(turns([&] { const Windows::OneTurn once(windows); }), 0);
  EXPECT_EQ(turns([&] {
              const Windows::OneTurn once(windows);
              for (int count = 0; count < 3; ++count) {
                const Windows::OneTurn inner(windows);
                windows.ShowProperties();
              }
            }),
            1);
}

TEST(Windows, MakeAToolWindowThatIsHiddenUntilItIsShown) {
  Windows windows(std::make_shared<OperationHook>());
  const auto window = windows.CreateToolWindow({}, u"Tessel.Document", u"Explorer", u"{1}").Frame;
  EXPECT_EQ(window->Caption(), u"Explorer");
  EXPECT_FALSE(window->Visible());
  window->SetVisible(true);
  EXPECT_TRUE(window->Visible());
  EXPECT_EQ(windows.All().back().Caption, u"Explorer");
  EXPECT_TRUE(windows.All().back().Visible);
}

TEST(Windows, RefuseAToolWindowWithoutClassOrPlace) {
  Windows windows(std::make_shared<OperationHook>());
  for (const auto& [progId, place] :
       {std::pair<StringView, StringView>{u"", u"{1}"}, {u"Tessel.Document", u""}}) {
    try {
      windows.CreateToolWindow({}, progId, u"Explorer", place);
      ADD_FAILURE() << "made a window";
    } catch (const vb::Failure& failure) {
      EXPECT_EQ(failure.Number(), vb::InvalidCall);
    }
  }
}

TEST(Windows, ForgetAWindowThatNobodyHolds) {
  Windows windows(std::make_shared<OperationHook>());
  auto window = windows.Create(u"DesignerWindow", u"Form1");
  EXPECT_EQ(windows.All().size(), 5U);
  window.reset();
  EXPECT_EQ(windows.All().size(), 4U);
}

TEST(Windows, FailAsTheHookWantsIt) {
  const auto hook = std::make_shared<OperationHook>();
  Windows windows(hook);
  hook->Before = [](std::string_view operation) {
    if (operation == "Windows.CreateToolWindow") throw vb::RuntimeFailure(vb::OutOfMemory);
  };
  EXPECT_THROW(windows.CreateToolWindow({}, u"a", u"b", u"c"), vb::Failure);
  EXPECT_EQ(windows.All().size(), 4U);
}

TEST(Windows, ListTheCodeWindowOfAnOpenPane) {
  test::World world;
  const auto module = world.Module(u"Module1", u"Sub A()\r\nEnd Sub");
  ASSERT_EQ(world.Environment.OpenWindows().size(), 5U)
      << "the environment makes it with the module";
  EXPECT_FALSE(world.Environment.OpenWindows().back().Visible);
  module->CodePane()->Show();
  const auto all = world.Environment.OpenWindows();
  ASSERT_EQ(all.size(), 5U);
  EXPECT_EQ(all.back().Class, u"VbaWindow");
  EXPECT_TRUE(all.back().Visible);
  EXPECT_EQ(all.back().Handle, module->CodePane()->Window()->HWnd());
  world.Environment.ClosePane(u"Module1");
  EXPECT_EQ(world.Environment.OpenWindows().size(), 4U);
}

struct udNoting : forms::Document {
  udNoting() : Document("udNoting", u"Noting") {}
  void UserDocument_Initialize() override { Log.emplace_back(u"initialize"); }
  void UserDocument_Show() override { Log.emplace_back(u"show"); }
  void UserDocument_Hide() override { Log.emplace_back(u"hide"); }
  std::vector<String> Log;
};

TEST(Windows, AToolWindowHoldsTheDocumentThatItsClassMakes) {
  Windows windows(std::make_shared<OperationHook>());
  const auto factory = [](StringView progId) -> std::shared_ptr<forms::Document> {
    return progId == u"Tessel.udNoting" ? std::make_shared<udNoting>() : nullptr;
  };
  auto made = windows.CreateToolWindow(factory, u"Tessel.udNoting", u"Noting", u"{1}");
  const auto document = std::dynamic_pointer_cast<udNoting>(made.Document);
  ASSERT_TRUE(document);
  made.Frame->SetVisible(true);
  made.Frame->SetVisible(true);
  EXPECT_TRUE(document->Visible());
  made.Frame->SetVisible(false);
  EXPECT_EQ(document->Log, (std::vector<String>{u"initialize", u"show", u"hide"}));
  EXPECT_EQ(windows.ToolWindows().size(), 1U);
  made.Frame.reset();
  EXPECT_TRUE(windows.ToolWindows().empty());
  EXPECT_FALSE(windows.CreateToolWindow(factory, u"Tessel.Other", u"x", u"{2}").Document);
}

}  // namespace
}  // namespace tessel::model
