#include "hosts/batch/ChildProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "vb/CodePages.h"
#include "vb/Failure.h"

extern char** environ;

namespace tessel::batch {
namespace {

[[noreturn]] void Fail(const std::string& program, int error) {
  const auto number = error == ENOENT ? vb::FileNotFound : vb::InvalidCall;
  throw vb::Failure(number, vb::FromUtf8(program + ": " + std::strerror(error)), u"Tessel");
}

/// Closes its ends when it goes; neither end is inherited by itself.
class Pipe {
 public:
  explicit Pipe(const std::string& program) {
    if (pipe2(ends_.data(), O_CLOEXEC) != 0) Fail(program, errno);
  }
  ~Pipe() {
    for (int& end : ends_) CloseEnd(end);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  [[nodiscard]] int Read() const { return ends_[0]; }
  [[nodiscard]] int Write() const { return ends_[1]; }
  void CloseWrite() { CloseEnd(ends_[1]); }

 private:
  static void CloseEnd(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }
  std::array<int, 2> ends_{-1, -1};
};

std::vector<std::string> Environment(const std::vector<std::string>& settings) {
  std::vector<std::string> all = settings;
  for (char** one = environ; *one != nullptr; ++one) {
    const std::string_view given = *one;
    const auto replaced = std::any_of(settings.begin(), settings.end(), [&](const auto& setting) {
      return given.starts_with(std::string_view(setting).substr(0, setting.find('=') + 1));
    });
    if (!replaced) all.emplace_back(given);
  }
  return all;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

pid_t Spawn(const std::string& program, const std::vector<std::string>& arguments,
            const std::vector<std::string>& settings, const Pipe& out, const Pipe& err) {
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  auto environment = Environment(settings);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, out.Write(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err.Write(), STDERR_FILENO);
  pid_t child = 0;
  const int error = posix_spawnp(&child, program.c_str(), &actions, nullptr, Pointers(words).data(),
                                 Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) Fail(program, error);
  return child;
}

/// Takes what there is; false at the end.
bool Take(int from, std::string& into) {
  std::array<char, 65536> buffer{};
  ssize_t count = 0;
  do {
    count = read(from, buffer.data(), buffer.size());
  } while (count < 0 && errno == EINTR);
  if (count <= 0) return false;
  into.append(buffer.data(), static_cast<std::size_t>(count));
  return true;
}

/// Reads both to their ends, so that neither fills up while the other is waited for.
void TakeAll(int out, std::string& outText, int err, std::string& errText) {
  std::array<pollfd, 2> waiting{{{out, POLLIN, 0}, {err, POLLIN, 0}}};
  while (waiting[0].fd >= 0 || waiting[1].fd >= 0) {
    if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR) return;
    for (std::size_t at = 0; at < waiting.size(); ++at) {
      if (waiting[at].fd < 0 || waiting[at].revents == 0) continue;
      if (!Take(waiting[at].fd, at == 0 ? outText : errText)) waiting[at].fd = -1;
    }
  }
}

}  // namespace

ChildResult RunChild(const std::string& program, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& settings) {
  Pipe out(program), err(program);
  const pid_t child = Spawn(program, arguments, settings, out, err);
  out.CloseWrite();
  err.CloseWrite();
  ChildResult result;
  TakeAll(out.Read(), result.Out, err.Read(), result.Err);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  result.Exit = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  return result;
}

}  // namespace tessel::batch
