// The services that the tools have in the workbench.
#pragma once

#include <filesystem>

#include "hosts/files/SystemFiles.h"
#include "hosts/linux/LinuxApp.h"
#include "hosts/linux/LinuxIdentity.h"
#include "hosts/linux/SqliteRegistry.h"
#include "hosts/workbench/forms/QtDesktop.h"
#include "hosts/workbench/forms/QtWindows.h"
#include "hosts/workbench/platform/QtClock.h"
#include "platform/Platform.h"

namespace tessel::workbench {

/// Lives between the QApplication and the add-in. Timers of tools run as their actions do.
class WorkbenchPlatform : public platform::Platform {
 public:
  /// `data` is the program's directory, below which its databases lie; `settings` the settings
  /// file.
  WorkbenchPlatform(const std::filesystem::path& data, const std::filesystem::path& settings);
  [[nodiscard]] platform::Registry& Registry() override { return registry_; }
  [[nodiscard]] QtDesktop& Desktop() override { return desktop_; }
  [[nodiscard]] QtClock& Clock() override { return clock_; }
  [[nodiscard]] platform::Windows& Windows() override { return windows_; }
  [[nodiscard]] platform::Identity& Identity() override { return identity_; }
  [[nodiscard]] platform::App& App() override { return app_; }
  [[nodiscard]] platform::Files& Files() override { return files_; }

 private:
  linux_host::SqliteRegistry registry_;
  QtDesktop desktop_;
  QtClock clock_;
  QtWindows windows_;
  linux_host::LinuxIdentity identity_;
  linux_host::LinuxApp app_;
  files::SystemFiles files_;
};

}  // namespace tessel::workbench
