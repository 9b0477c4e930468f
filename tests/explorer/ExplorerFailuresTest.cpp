// The Explorer's menus in an environment whose calls fail, each in turn.

#include "explorer/ExplorerTexts.h"
#include "explorer/ExplorerWorld.h"

namespace tessel {
namespace {

using namespace test;
namespace user = forms::user;
using platform::MessageAnswer;

/// Where the call that fails is counted from.
enum class From { TheClick, TheChoice };

class ExplorerFailures : public ExplorerWorld {
 protected:
  ExplorerFailures() {
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
    Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
    Add(host::vbext_ct_VBForm, u"Form1", TwoSubs);
    tree_->Show();
  }
  std::vector<memory::ScriptedDesktop::Message>& Reports() {
    return world_.Services.DesktopService.Messages;
  }
  int Components() { return world_.Environment.VBE()->ActiveVBProject()->VBComponents()->Count(); }

  /// A project has one MDI form at the most.
  void TakeBackTheNewest() {
    const auto all = world_.Environment.VBE()->ActiveVBProject()->VBComponents();
    world_.Environment.RemoveComponent(u"", all->Item(all->Count())->Name());
    gEventCODE->RunTimerEventProperties();
  }

  /// Clicks on the form's row with the right button and chooses an item; the nth call of the
  /// environment fails. Whether there was such a call.
  bool FailsAt(int nth, MessageAnswer answer, From from, StringView item) {
    int calls = 0;
    bool counts = from == From::TheClick;
    popped_ = false;
    states_.clear();
    Reports().clear();
    auto& desktop = world_.Services.DesktopService;
    desktop.Answers.assign(10, answer);
    desktop.OnMenu = [&](forms::MenuItem& menu) {
      popped_ = true;
      for (const forms::MenuItem* const one : menu.Items()) Note(*one);
      counts = from == From::TheChoice;
      return String(item);
    };
    world_.Environment.SetOperationHook([&](std::string_view) {
      if (counts && ++calls == nth) throw vb::Failure(7, u"no room");
    });
    user::RightClick(Grid(), RowOf(u"Form1"));
    world_.Environment.SetOperationHook({});
    desktop.OnMenu = {};
    return calls >= nth;
  }
  void Note(const forms::MenuItem& item) {
    states_[vb::ToUtf8(item.Name())] = item.Enabled();
    for (const forms::MenuItem* const one : item.Items()) Note(*one);
  }
  /// The next notice is heard, and a jump goes to the code.
  void ExpectFree(const std::string& where) {
    EXPECT_TRUE(gErrorHandler->CallStack().empty()) << where;
    gEventCODE->RunTimerEventProperties();
    ExpectTruth(where);
    user::DoubleClick(Grid(), RowOf(u"Form1"));
    const auto pane = world_.Environment.VBE()->ActiveCodePane();
    ASSERT_TRUE(pane) << where;
    EXPECT_EQ(pane->CodeModule()->Name(), u"Form1") << where;
  }
  static std::string Where(StringView item, int nth, MessageAnswer answer) {
    return vb::ToUtf8(item) + ", call " + std::to_string(nth) + ", answer " +
           std::to_string(static_cast<int>(answer));
  }

