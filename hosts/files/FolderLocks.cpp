#include "hosts/files/FolderLocks.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <map>
#include <thread>
#include <utility>

#include "vb/ByteText.h"
#include "vb/Failure.h"

namespace tessel::files {
namespace {

namespace fs = std::filesystem;

/// False when somebody else has had the lock for too long.
bool Lock(int handle) {
  using namespace std::chrono_literals;
  const auto end = std::chrono::steady_clock::now() + 10s;
  while (flock(handle, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK) return true;  // no locks on this file system
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(10ms);
  }
  return true;
}

}  // namespace

FolderLocks::FolderLocks(const std::set<fs::path>& folders) {
  // All processes lock in the order of the numbers, so that no two wait for each other.
  std::map<std::pair<dev_t, ino_t>, std::pair<int, fs::path>> open;
  for (const fs::path& folder : folders) {
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) continue;
    struct stat what {};
    const bool fresh =
        fstat(handle, &what) == 0 &&
        open.try_emplace({what.st_dev, what.st_ino}, std::pair(handle, folder)).second;
    if (!fresh) close(handle);
  }
  for (const auto& [number, one] : open) handles_.push_back(one.first);
  for (const auto& [number, one] : open) {
    if (Lock(one.first)) continue;
    Release();
    throw vb::Failure(
        vb::PathFileAccess,
        vb::FromBytes(one.second.string() + ": another program is saving in the folder"),
        u"Tessel.files");
  }
}

FolderLocks::~FolderLocks() { Release(); }

void FolderLocks::Release() {
  for (const int handle : std::exchange(handles_, {})) close(handle);
}

}  // namespace tessel::files
