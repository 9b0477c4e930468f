#include "watchers/cVbaWindow.h"

#include "foundation/Routine.h"
#include "scanning/mFunctions.h"
#include "watchers/Notices.h"

namespace tessel {
namespace {

constexpr std::uint32_t Listed[] = {platform::WM_KeyUp, platform::WM_LButtonUp,
                                    platform::WM_Command, platform::WM_ParentNotify};
constexpr std::uint32_t FromAccelerator = 1;

/// Clicks in a child reach its parent as a notice, and commands count when a key gave them.
bool IsTrigger(std::uint32_t uMsg, std::intptr_t wParam) {
  switch (uMsg) {
    case platform::WM_KeyUp:
    case platform::WM_LButtonUp:
      return true;
    case platform::WM_ParentNotify:
      return LowWord(wParam) == platform::WM_LButtonDown;
    case platform::WM_Command:
      return HighWord(wParam) == FromAccelerator;
    default:
      return false;
  }
}

/// What a trigger starts in a window of a class.
struct Reaction {
  StringView Class;
  bool (*IsArmed)(const clsEventCODE&);
  void (clsEventCODE::*TakeLatch)(bool);
  void (clsEventCODE::*StartTimer)();
  bool HearsCommands, IsCode;
};

constexpr Reaction Reactions[] = {
    {u"VbaWindow",
     [](const clsEventCODE& watcher) {
       return watcher.RunEventsCode() && watcher.RunEventsComponent() && watcher.RunEventsProject();
     },
     &clsEventCODE::SetRunEventsCode, &clsEventCODE::RunTimerCode, true, true},
    {u"DesignerWindow",
     [](const clsEventCODE& watcher) {
       return watcher.RunEventsComponent() && watcher.RunEventsProject();
     },
     &clsEventCODE::SetRunEventsComponent, &clsEventCODE::RunTimerComponent, false, false},
};

const Reaction* ReactionOf(StringView className) {
  for (const Reaction& one : Reactions) {
    if (one.Class == className) return &one;
  }
  return nullptr;
}

}  // namespace

void cVbaWindow::Start(platform::WindowHandle hWnd, StringView ClassName) {
  Routine(u"cVbaWindow.Start", [&](const Statements& run) {
    hwndWinCode_ = hWnd;
    classHwnd_ = ClassName;
    subclass_.Subclass(hWnd, weak_from_this());
    for (const std::uint32_t message : Listed) subclass_.AddMsg(message, cSubclass::After);
    RenewProject(run, eventCODE_);
  });
}

void cVbaWindow::UnSubClass() {
  Routine(u"cVbaWindow.UnSubClass", [&](const Statements& run) {
    for (const std::uint32_t message : Listed) subclass_.DelMsg(message, cSubclass::After);
    subclass_.UnSubClass();
    RenewProject(run, eventCODE_);
  });
}

/// The option is asked for last: it lies in the settings, and most messages come while a latch is
/// held.
void cVbaWindow::iSubclass_After(std::intptr_t&, platform::WindowHandle, std::uint32_t uMsg,
                                 std::intptr_t wParam, std::intptr_t) {
  Routine(u"cVbaWindow.iSubclass_After", [&](const Statements& run) {
    const auto watcher = eventCODE_;
    const Reaction* const reaction = ReactionOf(classHwnd_);
    if (!ExplorerStarted || !watcher || reaction == nullptr || !IsTrigger(uMsg, wParam)) return;
    if (uMsg == platform::WM_Command && !reaction->HearsCommands) return;
    if (!reaction->IsArmed(*watcher)) {
      if (reaction->IsCode && watcher->hwndCODE() != hwndWinCode_) watcher->NoteActedElsewhere();
      return;
    }
    if (!run([] { return mFunctions::IncludeAutoPosition(); })) return;
    (watcher.get()->*reaction->TakeLatch)(false);
    if (!TakeRunEvents(*watcher)) return;
    run([&] { (watcher.get()->*reaction->StartTimer)(); });
    if (reaction->IsCode) watcher->SethwndCODE(hwndWinCode_);
  });
}

}  // namespace tessel
