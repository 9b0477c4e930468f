#include "hosts/workspace/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "vb/Failure.h"

namespace tessel::workspace {

std::function<void(std::string_view, const std::filesystem::path&)> OnWriteStep;

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, const char* what, int error) {
  throw vb::Failure(vb::PathFileAccess,
                    vb::FromUtf8(path.string() + ": " + what + ": " + std::strerror(error)),
                    u"Tessel.workspace");
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
  int Close() {
    const int handle = handle_;
    handle_ = -1;
    return close(handle);
  }

 private:
  int handle_;
};

/// A temporary file beside its target; taken away unless it was renamed.
class Replacement {
 public:
  explicit Replacement(const FileContent& content)
      : target_(fs::is_symlink(content.Path) ? fs::canonical(content.Path) : content.Path) {
    std::string name = target_.string() + ".XXXXXX";
    Step("write", target_);
    Descriptor file(mkstemp(name.data()));
    if (file.Get() < 0) Fail(target_, "cannot be written", errno);
    beside_ = name;
    try {
      Fill(file, content.Bytes);
    } catch (...) {
      Discard();
      throw;
    }
  }
  ~Replacement() { Discard(); }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  Replacement(Replacement&& other) noexcept
      : target_(std::move(other.target_)), beside_(std::exchange(other.beside_, {})) {}
  Replacement& operator=(Replacement&&) = delete;

  void Commit() {
    Step("rename", target_);
    if (std::rename(beside_.c_str(), target_.c_str()) != 0) {
      Fail(target_, "cannot be replaced", errno);
    }
    beside_.clear();
  }

 private:
  void Fill(Descriptor& file, std::string_view bytes) const {
    struct stat before {};
    const bool exists = stat(target_.c_str(), &before) == 0;
    if (exists && access(target_.c_str(), W_OK) != 0) Fail(target_, "cannot be written", errno);
    if (fchmod(file.Get(), exists ? before.st_mode & 07777 : 0644) != 0) {
      Fail(target_, "cannot be written", errno);
    }
    while (!bytes.empty()) {
      const ssize_t written = write(file.Get(), bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) Fail(target_, "cannot be written", errno);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    Step("flush", target_);
    if (fsync(file.Get()) != 0) Fail(target_, "cannot be written", errno);
    if (file.Close() != 0) Fail(target_, "cannot be written", errno);
  }

  void Discard() const {
    if (!beside_.empty()) unlink(beside_.c_str());
  }

  fs::path target_;
  std::string beside_;
};

}  // namespace

void WriteFiles(const std::vector<FileContent>& files) {
  std::vector<Replacement> replacements;
  replacements.reserve(files.size());
  for (const FileContent& file : files) replacements.emplace_back(file);
  for (Replacement& replacement : replacements) replacement.Commit();
}

std::string ReadFile(const fs::path& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat about {};
  if (file.Get() < 0 || fstat(file.Get(), &about) != 0) Fail(path, "cannot be read", errno);
  if (S_ISDIR(about.st_mode)) Fail(path, "cannot be read", EISDIR);
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

}  // namespace tessel::workspace
