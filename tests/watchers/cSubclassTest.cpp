#include "watchers/cSubclass.h"

#include <gtest/gtest.h>

#include "foundation/CErrorHandler.h"
#include "support/MemoryPlatform.h"

namespace tessel {
namespace {

using platform::WindowHandle;

/// Keeps what is put in front of a window, so that its tables can be read.
class ReadableWindows : public model::WindowTable {
 public:
  bool Hook(WindowHandle window, const std::shared_ptr<platform::WindowHook>& hook) override {
    Last = hook;
    return WindowTable::Hook(window, hook);
  }
  std::shared_ptr<platform::WindowHook> Last;
};

struct Owner : iSubclass {
  void iSubclass_After(std::intptr_t& lReturn, WindowHandle, std::uint32_t uMsg, std::intptr_t,
                       std::intptr_t) override {
    Log.push_back("after " + std::to_string(uMsg));
    lReturn += 10;
    if (Inside) Inside();
  }
  void iSubclass_Before(bool& bHandled, std::intptr_t& lReturn, WindowHandle, std::uint32_t uMsg,
                        std::intptr_t wParam, std::intptr_t lParam) override {
    Log.push_back("before " + std::to_string(uMsg));
    bHandled = Handles;
    if (Handles) lReturn = wParam + lParam;
    if (Inside) Inside();
  }
  std::vector<std::string> Log;
  bool Handles = false;
  std::function<void()> Inside;
};

class Subclassed : public testing::Test {
 protected:
  Subclassed() {
    services_.WindowsService.Use(windows_);
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  }
  ~Subclassed() override {
    EXPECT_EQ(services_.DesktopService.Messages.size(), expected_) << "boxes nobody asked for";
    gErrorHandler.reset();
  }
  std::intptr_t Send(std::uint32_t number, std::intptr_t wParam = 0, std::intptr_t lParam = 0) {
    return windows_.Send({window_, number, wParam, lParam});
  }
  [[nodiscard]] const std::vector<std::uint32_t>& After() const {
    return windows_.Last->After.Numbers;
  }
  using Told = std::vector<std::string>;
  using Table = std::vector<std::uint32_t>;
  static constexpr std::uint32_t Free = 0xFFFFFFFF;

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  ReadableWindows windows_;
  WindowHandle window_ = windows_.Create(u"VbaWindow", u"", 0);
  std::shared_ptr<Owner> owner_ = std::make_shared<Owner>();
  cSubclass subclass_;
  std::size_t expected_ = 0;
};

TEST_F(Subclassed, HearsTheMessagesOfItsTablesBeforeAndAfterTheOwnProcedure) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(257, cSubclass::Before);
  subclass_.AddMsg(257, cSubclass::After);
  subclass_.AddMsg(514, 7);  // whatever isn't 1 is the table after
  EXPECT_EQ(Send(257), 10);
  EXPECT_EQ(Send(514), 10);
  EXPECT_EQ(Send(513), 0);
  EXPECT_EQ(owner_->Log, (Told{"before 257", "after 257", "after 514"}));
}

TEST_F(Subclassed, AHandledMessageIsAnsweredAheadOfTheOwnProcedure) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::Before);
  subclass_.AddMsg(5, cSubclass::After);
  owner_->Handles = true;
  EXPECT_EQ(Send(5, 3, 4), 7);
  EXPECT_EQ(owner_->Log, (Told{"before 5"}));
}

TEST_F(Subclassed, TablesMayBeFilledAheadOfTheWindow) {
  subclass_.AddMsg(257, cSubclass::After);
  subclass_.Subclass(window_, owner_);
  Send(257);
  EXPECT_EQ(owner_->Log, (Told{"after 257"}));
}

TEST_F(Subclassed, AListedMessageLeavesTheTableAsItIs) {
  subclass_.Subclass(window_, owner_);
  for (const std::uint32_t message : {257U, 514U, 257U, 514U}) {
    subclass_.AddMsg(message, cSubclass::After);
  }
  EXPECT_EQ(After(), (Table{257, 514}));
  EXPECT_TRUE(windows_.Last->Before.Numbers.empty());
}

