// A hold on folders while files in them are compared and replaced.
#pragma once

#include <filesystem>
#include <set>
#include <vector>

namespace tessel::files {

/// Keeps other processes that ask, too, out of some folders until its end or that of the process.
/// Folders that can't be locked, as on some file systems, count as locked.
class FolderLocks {
 public:
  /// Waits for the others, for ten seconds at most; fails then with a vb::Failure that names the
  /// folder. A folder that is named twice, or by a link, is locked once.
  explicit FolderLocks(const std::set<std::filesystem::path>& folders);
  ~FolderLocks();
  FolderLocks(const FolderLocks&) = delete;
  FolderLocks& operator=(const FolderLocks&) = delete;

 private:
  void Release();
  std::vector<int> handles_;
};

}  // namespace tessel::files
