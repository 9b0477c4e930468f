#include "hosts/model/WindowTable.h"

#include <gtest/gtest.h>

namespace tessel::model {
namespace {

using platform::WindowMessage;

/// Notes what passes.
struct NotingHook : platform::WindowHook {
  explicit NotingHook(std::vector<std::string>& log, std::string name = "hook")
      : Log(log), Name(std::move(name)) {}
  [[nodiscard]] bool HasOwner() const override { return Owned; }
  void OnBefore(bool& handled, std::intptr_t& result, const WindowMessage& message) override {
    Log.push_back(Name + " before " + std::to_string(message.Number));
    handled = Handles;
    if (Handles) result = 7;
    if (Inside) Inside();
  }
  void OnAfter(std::intptr_t& result, const WindowMessage& message) override {
    Log.push_back(Name + " after " + std::to_string(message.Number));
    result += 1;
  }
  std::vector<std::string>& Log;
  std::string Name;
  bool Owned = true, Handles = false;
  std::function<void()> Inside;
};

class HookedWindow : public testing::Test {
 protected:
  std::vector<std::string> Take() { return std::exchange(log_, {}); }
  using Told = std::vector<std::string>;
  std::vector<std::string> log_;
  WindowTable table_;
  std::intptr_t parent_ = table_.Create(u"MDIClient", u"", 0);
  std::intptr_t window_ = table_.Create(u"VbaWindow", u"Module1 (Code)", parent_);
  std::shared_ptr<NotingHook> hook_ = std::make_shared<NotingHook>(log_);
};

TEST_F(HookedWindow, OnlyMessagesOfItsTablesReachAHook) {
  ASSERT_TRUE(table_.Hook(window_, hook_));
  hook_->Before.Numbers = {257};
  hook_->After.Numbers = {257, 514};
  EXPECT_EQ(table_.Send({window_, 257}), 1);
  EXPECT_EQ(table_.Send({window_, 514}), 1);
  EXPECT_EQ(table_.Send({window_, 1}), 0);
  EXPECT_EQ(Take(), (Told{"hook before 257", "hook after 257", "hook after 514"}));
  hook_->Before.Numbers.clear();
  hook_->After = {.All = true};
  table_.Send({window_, 99});
  EXPECT_EQ(Take(), (Told{"hook after 99"}));
}

TEST_F(HookedWindow, AHandledMessageGoesNoFurther) {
  const auto older = std::make_shared<NotingHook>(log_, "older");
  older->After.All = true;
  table_.Hook(window_, older);
  table_.Hook(window_, hook_);
  hook_->Before.All = hook_->After.All = hook_->Handles = true;
  EXPECT_EQ(table_.Send({window_, 5}), 7);
  EXPECT_EQ(Take(), (Told{"hook before 5"}));
  hook_->Handles = false;
  EXPECT_EQ(table_.Send({window_, 5}), 2);
  EXPECT_EQ(Take(), (Told{"hook before 5", "older after 5", "hook after 5"}));
}

TEST_F(HookedWindow, AHookWithoutAnOwnerTakesItselfOff) {
  table_.Hook(window_, hook_);
  hook_->After.All = true;
  hook_->Owned = false;
  EXPECT_EQ(table_.Send({window_, 5}), 0);
  hook_->Owned = true;
  EXPECT_EQ(table_.Send({window_, 5}), 0) << "it is gone";
  EXPECT_TRUE(Take().empty());
}

TEST_F(HookedWindow, AHookIsNotCalledInsideItsOwnCall) {
  table_.Hook(window_, hook_);
  hook_->Before.All = true;
  hook_->Inside = [&] { table_.Send({window_, 6}); };
  table_.Send({window_, 5});
  EXPECT_EQ(Take(), (Told{"hook before 5"}));
  hook_->Inside = nullptr;
  table_.Send({window_, 6});
  EXPECT_EQ(Take(), (Told{"hook before 6"}));
}

TEST_F(HookedWindow, WhatIsPostedInsideACallWaitsForItsEnd) {
  table_.Hook(window_, hook_);
  hook_->Before.All = hook_->After.All = true;
  hook_->Inside = [&] {
    hook_->Inside = nullptr;
    table_.Post({{window_, 6}, {window_, 7}});
  };
  table_.Send({window_, 5});
  EXPECT_EQ(Take(), (Told{"hook before 5", "hook after 5", "hook before 6", "hook after 6",
                          "hook before 7", "hook after 7"}));
}

TEST_F(HookedWindow, ACallbackCanCallWhatStoodAheadOfIt) {
  const auto older = std::make_shared<NotingHook>(log_, "older");
  older->After.All = true;
  table_.Hook(window_, older);
  table_.Hook(window_, hook_);
  hook_->Before.All = hook_->Handles = true;
  hook_->Inside = [&] { table_.CallPrevious(*hook_, {window_, 8}); };
  table_.Send({window_, 5});
  EXPECT_EQ(Take(), (Told{"hook before 5", "older after 8"}));
}

TEST_F(HookedWindow, ATakenOffOrLostHookHearsNothing) {
  hook_->After.All = true;
  table_.Hook(window_, hook_);
  table_.Unhook(window_, *hook_);
  table_.Unhook(window_, *hook_);
  table_.Send({window_, 5});
  table_.Hook(window_, hook_);
  hook_.reset();
  EXPECT_EQ(table_.Send({window_, 5}), 0);
  EXPECT_TRUE(Take().empty());
  EXPECT_FALSE(table_.Hook(12345, std::make_shared<NotingHook>(log_)));
}

TEST_F(HookedWindow, AParentIsToldOfItsChildren) {
  std::vector<std::pair<std::intptr_t, std::intptr_t>> told;
  struct Listener : NotingHook {
    using NotingHook::NotingHook;
    void OnAfter(std::intptr_t&, const WindowMessage& message) override {
      Told->emplace_back(message.WParam, message.LParam);
    }
    std::vector<std::pair<std::intptr_t, std::intptr_t>>* Told = nullptr;
  };
  const auto listener = std::make_shared<Listener>(log_);
  listener->Told = &told;
  listener->After.Numbers = {platform::WM_ParentNotify};
  table_.Hook(parent_, listener);
  const auto child = table_.Create(u"VbaWindow", u"", parent_);
  table_.Destroy(child);
  table_.Destroy(child);
  EXPECT_EQ(told, (std::vector<std::pair<std::intptr_t, std::intptr_t>>{{1, child}, {2, child}}));
}

TEST_F(HookedWindow, WindowsAreFoundByClassTextAndPlaceInTheTree) {
  const auto other = table_.Create(u"VbaWindow", u"Module2 (Code)", parent_);
  const auto designer = table_.Create(u"DesignerWindow", u"Form1", parent_);
  EXPECT_EQ(table_.Find(0, 0, u"MDIClient", {}), parent_);
  EXPECT_EQ(table_.Find(parent_, 0, u"VbaWindow", {}), window_);
  EXPECT_EQ(table_.Find(parent_, window_, u"VbaWindow", {}), other);
  EXPECT_EQ(table_.Find(parent_, other, u"VbaWindow", {}), 0);
  EXPECT_EQ(table_.Find(parent_, 0, {}, u"Form1"), designer);
  EXPECT_EQ(table_.Parent(designer), parent_);
  EXPECT_EQ(table_.Text(designer), u"Form1");
  EXPECT_EQ(table_.ClassName(4711), u"");
  table_.Destroy(parent_);
  EXPECT_TRUE(table_.All().empty()) << "children go with their parent";
}

TEST_F(HookedWindow, TheFocusAndThePlaceAreThoseOfTheScreen) {
  EXPECT_FALSE(table_.Rectangle(window_));
  table_.PlaceOf = [](std::intptr_t) { return platform::WindowRectangle{1, 2, 3, 4}; };
  EXPECT_EQ(table_.Rectangle(window_), (platform::WindowRectangle{1, 2, 3, 4}));
  EXPECT_FALSE(table_.Rectangle(4711));
  std::intptr_t wanted = 0;
  table_.FocusWanted = [&](std::intptr_t window) { wanted = window; };
  table_.SetFocus(window_);
  EXPECT_EQ(wanted, window_);
  EXPECT_EQ(table_.Focus(), window_);
  table_.Destroy(window_);
  EXPECT_EQ(table_.Focus(), 0);
}

}  // namespace
}  // namespace tessel::model
