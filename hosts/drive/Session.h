// One add-in without a screen, as the channel drives it.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "addin/Connect.h"
#include "hosts/drive/Channel.h"
#include "hosts/drive/ChannelDesktop.h"
#include "hosts/files/SystemFiles.h"
#include "hosts/linux/LinuxApp.h"
#include "hosts/linux/LinuxIdentity.h"
#include "hosts/linux/SqliteRegistry.h"
#include "hosts/linux/SystemClock.h"
#include "hosts/memory/VirtualClock.h"
#include "hosts/workspace/Workspace.h"
#include "platform/Platform.h"

namespace tessel::drive {

struct SessionOptions {
  std::filesystem::path Data;      ///< the program's directory; Data/ lies below it
  std::filesystem::path Registry;  ///< the settings file
  bool RealClock = false;
};

/// The services of a session: settings in a file, a virtual or real clock, the channel as desktop.
class SessionPlatform : public platform::Platform {
 public:
  explicit SessionPlatform(const SessionOptions& options);
  [[nodiscard]] platform::Registry& Registry() override { return registry_; }
  [[nodiscard]] platform::Boxes& Boxes() override { return desktop_; }
  [[nodiscard]] platform::Screen& Screen() override { return desktop_; }
  [[nodiscard]] platform::Clipboard& Clipboard() override { return desktop_; }
  [[nodiscard]] platform::Shell& Shell() override { return desktop_; }
  /// All four of them.
  [[nodiscard]] ChannelDesktop& Desktop() { return desktop_; }
  [[nodiscard]] platform::Clock& Clock() override;
  [[nodiscard]] platform::Windows& Windows() override { return windows_.Get(); }
  /// Those of the environment, which stands on these services itself.
  void UseWindows(platform::Windows& windows) { windows_.Use(windows); }
  [[nodiscard]] platform::Identity& Identity() override { return identity_; }
  [[nodiscard]] platform::App& App() override { return app_; }
  [[nodiscard]] platform::Files& Files() override { return files_; }
  /// Moves the clock on by that many ms and runs the timers that fall due.
  void Advance(int ms);

 private:
  linux_host::SqliteRegistry registry_;
  ChannelDesktop desktop_;
  memory::VirtualClock virtualClock_;
  std::optional<linux_host::SystemClock> realClock_;
  model::WindowService windows_;
  linux_host::LinuxIdentity identity_;
  linux_host::LinuxApp app_;
  files::SystemFiles files_;
};

/// Owns everything that a channel speaks to. Verbs reach it through the members.
class Session {
 public:
  Session(const SessionOptions& options, std::istream& in, std::ostream& out);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Serves the channel to its end and disconnects.
  void Run() {
    channel_.Run();
    Disconnect();
  }

  [[nodiscard]] SessionPlatform& Services() { return platform_; }
  [[nodiscard]] ChannelDesktop& Desktop() { return platform_.Desktop(); }
  [[nodiscard]] workspace::Workspace& Environment() { return workspace_; }
  [[nodiscard]] drive::Channel& Channel() { return channel_; }

  /// Connection, then start-up complete. Fails when it is connected.
  void Connect();
  /// No effect when it isn't connected.
  void Disconnect();
  [[nodiscard]] bool IsConnected() const { return connect_ != nullptr; }
  /// Runs a handler of the add-in that no control is hooked to. Fails when it isn't connected or
  /// has no such handler.
  void RunHandler(StringView handler);

  /// Opens the list of members over the code pane in front; the word that the user picks, empty for
  /// none. Fails when the add-in isn't connected.
  [[nodiscard]] String ShowContextMenu(int codeX, int codeY);

  /// The next call of that host operation fails so. Fails when no operation has that name.
  void FailNext(const std::string& operation, const vb::Failure& failure);

 private:
  [[nodiscard]] Json Carry(const Json& request);

  SessionPlatform platform_;
  platform::ScopedPlatform scope_;
  workspace::Workspace workspace_;
  std::shared_ptr<tessel::Connect> connect_;
  std::multimap<std::string, vb::Failure, std::less<>> failures_;
  drive::Channel channel_;
};

/// A verb's work: fields of the request in, fields of the reply out.
using Verb = Json (*)(Session& session, const Json& request);
using VerbTable = std::map<std::string, Verb, std::less<>>;

// The verbs by theme; each table stands in the file of its name.
[[nodiscard]] const VerbTable& HostVerbs();
[[nodiscard]] const VerbTable& ProjectVerbs();
[[nodiscard]] const VerbTable& ControlVerbs();
[[nodiscard]] const VerbTable& BarVerbs();
[[nodiscard]] const VerbTable& DialogVerbs();
[[nodiscard]] const VerbTable& SurroundingVerbs();
[[nodiscard]] const VerbTable& LifeVerbs();

}  // namespace tessel::drive
