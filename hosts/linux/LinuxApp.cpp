#include "hosts/linux/LinuxApp.h"

#include <syslog.h>

#include <cstdlib>

namespace tessel::linux_host {
namespace {

namespace fs = std::filesystem;

fs::path UserFolder(const char* variable, const char* belowHome) {
  const char* const set = std::getenv(variable);
  if (set != nullptr && *set != '\0') return fs::path(set) / "tessel";
  const char* const home = std::getenv("HOME");
  return fs::path(home == nullptr ? "/" : home) / belowHome / "tessel";
}

int Priority(platform::LogEventType type) {
  switch (type) {
    case platform::LogEventType::Error:
      return LOG_ERR;
    case platform::LogEventType::Warning:
      return LOG_WARNING;
    default:
      return LOG_INFO;
  }
}

}  // namespace

fs::path DefaultDataDirectory() { return UserFolder("XDG_DATA_HOME", ".local/share"); }

fs::path DefaultSettingsFile() {
  return UserFolder("XDG_CONFIG_HOME", ".config") / "settings.sqlite";
}

LinuxApp::LinuxApp(const fs::path& directory) : path_(fs::absolute(directory).u16string()) {
  while (path_.size() > 1 && path_.back() == u'/') path_.pop_back();
}

void LinuxApp::LogEvent(StringView text, platform::LogEventType type) {
  syslog(Priority(type), "%s", vb::ToUtf8(text).c_str());
}

std::optional<int> LinuxApp::PlatformId(int) { return std::nullopt; }

String LinuxApp::NativePath(StringView path) { return vb::Replace(path, u"\\", u"/"); }

String LinuxApp::TemporaryFolder() { return temporary_.Path().u16string(); }

}  // namespace tessel::linux_host
