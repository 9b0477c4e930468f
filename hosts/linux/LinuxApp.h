// The running program on Linux.
#pragma once

#include <filesystem>

#include "hosts/files/TemporaryFolder.h"
#include "platform/App.h"

namespace tessel::linux_host {

/// $XDG_DATA_HOME/tessel, or ~/.local/share/tessel.
[[nodiscard]] std::filesystem::path DefaultDataDirectory();
/// $XDG_CONFIG_HOME/tessel/settings.sqlite, or the same below ~/.config.
[[nodiscard]] std::filesystem::path DefaultSettingsFile();

class LinuxApp : public platform::App {
 public:
  /// `directory` is the program's directory, below which its data lies.
  explicit LinuxApp(const std::filesystem::path& directory);
  [[nodiscard]] String Path() override { return path_; }
  [[nodiscard]] String EXEName() override { return u"Tessel"; }
  [[nodiscard]] String Title() override { return u"Tessel"; }
  [[nodiscard]] platform::Version ProgramVersion() override { return {1, 0, 0}; }
  /// To the system's log.
  void LogEvent(StringView text, platform::LogEventType type) override;
  /// Nothing: this is another family of systems.
  [[nodiscard]] std::optional<int> PlatformId(int recordSize) override;
  [[nodiscard]] String NativePath(StringView path) override;
  [[nodiscard]] String TemporaryFolder() override;

 private:
  String path_;
  files::TemporaryFolder temporary_;
};

}  // namespace tessel::linux_host