  static constexpr MessageAnswer Choices[] = {MessageAnswer::Abort, MessageAnswer::Retry,
                                              MessageAnswer::Ignore};
  bool popped_ = false;
  std::map<std::string, bool> states_;
};

TEST_F(ExplorerFailures, TheMenuComesUpWhateverFailsInItsMakingAndGreysWhatItCouldNotAsk) {
  ASSERT_FALSE(FailsAt(1000, MessageAnswer::Abort, From::TheClick, {}));
  const auto clean = states_;
  EXPECT_TRUE(clean.at("mnuObjectVB6") && clean.at("mnuCodeVB6") && clean.at("mnuAddFormVB6"));
  for (const MessageAnswer answer : Choices) {
    int nth = 1;
    while (FailsAt(nth, answer, From::TheClick, {})) {
      const std::string where = Where(u"menu", nth, answer);
      EXPECT_TRUE(popped_) << where;
      ASSERT_EQ(Reports().size(), 1U) << where;
      EXPECT_NE(Reports().front().Text.find(u"in Tessel.udProjectExplorer.CheckEnableButtonADD"),
                String::npos)
          << where;
      int greyed = 0;
      for (const auto& [name, enabled] : clean) greyed += enabled && !states_.at(name) ? 1 : 0;
      EXPECT_LE(greyed, answer == MessageAnswer::Retry ? 0 : 1) << where;
      EXPECT_TRUE(states_.at("mnuCodeVB6")) << where << ": the row needs no call";
      ++nth;
    }
    EXPECT_GT(nth, 12) << "each adding item asks for its command";
  }
  ExpectFree("menus");
}

TEST_F(ExplorerFailures, AnAddingItemAddsOneComponentOrNone) {
  for (const explorer::AddingRow& row : explorer::AddingTable()) {
    const String item(row.Name.begin(), row.Name.end());
    // A greyed command refuses by itself, and an environment in memory has no files to add.
    (void)FailsAt(1000, MessageAnswer::Abort, From::TheClick, {});
    if (!states_.at(std::string(row.Name)) || row.Command == u"Add File...") continue;
    for (const MessageAnswer answer : Choices) {
      for (int nth = 1;; ++nth) {
        const int before = Components();
        const bool failed = FailsAt(nth, answer, From::TheChoice, item);
        const std::string where = Where(item, nth, answer);
        const bool refused = failed && answer != MessageAnswer::Retry;
        EXPECT_EQ(Components(), before + (refused ? 0 : 1)) << where;
        EXPECT_EQ(Reports().size(), failed ? 1U : 0U) << where;
        if (failed) {
          EXPECT_NE(Reports().front().Text.find(row.Routine), String::npos) << where;
        }
        ExpectFree(where);
        if (Components() > before) TakeBackTheNewest();
        if (!failed) break;
      }
    }
  }
}

TEST_F(ExplorerFailures, ItemsThatShowSomethingAreReportedOnceAndTheNextJumpGoesToTheCode) {
  for (const StringView item : {u"mnuObjectVB6", u"mnuCodeVB6", u"mnuProperties"}) {
    for (const MessageAnswer answer : Choices) {
      for (int nth = 1;; ++nth) {
        const bool failed = FailsAt(nth, answer, From::TheChoice, item);
        const std::string where = Where(item, nth, answer);
        EXPECT_EQ(Reports().size(), failed ? 1U : 0U) << where;
        ExpectFree(where);
        if (!failed) break;
      }
    }
  }
}

TEST_F(ExplorerFailures, TheMenuOfOtherHostsNeedsNoCallThatCanFailAloud) {
  gEventCODE->SetNameGlobalProcesses(u"EXCEL");
  int nth = 1;
  while (FailsAt(nth, MessageAnswer::Abort, From::TheClick, {})) {
    const std::string where = Where(u"menu", nth, MessageAnswer::Abort);
    EXPECT_TRUE(popped_) << where;
    EXPECT_TRUE(Reports().empty()) << where;
    EXPECT_EQ(tree_->MenuOfDocuments.mnuRemove.Caption(), u"Remove Form1") << where;
    EXPECT_TRUE(states_.at("mnuObject")) << where << ": a form is no sheet";
    ++nth;
  }
  EXPECT_GT(nth, 2);
}

TEST_F(ExplorerFailures, RemovingAsksNothingAndRemovesNothing) {
  gEventCODE->SetNameGlobalProcesses(u"EXCEL");
  (void)FailsAt(1000, MessageAnswer::Abort, From::TheClick, u"mnuRemove");
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Components(), 2);
  EXPECT_EQ(explorer::RemovalQuestion, u"Please confirm the '<>' component removal.");
}

}  // namespace
}  // namespace tessel
