// The services that the tools have in the workbench.
#pragma once

#include <filesystem>

#include "hosts/files/SystemFiles.h"
#include "hosts/linux/LinuxApp.h"
#include "hosts/linux/LinuxIdentity.h"
#include "hosts/linux/SqliteRegistry.h"
#include "hosts/model/WindowTable.h"
#include "hosts/workbench/forms/QtDesktop.h"
#include "hosts/workbench/platform/QtClock.h"
#include "platform/Platform.h"

namespace tessel::workbench {

/// Lives between the QApplication and the add-in. Timers of tools run behind the same gate as
/// their actions.
class WorkbenchPlatform : public platform::Platform {
 public:
  /// `data` is the program's directory, below which its databases lie; `settings` the settings
  /// file.
  WorkbenchPlatform(const std::filesystem::path& data, const std::filesystem::path& settings);
  [[nodiscard]] platform::Registry& Registry() override { return registry_; }
  [[nodiscard]] platform::Boxes& Boxes() override { return desktop_.Boxes(); }
  [[nodiscard]] platform::Screen& Screen() override { return desktop_.Screen(); }
  [[nodiscard]] platform::Clipboard& Clipboard() override { return desktop_.Clipboard(); }
  [[nodiscard]] platform::Shell& Shell() override { return desktop_.Shell(); }
  /// All four of them.
  [[nodiscard]] QtDesktop& Desktop() { return desktop_; }
  [[nodiscard]] QtClock& Clock() override { return clock_; }
  [[nodiscard]] platform::Windows& Windows() override { return windows_.Get(); }
  /// Those of the environment, which stands on these services itself.
  void UseWindows(platform::Windows& windows) { windows_.Use(windows); }
  [[nodiscard]] platform::Identity& Identity() override { return identity_; }
  [[nodiscard]] platform::App& App() override { return app_; }
  [[nodiscard]] platform::Files& Files() override { return files_; }

 private:
  linux_host::SqliteRegistry registry_;
  QtDesktop desktop_;
  QtClock clock_;
  model::WindowService windows_;
  linux_host::LinuxIdentity identity_;
  linux_host::LinuxApp app_;
  files::SystemFiles files_;
};

}  // namespace tessel::workbench
