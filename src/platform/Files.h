// Files that are replaced as a whole.
#pragma once

#include <filesystem>
#include <string_view>

namespace tessel::platform {

/// Writes and moves files so that another program, a full disk or the end of this process never
/// leaves half of one. Each operation fails with a vb::Failure that names the file and the system's
/// reason, and leaves what was there as it was.
class Files {
 public:
  virtual ~Files() = default;
  /// Gives a file these bytes; it is made when there is none, and keeps its permissions.
  virtual void Write(const std::filesystem::path& file, std::string_view bytes) = 0;
  /// As `Write` for a file that isn't there; false, changing nothing, when there is one.
  virtual bool Create(const std::filesystem::path& file, std::string_view bytes) = 0;
  /// Moves a file, to another file system too. Fails when something has the new name.
  virtual void Move(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
};

}  // namespace tessel::platform