TEST_F(Subclassed, ADeletedMessageLeavesASlotThatTheNextOneTakes) {
  subclass_.Subclass(window_, owner_);
  for (const std::uint32_t message : {1U, 2U, 3U}) subclass_.AddMsg(message, cSubclass::After);
  subclass_.DelMsg(2, cSubclass::After);
  EXPECT_EQ(After(), (Table{1, Free, 3}));
  Send(2);
  EXPECT_TRUE(owner_->Log.empty());
  subclass_.AddMsg(9, cSubclass::After);
  EXPECT_EQ(After(), (Table{1, 9, 3}));
  subclass_.DelMsg(4711, cSubclass::After);
  EXPECT_EQ(After(), (Table{1, 9, 3})) << "no such message";
}

TEST_F(Subclassed, AFreeSlotAheadOfAListedMessageTakesItAsWell) {
  subclass_.Subclass(window_, owner_);
  for (const std::uint32_t message : {1U, 2U}) subclass_.AddMsg(message, cSubclass::After);
  subclass_.DelMsg(1, cSubclass::After);
  subclass_.AddMsg(2, cSubclass::After);
  EXPECT_EQ(After(), (Table{2, 2})) << "the walk ends at the slot";
}

TEST_F(Subclassed, AllMessagesPassWhereAllAreListedUntilTheTableIsCleared) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(3, cSubclass::After);
  subclass_.AddMsg(cSubclass::ALL_MESSAGES, cSubclass::After);
  subclass_.AddMsg(4, cSubclass::After);
  Send(99);
  EXPECT_EQ(owner_->Log, (Told{"after 99"}));
  subclass_.DelMsg(cSubclass::ALL_MESSAGES, cSubclass::After);
  for (const std::uint32_t message : {3U, 4U, 99U}) Send(message);
  EXPECT_EQ(owner_->Log.size(), 1U) << "the count is 0";
}

TEST_F(Subclassed, WithTwoEmptyTablesEverythingIsOnlyForwarded) {
  const auto older = std::make_shared<Owner>();
  cSubclass ahead;
  ahead.Subclass(window_, older);
  ahead.AddMsg(cSubclass::ALL_MESSAGES, cSubclass::After);
  subclass_.Subclass(window_, owner_);
  EXPECT_EQ(Send(5), 10);
  EXPECT_TRUE(owner_->Log.empty());
  EXPECT_EQ(older->Log, (Told{"after 5"}));
}

TEST_F(Subclassed, LettingGoOfNothingDoesNothing) {
  subclass_.UnSubClass();
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  Send(5);
  EXPECT_EQ(owner_->Log, (Told{"after 5"})) << "the table was not touched";
}

TEST_F(Subclassed, AWindowThatIsLetGoTellsNothingAndTheTablesAreClear) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  subclass_.UnSubClass();
  EXPECT_EQ(Send(5), 0);
  subclass_.Subclass(window_, owner_);
  EXPECT_EQ(Send(5), 0);
  EXPECT_TRUE(owner_->Log.empty());
}

TEST_F(Subclassed, LettingGoInsideACallbackEndsTheMessageThere) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::Before);
  subclass_.AddMsg(5, cSubclass::After);
  owner_->Inside = [&] { subclass_.UnSubClass(); };
  Send(5);
  EXPECT_EQ(owner_->Log, (Told{"before 5"}));
}

TEST_F(Subclassed, TakesItselfOffWhenItsOwnerIsGone) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  const std::weak_ptr<Owner> gone = owner_;
  owner_.reset();
  EXPECT_TRUE(gone.expired()) << "a window keeps nobody alive";
  EXPECT_EQ(Send(5), 0);
  const auto next = std::make_shared<Owner>();
  cSubclass other;
  other.Subclass(window_, next);
  other.AddMsg(5, cSubclass::After);
  EXPECT_EQ(Send(5), 10) << "the window lives on";
}

TEST_F(Subclassed, ItsEndLetsTheWindowGo) {
  {
    cSubclass brief;
    brief.Subclass(window_, owner_);
    brief.AddMsg(5, cSubclass::After);
  }
  EXPECT_EQ(Send(5), 0);
  EXPECT_TRUE(owner_->Log.empty());
}

TEST_F(Subclassed, ItsEndInsideACallbackEndsTheMessageThere) {
  auto brief = std::make_unique<cSubclass>();
  brief->Subclass(window_, owner_);
  brief->AddMsg(5, cSubclass::Before);
  brief->AddMsg(5, cSubclass::After);
  owner_->Inside = [&] { brief.reset(); };
  EXPECT_EQ(Send(5), 0);
  EXPECT_EQ(owner_->Log, (Told{"before 5"}));
}

