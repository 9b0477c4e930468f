// The environment's windows over the channel: what verbs send, and what the watchers make of it.

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <streambuf>
#include <variant>

#include "hosts/drive/Session.h"
#include "support/ChannelErrors.h"
#include "support/TemporaryFolder.h"
#include "watchers/cVbaWindows.h"

namespace tessel::drive {
namespace {

/// A request, or what a test does between two.
using Step = std::variant<std::string, std::function<void()>>;

/// The input of a channel, which takes the steps as the channel reads.
class Script : public std::streambuf {
 public:
  explicit Script(std::vector<Step> steps) : steps_(std::move(steps)) {}

 protected:
  int_type underflow() override {
    while (at_ < steps_.size()) {
      const Step& step = steps_[at_++];
      if (const auto* const act = std::get_if<std::function<void()>>(&step)) {
        (*act)();
        continue;
      }
      line_ = std::get<std::string>(step) + '\n';
      setg(line_.data(), line_.data(), line_.data() + line_.size());
      return traits_type::to_int_type(line_.front());
    }
    return traits_type::eof();
  }

 private:
  std::vector<Step> steps_;
  std::size_t at_ = 0;
  std::string line_;
};

class Watching : public testing::Test {
 protected:
  /// Plays steps to one session. Replies of the requests come back in their order.
  std::vector<Json> Play(std::vector<Step> steps) {
    Script script(std::move(steps));
    std::istream in(&script);
    std::ostringstream out;
    {
      Session session({folder_.Path() / "program", folder_.Path() / "settings.sqlite", false}, in,
                      out);
      session_ = &session;
      session.Run();
      session_ = nullptr;
    }
    auto replies = test::RepliesOf(out.str());
    errors_.Note(replies);
    return replies;
  }
  /// Stands where the Explorer does, from here on.
  Step Listen() {
    return [this] {
      ExplorerStarted = true;
      gEventCODE->Tree = [this](std::int32_t kind, std::int32_t argument) {
        told_.emplace_back(kind, argument);
        Rearm();
      };
    };
  }
  static void Rearm() {
    gEventCODE->SetRunEvents(true);
    gEventCODE->SetRunEventsProject(true);
    gEventCODE->SetRunEventsComponent(true);
    gEventCODE->SetRunEventsCode(true);
  }
  using Notices = std::vector<std::pair<std::int32_t, std::int32_t>>;
  /// What was told since the last of these.
  Step Expect(Notices notices) {
    return [this, notices = std::move(notices)] {
      EXPECT_EQ(std::exchange(told_, {}), notices) << "at " << ++checks_;
    };
  }
  /// A session with a module whose pane shows, listened to, and nothing in the air.
  std::vector<Step> Begin(std::vector<Step> more) {
    std::vector<Step> steps{
        R"({"do":"connect"})",
        R"({"do":"new-project","name":"P"})",
        R"({"do":"add-component","type":1,"name":"M","text":"Sub A()\r\nEnd Sub"})",
        R"({"do":"add-component","type":5,"name":"Form1"})",
        R"({"do":"caret","component":"M","line":1})",
        Listen()};
    steps.insert(steps.end(), more.begin(), more.end());
    return steps;
  }
  static constexpr std::size_t Head = 5;  // replies of the beginning

