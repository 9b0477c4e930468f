// What watches the environment: latches, one-shot timers, and the event that they end in.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "host/VBE.h"
#include "platform/Clock.h"
#include "platform/Windows.h"

namespace tessel {

/// Turns what the watched windows tell into notices for the Explorer, one at a time: a trigger
/// takes the latch of its kind and the master latch, a timer lets the environment finish, and its
/// tick raises `Tree`. Whoever listens sets the four latches again when it has read everything.
/// Made with std::make_shared: a routine of it that lets events run keeps it alive.
class clsEventCODE : public std::enable_shared_from_this<clsEventCODE> {
 public:
  /// Name of the environment's process, set by cMDIClient.Start.
  [[nodiscard]] const String& NameGlobalProcesses() const { return nameGlobalProcesses_; }
  void SetNameGlobalProcesses(StringView value) { nameGlobalProcesses_ = value; }
  /// A place in a code window; kept for whoever asks.
  [[nodiscard]] std::int32_t CodeY() const { return codeY_; }
  void SetCodeY(std::int32_t value) { codeY_ = value; }
  [[nodiscard]] std::int32_t CodeX() const { return codeX_; }
  void SetCodeX(std::int32_t value) { codeX_ = value; }
  /// Whether the next tick of RunTimerActiveWindowCode moves the caret there and back.
  [[nodiscard]] bool TwitchCursor() const { return twitchCursor_; }
  void SetTwitchCursor(bool value) { twitchCursor_ = value; }
  /// The last code window in which the user acted.
  [[nodiscard]] platform::WindowHandle hwndCODE() const { return hwndCODE_; }
  void SethwndCODE(platform::WindowHandle value) { hwndCODE_ = value; }
  /// The environment; nothing ends the watching, and timers in the air are killed.
  void SetVBInstance(std::shared_ptr<host::VBE> value);

  // The latches, all True at first. True: the next trigger of that kind may start a timer.
  [[nodiscard]] bool RunEventsCode() const { return runEventsCode_; }
  void SetRunEventsCode(bool value) { runEventsCode_ = value; }
  [[nodiscard]] bool RunEventsComponent() const { return runEventsComponent_; }
  void SetRunEventsComponent(bool value) { runEventsComponent_ = value; }
  [[nodiscard]] bool RunEventsProject() const { return runEventsProject_; }
  void SetRunEventsProject(bool value) { runEventsProject_ = value; }
  /// The master latch: True when no notice is being worked on.
  [[nodiscard]] bool RunEvents() const { return runEvents_; }
  void SetRunEvents(bool value) { runEvents_ = value; }

  // These raise `Tree`, with kind and argument 1 and 2, 0 and 2, 2 and 1.
  void RunTimerEventComponent();
  void RunTimerEventProperties();
  void RunTimerEventCode();
  /// Starts the timer of 50 ms whose tick is RunActiveWindowCode.
  void RunTimerActiveWindowCode();
  /// Sends the caret one place on and back, if TwitchCursor, so that the code window in front hears
  /// a key.
  void RunActiveWindowCode();
  // These start one-shot timers whose ticks raise `Tree`; the last one lets events run first.
  void RunTimerCode();        ///< 100 ms
  void RunTimerComponent();   ///< 200 ms
  void RunTimerProperties();  ///< 200 ms

  /// A trigger found the latch of its code window held by another window: what the user does there
  /// is told by no notice of its own.
  void NoteActedElsewhere() { actedElsewhere_ = true; }
  /// Whether that happened since the last call.
  [[nodiscard]] bool TakeActedElsewhere() { return std::exchange(actedElsewhere_, false); }

  /// What the listener is to refresh: 0 projects, 1 the selected component, 2 the code at the
  /// caret.
  std::function<void(std::int32_t kind, std::int32_t argument)> Tree;

  /// Kills a timer of this; no effect on one that is gone.
  void KillTimer(platform::TimerId timer);

 private:
  using TimerProcedure = void (*)(platform::TimerId timer);
  void SetTimer(int ms, TimerProcedure procedure);
  void RaiseTree(std::int32_t kind, std::int32_t argument) const;

  String nameGlobalProcesses_;
  std::int32_t codeY_ = 0, codeX_ = 0;
  bool twitchCursor_ = false;
  platform::WindowHandle hwndCODE_ = 0;
  std::shared_ptr<host::VBE> vbInstance_;
  bool runEventsCode_ = true, runEventsComponent_ = true, runEventsProject_ = true;
  bool runEvents_ = true, actedElsewhere_ = false;
  std::vector<platform::TimerId> timers_;  // in the air
};

/// The one watcher, between connection and disconnection of the add-in.
extern std::shared_ptr<clsEventCODE> gEventCODE;

/// True once the Explorer was shown in the present connection: before, nobody listens, so nothing
/// is watched for and no latch is taken.
extern bool ExplorerStarted;

}  // namespace tessel