TEST_F(Subclassed, AnOwnerThatGoesInItsOwnCallbackIsMissedBehindTheOwnProcedure) {
  const auto older = std::make_shared<Owner>();
  cSubclass ahead;
  ahead.Subclass(window_, older);
  ahead.AddMsg(5, cSubclass::After);
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::Before);
  subclass_.AddMsg(5, cSubclass::After);
  owner_->Inside = [&] { owner_.reset(); };
  EXPECT_EQ(Send(5), 0) << "the message that finds nobody ends with 0";
  EXPECT_EQ(older->Log, (Told{"after 5"})) << "the own procedure was called";
  EXPECT_EQ(Send(5), 10) << "and the window goes on without the one that took itself off";
}

TEST_F(Subclassed, AMessageOutsideTheTablesGoesOnThoughTheOwnerIsGone) {
  const auto older = std::make_shared<Owner>();
  cSubclass ahead;
  ahead.Subclass(window_, older);
  ahead.AddMsg(cSubclass::ALL_MESSAGES, cSubclass::After);
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::Before);
  owner_.reset();
  EXPECT_EQ(Send(6), 10);
  EXPECT_EQ(Send(5), 0) << "this one asks for the owner";
  EXPECT_EQ(older->Log, (Told{"after 6"}));
  EXPECT_EQ(Send(5), 10);
}

TEST_F(Subclassed, TheOwnersAnswerBehindTheOwnProcedureIsTheWindows) {
  const auto older = std::make_shared<Owner>();
  cSubclass ahead;
  ahead.Subclass(window_, older);
  ahead.AddMsg(5, cSubclass::After);
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  EXPECT_EQ(Send(5), 20) << "what the procedure ahead of it said, and 10";
  EXPECT_EQ(subclass_.CallOrigWndProc(window_, 5, 0, 0), 10);
  cSubclass nowhere;
  EXPECT_EQ(nowhere.CallOrigWndProc(window_, 5, 0, 0), 0);
}

TEST_F(Subclassed, AnotherWindowTakesThePlaceOfTheOneThatIsHeld) {
  const WindowHandle other = windows_.Create(u"VbaWindow", u"", 0);
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  subclass_.Subclass(other, owner_);
  EXPECT_EQ(Send(5), 0);
  EXPECT_EQ(windows_.Send({other, 5}), 10);
}

TEST_F(Subclassed, NoMessagesArriveFromAHandleThatIsNoWindow) {
  subclass_.Subclass(4711, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  EXPECT_EQ(windows_.Send({4711, 5}), 0);
  subclass_.UnSubClass();
  EXPECT_TRUE(owner_->Log.empty());
}

TEST_F(Subclassed, AMessageThatComesInsideItsCallbackPassesItBy) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  subclass_.AddMsg(6, cSubclass::After);
  owner_->Inside = [&] { EXPECT_EQ(Send(6), 0); };
  Send(5);
  EXPECT_EQ(owner_->Log, (Told{"after 5"}));
}

TEST_F(Subclassed, ACallbackCanAskWhatTheWindowAnswersByItself) {
  const auto older = std::make_shared<Owner>();
  cSubclass ahead;
  ahead.Subclass(window_, older);
  ahead.AddMsg(8, cSubclass::After);
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::After);
  owner_->Inside = [&] { EXPECT_EQ(subclass_.CallOrigWndProc(window_, 8, 0, 0), 10); };
  Send(5);
  EXPECT_EQ(older->Log, (Told{"after 8"}));
}

TEST_F(Subclassed, AFailureOfTheOwnerGoesNoFurtherThanTheCall) {
  subclass_.Subclass(window_, owner_);
  subclass_.AddMsg(5, cSubclass::Before);
  subclass_.AddMsg(5, cSubclass::After);
  owner_->Inside = [] { throw vb::Failure(7, u"no room"); };
  EXPECT_NO_THROW(Send(5));
  EXPECT_EQ(owner_->Log, (Told{"before 5", "after 5"}));
  expected_ = 2;
}

}  // namespace
}  // namespace tessel