  const std::string wait_ = R"({"do":"advance","ms":1000})";
  test::TemporaryFolder folder_;
  test::ChannelErrors errors_;
  Session* session_ = nullptr;
  Notices told_;
  int checks_ = 0;
};

TEST_F(Watching, EachVerbSendsWhatItsActBrings) {
  const struct {
    const char* Request;
    Notices Told;
  } cases[] = {
      {R"({"do":"caret","component":"M","line":2})", {{2, 1}}},
      {R"({"do":"set-text","component":"M","text":"Sub B()\r\nEnd Sub"})", {{2, 1}}},
      {R"({"do":"caret","component":"Form1","line":1})", {{0, 2}}},
      {R"({"do":"close-pane","component":"Form1"})", {{0, 2}}},
      {R"({"do":"close-pane","component":"Form1"})", {}},
      {R"({"do":"select-component","component":"M"})", {{0, 2}}},
      {R"({"do":"add-component","type":1,"name":"M2"})", {{0, 2}}},
      {R"({"do":"rename-component","component":"M2","new-name":"M3"})", {{0, 2}}},
      {R"({"do":"remove-component","component":"M3"})", {{0, 2}}},
      {R"({"do":"new-project","name":"P2"})", {{0, 2}}},
      {R"({"do":"activate-project","project":"P"})", {{0, 2}}},
      {R"({"do":"remove-project","project":"P2"})", {{0, 2}}},
      {R"({"do":"projects"})", {}},
      {R"({"do":"text","component":"M"})", {}},
      {R"({"do":"pane"})", {}},
  };
  std::vector<Step> steps;
  for (const auto& one : cases) {
    steps.insert(steps.end(), {one.Request, wait_, Expect(one.Told)});
  }
  Play(Begin(std::move(steps)));
}

TEST_F(Watching, MessagesOfTheVerbReachTheWatchers) {
  const auto replies =
      Play(Begin({R"({"do":"windows"})",
                  [this] {
                    const auto windows = session_->Environment().OpenWindows();
                    for (const auto& window : windows) {
                      if (window.Class != u"VbaWindow" || !window.Visible) continue;
                      session_->Environment().OwnWindows().Send({window.Handle, 257});
                    }
                  },
                  wait_, Expect({{2, 1}})}));
  std::map<std::string, Json> byClass;
  for (const Json& window : replies.at(Head)["windows"]) byClass[window["class"]] = window;
  EXPECT_EQ(byClass["MDIClient"]["parent"], byClass["wndclass_desked_gsk"]["handle"]);
  EXPECT_EQ(byClass["wndclass_pbrs"]["parent"], byClass["wndclass_desked_gsk"]["handle"]);
  EXPECT_EQ(byClass["VbaWindow"]["parent"], byClass["MDIClient"]["handle"]);
  EXPECT_EQ(byClass["VbaWindow"]["caption"], "M (Code)");
  EXPECT_EQ(byClass["VbaWindow"]["visible"], true);
  EXPECT_EQ(byClass["DesignerWindow"]["parent"], byClass["MDIClient"]["handle"]);
  EXPECT_EQ(byClass["DesignerWindow"]["visible"], false);
}

TEST_F(Watching, TheTwitchMovesTheCaretThereAndBackAndIsHeard) {
  const auto replies =
      Play(Begin({R"({"do":"caret","component":"M","line":1,"column":3})", wait_, Expect({{2, 1}}),
                  [] {
                    gEventCODE->SetTwitchCursor(true);
                    gEventCODE->RunTimerActiveWindowCode();
                  },
                  R"({"do":"advance","ms":50})", R"({"do":"journal"})", R"({"do":"pane"})",
                  Expect({}), R"({"do":"advance","ms":100})", Expect({{2, 1}})}));
  const Json& journal = replies.at(Head + 3)["journal"];
  ASSERT_EQ(journal.size(), 2U);
  EXPECT_EQ(journal[0]["keys"], "{RIGHT}");
  EXPECT_EQ(journal[1]["keys"], "{LEFT}");
  EXPECT_EQ(replies.at(Head + 4)["selection"]["column"], 3);
}

TEST_F(Watching, KeysThatAToolSendsReachThePaneInFront) {
  const struct {
    int Line, Column;
    const char16_t* Keys;
    int LineAfter, ColumnAfter;
    const char* Text;
  } cases[] = {{1, 1, u"{LEFT}", 1, 1, "ab\r\ncd"},
               {1, 3, u"{RIGHT}", 2, 1, "ab\r\ncd"},
               {2, 1, u"{LEFT}", 1, 3, "ab\r\ncd"},
               {2, 3, u"{RIGHT}", 2, 3, "ab\r\ncd"},
               {1, 2, u"x", 1, 3, "axb\r\ncd"},
               {1, 3, u"{{}{}}", 1, 5, "ab{}\r\ncd"},
               {1, 1, u"{F5}", 1, 1, "ab\r\ncd"},
               {1, 2, u"{ENTER}", 2, 1, "a\r\nb\r\ncd"},
               {2, 3, u"{ENTER}x", 3, 2, "ab\r\ncd\r\nx"},
               {1, 3, u"{BACKSPACE}", 1, 2, "a\r\ncd"},
               {2, 1, u"{BACKSPACE}", 1, 3, "abcd"},
               {1, 1, u"{BACKSPACE}", 1, 1, "ab\r\ncd"},
               {1, 2, u"{TAB}", 1, 5, "a   b\r\ncd"},
               {1, 2, u"\u0001\u007F\u001B", 1, 2, "ab\r\ncd"}};
  for (const auto& one : cases) {
    SCOPED_TRACE(vb::ToUtf8(one.Keys));
    const auto replies = Play(
        {R"({"do":"new-project","name":"P"})",
         R"({"do":"add-component","type":1,"name":"M","text":"ab\r\ncd"})",
         Json({{"do", "caret"}, {"component", "M"}, {"line", one.Line}, {"column", one.Column}})
             .dump(),
         [&] { session_->Desktop().SendKeys(one.Keys); }, R"({"do":"pane"})",
         R"({"do":"text","component":"M"})"});
    EXPECT_EQ(replies.at(3)["selection"]["line"], one.LineAfter);
    EXPECT_EQ(replies.at(3)["selection"]["column"], one.ColumnAfter);
    EXPECT_EQ(replies.at(4)["text"], one.Text);
  }
  Play({[this] { session_->Desktop().SendKeys(u"x"); }, R"({"do":"pane"})"});
}

TEST_F(Watching, KeysBehindADialogDontReachTheCode) {
  const auto replies = Play(
      Begin({R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]})",
             [this] { session_->Desktop().SendKeys(u"x"); }, R"({"do":"text","component":"M"})",
             R"({"do":"press","control":"btmCancel"})", wait_}));
  EXPECT_EQ(replies.at(Head + 1)["text"], "Sub A()\r\nEnd Sub");
}

