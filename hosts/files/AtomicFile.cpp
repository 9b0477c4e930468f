#include "hosts/files/AtomicFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <random>
#include <utility>

#include "vb/ByteText.h"
#include "vb/Failure.h"

namespace tessel::files {

std::function<void(std::string_view, const std::filesystem::path&)> OnWriteStep;

namespace {

namespace fs = std::filesystem;

constexpr std::string_view OwnBeginning = ".tessel-";
constexpr std::size_t OwnDigits = 8;
constexpr std::string_view HexDigits = "0123456789abcdef";
constexpr std::string_view TemporaryEnding = ".tmp";

[[noreturn]] void Fail(const fs::path& path, const char* what, const char* why) {
  throw vb::Failure(vb::PathFileAccess, vb::FromBytes(path.string() + ": " + what + ": " + why),
                    u"Tessel.files");
}

[[noreturn]] void Fail(const fs::path& path, const char* what, int error) {
  Fail(path, what, std::strerror(error));
}

void Step(std::string_view step, const fs::path& file) {
  if (OnWriteStep) OnWriteStep(step, file);
}

/// Owns a file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int handle) : handle_(handle) {}
  ~Descriptor() {
    if (handle_ >= 0) close(handle_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  [[nodiscard]] int Get() const { return handle_; }

 private:
  int handle_;
};

fs::path FolderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

/// The file that a name stands for: what a link leads to, whether that exists or not.
fs::path TargetOf(const fs::path& file) {
  std::error_code error;
  fs::path target = file;
  for (int links = 0; fs::is_symlink(target, error); ++links) {
    if (links == 40) Fail(file, "cannot be written", ELOOP);
    const fs::path next = fs::read_symlink(target, error);
    if (error) Fail(file, "cannot be written", error.value());
    target = next.is_absolute() ? next : FolderOf(target) / next;
  }
  return target;
}

void WriteAndFlush(int handle, std::string_view bytes, const fs::path& target) {
  while (!bytes.empty()) {
    const ssize_t written = write(handle, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) Fail(target, "cannot be written", errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  Step("flush", target);
  if (fsync(handle) != 0) Fail(target, "cannot be written", errno);
}

/// Whoever may give files away leaves each to the one whose it was; others keep its group where
/// they can.
void KeepOwner(int handle, const struct stat& before) {
  if (fchown(handle, before.st_uid, before.st_gid) == 0) return;
  constexpr auto Same = static_cast<uid_t>(-1);
  [[maybe_unused]] const int kept = fchown(handle, Same, before.st_gid);
}

/// A temporary file beside its target, held until it is renamed or removed.
class Replacement {
 public:
  explicit Replacement(const fs::path& target) : target_(target), file_(Open()) {}
  ~Replacement() {
    if (!beside_.empty()) unlink(beside_.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void Fill(std::string_view bytes) const {
    struct stat before {};
    const bool exists = stat(target_.c_str(), &before) == 0;
    // First, since a new owner takes bits of the mode away.
    if (exists) KeepOwner(file_.Get(), before);
    if (fchmod(file_.Get(), exists ? before.st_mode & 07777 : 0644) != 0) {
      Fail(target_, "cannot be written", errno);
    }
    WriteAndFlush(file_.Get(), bytes, target_);
  }

  void Commit() {
    Step("rename", target_);
    if (std::rename(beside_.c_str(), target_.c_str()) != 0) {
      Fail(target_, "cannot be replaced", errno);
    }
    beside_.clear();
  }

  /// False when the name was given away meanwhile.
  bool CommitNew() {
    Step("rename", target_);
    if (link(beside_.c_str(), target_.c_str()) == 0) return true;
    if (errno == EEXIST) return false;
    // A file system without links.
    std::error_code error;
    if (fs::exists(target_, error)) return false;
    Commit();
    return true;
  }

 private:
  [[nodiscard]] int Open() {
    Step("write", target_);
    for (;;) {
      beside_ = OwnNameIn(FolderOf(target_), TemporaryEnding);
      const int handle = open(beside_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
      if (handle < 0) Fail(target_, "cannot be written", errno);
      if (Keeps(handle)) return handle;
      close(handle);
    }
  }

  /// False when a process that sweeps strays away came between the making of the file and its hold.
  [[nodiscard]] bool Keeps(int handle) const {
    if (flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
    struct stat about {};
    return lstat(beside_.c_str(), &about) == 0 || errno != ENOENT;
  }

  fs::path target_, beside_;
  Descriptor file_;
};

void WriteInPlace(const fs::path& target, std::string_view bytes) {
  Step("in place", target);
  const Descriptor file(open(target.c_str(), O_WRONLY | O_CLOEXEC));
  if (file.Get() < 0) Fail(target, "cannot be written", errno);
  // By way of an empty file: a writing that ends in the middle leaves new bytes and zeros, and can
  // be told from what somebody wrote since.
  if (ftruncate(file.Get(), 0) != 0 ||
      ftruncate(file.Get(), static_cast<off_t>(bytes.size())) != 0) {
    Fail(target, "cannot be written", errno);
  }
  WriteAndFlush(file.Get(), bytes, target);
}

}  // namespace

fs::path OwnNameIn(const fs::path& folder, std::string_view ending) {
  static std::mt19937 random{std::random_device{}()};
  for (;;) {
    std::string name(OwnBeginning);
    // A process that was split from another one has its numbers.
    const auto seed = random() ^ static_cast<std::mt19937::result_type>(getpid());
    for (std::size_t digit = 0; digit < OwnDigits; ++digit)
      name += HexDigits[seed >> (4 * digit) & 15];
    fs::path path = folder / (name + std::string(ending));
    std::error_code error;
    if (!fs::exists(fs::symlink_status(path, error))) return path;
  }
}

bool IsOwnName(const fs::path& file, std::string_view ending) {
  const std::string name = file.filename().string();
  return name.size() == OwnBeginning.size() + OwnDigits + ending.size() &&
         name.starts_with(OwnBeginning) && name.ends_with(ending) &&
         name.find_first_not_of(HexDigits, OwnBeginning.size()) == OwnBeginning.size() + OwnDigits;
}

Hold::Hold(const fs::path& file) : handle_(open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (handle_ < 0 || flock(handle_, LOCK_EX | LOCK_NB) == 0) return;
  close(handle_);
  handle_ = -1;
}

Hold::~Hold() {
  if (handle_ >= 0) close(handle_);
}

bool IsWrittenInPlace(const fs::path& file) {
  struct stat about {};
  return stat(file.c_str(), &about) == 0 && S_ISREG(about.st_mode) && about.st_nlink > 1;
}

void CheckWritable(const fs::path& file) {
  if (!file.has_filename()) Fail(file, "cannot be written", "the name ends in a separator");
  struct stat about {};
  const fs::path target = TargetOf(file);
  if (stat(target.c_str(), &about) != 0) return;
  if (S_ISDIR(about.st_mode)) Fail(file, "cannot be written", EISDIR);
  // Whoever may write everything does not mean a file that was marked.
  if ((about.st_mode & 0222) == 0) Fail(file, "cannot be written", "the file is read-only");
  if (access(target.c_str(), W_OK) != 0) Fail(file, "cannot be written", errno);
}

void FlushFolder(const fs::path& folder) {
  const Descriptor handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (handle.Get() >= 0) fsync(handle.Get());
}

fs::path FolderOfTarget(const fs::path& file) { return FolderOf(TargetOf(file)); }

void RemoveStrays(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!IsOwnName(entry->path(), TemporaryEnding)) continue;
    const Hold hold(entry->path());
    if (hold.Taken()) unlink(entry->path().c_str());
  }
}

void WriteFile(const fs::path& file, std::string_view bytes) {
  CheckWritable(file);
  const fs::path target = TargetOf(file);
  Replacement replacement(target);
  replacement.Fill(bytes);
  // Only when there is room for the whole of it.
  if (IsWrittenInPlace(target)) {
    WriteInPlace(target, bytes);
  } else {
    replacement.Commit();
  }
}

bool CreateFile(const fs::path& file, std::string_view bytes) {
  if (!file.has_filename()) Fail(file, "cannot be written", "the name ends in a separator");
  std::error_code error;
  if (fs::exists(fs::symlink_status(file, error))) return false;
  Replacement replacement(file);
  replacement.Fill(bytes);
  return replacement.CommitNew();
}

void MoveFile(const fs::path& from, const fs::path& to) {
  if (!to.has_filename()) Fail(to, "cannot be written", "the name ends in a separator");
  std::error_code error;
  if (fs::exists(fs::symlink_status(to, error))) Fail(to, "cannot be written", EEXIST);
  if (std::rename(from.c_str(), to.c_str()) == 0) return;
  if (errno != EXDEV) Fail(from, "cannot be moved", errno);
  struct stat about {};
  if (stat(from.c_str(), &about) != 0) Fail(from, "cannot be moved", errno);
  if (!CreateFile(to, ReadFile(from))) Fail(to, "cannot be written", EEXIST);
  chmod(to.c_str(), about.st_mode & 07777);
  if (unlink(from.c_str()) == 0) return;
  const int reason = errno;
  unlink(to.c_str());
  Fail(from, "cannot be moved", reason);
}

void RemoveFile(const fs::path& file) {
  if (unlink(file.c_str()) != 0 && errno != ENOENT) Fail(file, "cannot be removed", errno);
}

std::string ReadFile(const fs::path& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat about {};
  if (file.Get() < 0 || fstat(file.Get(), &about) != 0) Fail(path, "cannot be read", errno);
  if (S_ISDIR(about.st_mode)) Fail(path, "cannot be read", EISDIR);
  // A device may never end.
  if (S_ISCHR(about.st_mode) || S_ISBLK(about.st_mode)) Fail(path, "cannot be read", EINVAL);
  std::string bytes(static_cast<std::size_t>(about.st_size), '\0');
  std::size_t filled = 0;
  for (;;) {
    if (filled == bytes.size()) bytes.resize(bytes.size() + 1);
    const ssize_t got = read(file.Get(), bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) Fail(path, "cannot be read", errno);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

std::optional<std::string> PresentBytes(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) return std::nullopt;
  return ReadFile(file);
}

}  // namespace tessel::files
