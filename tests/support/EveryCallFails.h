// A run in which one call of the host fails, each in turn, with every answer of the user.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "forms/Form.h"
#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "foundation/ToolForm.h"
#include "support/FakeConnect.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"

namespace tessel::test {

/// What a run left behind.
struct PlayedRun {
  std::vector<std::string> Calls;  ///< of the host, in their order
  std::vector<String> Texts;       ///< of the modules, in the order of their names
  std::size_t Asked = 0;           ///< how often the user was asked what to do
  bool DialogGone = false, GuardFree = false, WindowsGone = false;
};

/// Starts a run by a button of a dialog over two modules.
class RunPlayer {
 public:
  using Modules = std::vector<std::pair<String, String>>;

  explicit RunPlayer(Modules modules) : modules_(std::move(modules)) {}

  /// Plays a run with a fresh world. The caret stands on line 3 of the first module; `prepare` gets
  /// the dialog that shows, and `press` starts the run, whose nth call of the host fails (0: none).
  template <class Dialog, class Prepare>
  PlayedRun Play(Prepare&& prepare, forms::Button Dialog::*press, std::size_t nth,
                 platform::MessageAnswer answer) const {
    World world;
    const SharedDatabase database;
    for (const auto& [name, text] : modules_) world.Module(name, text);
    world.Caret(modules_.front().first, 3);
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
    gErrorHandler->SetCallStackEnabled(true);
    const auto root = std::make_shared<FakeConnect>();
    const auto dialog = std::make_shared<Dialog>();
    dialog->VBInstance = world.Environment.VBE();
    Attach(*dialog, root);
    dialog->Show();
    prepare(*dialog);
    PlayedRun played;
    world.Environment.SetOperationHook([&](std::string_view call) {
      played.Calls.emplace_back(call);
      if (played.Calls.size() == nth) throw vb::Failure(7, u"no room");
    });
    auto& desktop = world.Services.DesktopService;
    desktop.Answers.assign(100, answer);
    forms::user::Press((*dialog).*press);
    world.Environment.SetOperationHook({});
    played.Asked = desktop.Messages.size();
    played.DialogGone = !dialog->IsLoaded();
    played.GuardFree = !root->Open;
    played.WindowsGone = desktop.Shown.empty();
    for (const auto& module : modules_) played.Texts.push_back(world.Text(module.first));
    dialog->Unload();
    gErrorHandler.reset();
    return played;
  }

 private:
  Modules modules_;
};

inline std::size_t Times(StringView text, StringView what) {
  std::size_t times = 0;
  for (std::size_t at = text.find(what); at != StringView::npos; at = text.find(what, at + 1)) {
    ++times;
  }
  return times;
}

/// Whatever call fails and whatever is answered: nothing stays up, other dialogs can open, every
/// statement stands there once, and what was retried is as if nothing had been. An Abort ahead of
/// the hiding leaves the dialog open, whole.
inline void ExpectOrderWhateverFails(
    const std::vector<String>& statements,
    const std::function<PlayedRun(std::size_t, platform::MessageAnswer)>& play) {
  using platform::MessageAnswer;
  struct Choice {
    MessageAnswer Answer;
    const char* Name;
  };
  const PlayedRun clean = play(0, MessageAnswer::Abort);
  ASSERT_EQ(clean.Asked, 0U);
  ASSERT_GT(clean.Calls.size(), 5U);
  for (std::size_t nth = 1; nth <= clean.Calls.size(); ++nth) {
    for (const Choice& one : {Choice{MessageAnswer::Abort, "Abort"},
                              {MessageAnswer::Retry, "Retry"},
                              {MessageAnswer::Ignore, "Ignore"}}) {
      const PlayedRun run = play(nth, one.Answer);
      const std::string label =
          "call " + std::to_string(nth) + ", " + clean.Calls[nth - 1] + ", " + one.Name;
      EXPECT_LE(run.Asked, 1U) << label << ": one failure, one question";
      const bool stillOpen = !run.DialogGone && !run.WindowsGone;
      EXPECT_TRUE(run.WindowsGone || (stillOpen && one.Answer == MessageAnswer::Abort)) << label;
      EXPECT_EQ(run.GuardFree, run.DialogGone) << label;
      for (const String& statement : statements) {
        std::size_t times = 0;
        for (const String& text : run.Texts) times += Times(text, statement);
        EXPECT_EQ(times, 1U) << label << ": " << vb::ToUtf8(statement);
      }
      if (one.Answer == MessageAnswer::Retry && run.Asked > 0) {
        EXPECT_EQ(run.Texts, clean.Texts) << label;
      }
    }
  }
}

}  // namespace tessel::test
