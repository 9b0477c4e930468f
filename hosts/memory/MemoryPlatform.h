// The platform that the tests run on: nothing of it leaves the process.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "hosts/files/SystemFiles.h"
#include "platform/Platform.h"
#include "vb/Failure.h"

namespace tessel::memory {

/// A registry in memory.
class MemoryRegistry : public platform::Registry {
 public:
  [[nodiscard]] std::optional<platform::RegistryValue> GetValue(platform::RootKey root,
                                                                StringView key,
                                                                StringView name) override;
  void SetValue(platform::RootKey root, StringView key, StringView name,
                const platform::RegistryValue& value) override;
  bool DeleteKey(platform::RootKey root, StringView key) override;
  [[nodiscard]] std::optional<std::vector<String>> ValueNames(platform::RootKey root,
                                                              StringView key) override;
  /// When set, every write fails with this.
  std::optional<vb::Failure> FailWrites;

 private:
  struct NamedValue {
    String Name;
    platform::RegistryValue Value;
  };
  struct Key {
    String Path;
    std::vector<NamedValue> Values;
  };
  [[nodiscard]] Key* Find(platform::RootKey root, StringView key);
  std::map<platform::RootKey, std::vector<Key>> keys_;
};

/// A clock that stands still until it is told to go on.
class VirtualClock : public platform::Clock {
 public:
  [[nodiscard]] vb::Date Now() override;
  [[nodiscard]] std::int64_t Ticks() override { return ticks_; }
  platform::TimerId StartTimer(int ms, std::function<void()> tick) override;
  void StopTimer(platform::TimerId timer) override;
  /// Runs the timers that are due, in the order of their times.
  void DoEvents() override;
  /// Moves the clock on, running each timer at its own time.
  void Advance(int ms);
  [[nodiscard]] std::size_t PendingTimers() const { return timers_.size(); }

  /// Moment at tick 0.
  vb::Date Start{2026, 11, 21, 14, 5, 9};
  /// Called by every DoEvents, before the timers.
  std::function<void()> OnDoEvents;

 private:
  struct Timer {
    platform::TimerId Id;
    std::int64_t Due;
    std::function<void()> Tick;
  };
  bool RunOneDue(std::int64_t limit);
  std::int64_t ticks_ = 0;
  platform::TimerId nextId_ = 1;
  std::vector<Timer> timers_;
};

/// A desktop whose user is a script.
class ScriptedDesktop : public platform::Desktop {
 public:
  struct Message {
    String Text, Title;
    int Style;
  };
  // What was seen, oldest first.
  std::vector<Message> Messages;
  std::vector<std::string>
      Journal;  ///< "beep", "keys ...", "help FILE TOPIC", "open VERB TARGET", ...
  std::vector<forms::Form*> Shown;  ///< forms that show, topmost last

  // What the user does. An empty queue answers OK, Cancel, Abort or No: the first that the box has.
  std::deque<platform::MessageAnswer> Answers;
  std::deque<std::optional<String>> Inputs;
  std::deque<std::vector<String>> Files;
  std::function<bool(forms::Font&)> OnFontDialog;
  /// Called when a modal form shows. If the form still shows behind it, it is closed by its frame.
  std::function<void(forms::Form&)> OnModal;
  /// Called for every message box, before its answer is taken.
  std::function<void(const Message&)> OnMessage;
  int ShellAnswer = platform::ShellSuccess;
  std::optional<platform::WindowPlacement> Placement;
  std::optional<platform::WindowPlacement> ScreenPlacement;

  [[nodiscard]] platform::MessageAnswer ShowMessage(StringView text, StringView title,
                                                    int style) override;
  [[nodiscard]] std::optional<String> InputBox(StringView prompt, StringView title,
                                               StringView text) override;
  [[nodiscard]] std::vector<String> FileDialog(const platform::FileDialogRequest& request) override;
  [[nodiscard]] bool FontDialog(forms::Font& font, StringView title) override;
  void Show(forms::Form& form, platform::ShowStyle style) override;
  void Hidden(forms::Form& form, bool gone) override;
  void SetForeground(forms::Form& form) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> GetPlacement(forms::Form& form) override;
  void SetPlacement(forms::Form& form, const platform::WindowPlacement& placement) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> DesktopPlacement() override;
  [[nodiscard]] String ClipboardText() override { return clipboardText_; }
  void SetClipboardText(StringView text) override;
  void SetClipboardPicture(int picture) override;
  [[nodiscard]] int ClipboardPicture() override { return clipboardPicture_; }
  void ClearClipboard() override;
  void SendKeys(StringView keys) override;
  void Beep() override;
  int OpenDocument(StringView target, StringView verb, StringView parameters) override;
  void ShowHelp(StringView helpFile, StringView topic) override;

 private:
  String clipboardText_;
  int clipboardPicture_ = 0;
};

class MemoryWindows : public platform::Windows {
 public:
  std::map<platform::WindowHandle, String> Classes;
  [[nodiscard]] String ClassName(platform::WindowHandle window) override;
};

class MemoryIdentity : public platform::Identity {
 public:
  String Computer = u"WORKSHOP", User = u"builder";
  [[nodiscard]] String ComputerName() override { return Computer; }
  [[nodiscard]] String UserName() override { return User; }
  /// Counts up from 1.
  [[nodiscard]] String NewGuid() override;

 private:
  unsigned guids_ = 0;
};

class MemoryApp : public platform::App {
 public:
  String Folder = u"/program";
  std::vector<String> EventLog;
  std::optional<int> Platform = std::nullopt;
  [[nodiscard]] String Path() override { return Folder; }
  [[nodiscard]] String EXEName() override { return u"Tessel"; }
  [[nodiscard]] String Title() override { return u"Tessel"; }
  [[nodiscard]] platform::Version ProgramVersion() override { return {}; }
  void LogEvent(StringView text, platform::LogEventType) override { EventLog.emplace_back(text); }
  [[nodiscard]] std::optional<int> PlatformId(int) override { return Platform; }
  [[nodiscard]] String NativePath(StringView path) override;
};

class MemoryPlatform : public platform::Platform {
 public:
  memory::MemoryRegistry RegistryService;
  memory::ScriptedDesktop DesktopService;
  memory::VirtualClock ClockService;
  memory::MemoryWindows WindowsService;
  memory::MemoryIdentity IdentityService;
  memory::MemoryApp AppService;
  files::SystemFiles FilesService;
  [[nodiscard]] platform::Registry& Registry() override { return RegistryService; }
  [[nodiscard]] platform::Desktop& Desktop() override { return DesktopService; }
  [[nodiscard]] platform::Clock& Clock() override { return ClockService; }
  [[nodiscard]] platform::Windows& Windows() override { return WindowsService; }
  [[nodiscard]] platform::Identity& Identity() override { return IdentityService; }
  [[nodiscard]] platform::App& App() override { return AppService; }
  [[nodiscard]] platform::Files& Files() override { return FilesService; }
};

}  // namespace tessel::memory
