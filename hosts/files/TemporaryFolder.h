// A folder that no other process uses.
#pragma once

#include <filesystem>

namespace tessel::files {

/// Made below the system's folder for temporary files when it is first asked for; gone with the
/// object.
class TemporaryFolder {
 public:
  TemporaryFolder() = default;
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  /// Empty when none can be made.
  [[nodiscard]] const std::filesystem::path& Path();

 private:
  std::filesystem::path path_;
};

}  // namespace tessel::files