TEST_F(Watching, ATickUnderAnOpenDialogIsToldAndTheDialogStays) {
  const auto replies =
      Play(Begin({R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]})",
                  R"({"do":"caret","component":"M","line":2})", wait_, Expect({{2, 1}}),
                  R"({"do":"press","control":"btmCancel"})", wait_}));
  EXPECT_EQ(replies.at(Head + 2)["front"]["form"], "frmFormatText");
  EXPECT_TRUE(replies.at(Head + 3)["front"].is_null());
}

TEST_F(Watching, ADialogThatGoesLetsTheExplorerFollowByATimerThatDoesNothing) {
  Play(Begin({R"({"do":"click","path":["Tessel","Tessel","Code Formatter"]})",
              R"({"do":"press","control":"btmCancel"})", R"({"do":"advance","ms":50})",
              R"({"do":"journal"})", wait_, Expect({})}));
}

TEST_F(Watching, AFailureInAMessageShowsItsDialogFromInsideAndTheVerbGoesOn) {
  const auto replies =
      Play(Begin({[] {
                    gEventCODE->Tree = [](std::int32_t, std::int32_t) {
                      Rearm();
                      throw vb::Failure(7, u"no room");
                    };
                  },
                  R"({"do":"caret","component":"M","line":2})", wait_, R"({"do":"pane"})",
                  R"({"do":"press","control":"btnAbort"})", R"({"do":"call-stack"})"}));
  EXPECT_EQ(errors_.Take(), 1U);
  EXPECT_EQ(replies.at(Head + 1)["front"]["form"], "frmErrorMessage");
  EXPECT_EQ(replies.at(Head + 2)["selection"]["line"], 2);
  EXPECT_TRUE(replies.at(Head + 3)["front"].is_null());
  EXPECT_TRUE(replies.at(Head + 4)["call-stack"].empty());
}

TEST_F(Watching, ADisconnectionWithTimersInTheAirLeavesNothingToTick) {
  const auto replies = Play(
      Begin({R"({"do":"caret","component":"M","line":2})",
             [] {
               gEventCODE->RunTimerComponent();
               gEventCODE->RunTimerProperties();
               gEventCODE->SetTwitchCursor(true);
               gEventCODE->RunTimerActiveWindowCode();
             },
             R"({"do":"disconnect"})",
             [] {
               EXPECT_EQ(gEventCODE, nullptr);
               EXPECT_EQ(gVbaWindows, nullptr);
               EXPECT_FALSE(ExplorerStarted);
             },
             wait_, R"({"do":"journal"})", R"({"do":"caret","component":"M","line":1})", wait_,
             Expect({}), R"({"do":"connect"})",
             [] {
               ASSERT_TRUE(gVbaWindows);
               EXPECT_EQ(gVbaWindows->Count(), 2U) << "the code and the designer that are there";
             },
             Listen(), R"({"do":"caret","component":"M","line":2})", wait_, Expect({{2, 1}})}));
  for (const Json& reply : replies) EXPECT_TRUE(reply["front"].is_null()) << reply;
  EXPECT_TRUE(replies.at(Head + 3)["journal"].empty());
}

TEST_F(Watching, AfterADisconnectionTheWindowsAreTheEnvironmentsAlone) {
  Play(
      Begin({R"({"do":"disconnect"})", R"({"do":"add-component","type":1,"name":"N"})",
             R"({"do":"caret","component":"N","line":1})", R"({"do":"close-pane","component":"N"})",
             R"({"do":"remove-component","component":"N"})", wait_, Expect({})}));
}

TEST_F(Watching, WithoutAutoPositionOpeningAWindowIsStillTold) {
  Play(Begin(
      {R"({"do":"setting","section":"Settings\\VBCode\\frmSettings","key":"AutoPosition","value":0})",
       R"({"do":"caret","component":"M","line":2})", wait_, Expect({}),
       R"({"do":"close-pane","component":"M"})", wait_, Expect({{0, 2}}),
       R"({"do":"add-component","type":1,"name":"N"})", wait_, Expect({{0, 2}})}));
}

}  // namespace
}  // namespace tessel::drive
