#include "hosts/batch/ChildProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "vb/CodePages.h"
#include "vb/Failure.h"

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
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

void Limit(decltype(RLIMIT_AS) what, std::uint64_t most) {
  if (most == 0) return;
  const rlimit limit{most, most};
  setrlimit(what, &limit);
}

/// What the child runs up to the other program; only what may be called between fork and exec.
/// Comes back with what failed.
int Become(pid_t parent, const std::vector<char*>& words, const std::vector<char*>& environment,
           const std::array<int, 3>& streams, const ChildLimits& limits) {
  if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) return errno;
  // The parent may have gone before the child asked to go with it.
  if (getppid() != parent) return ECHILD;
  for (int at = 0; at < static_cast<int>(streams.size()); ++at) {
    if (dup2(streams[static_cast<std::size_t>(at)], at) < 0) return errno;
  }
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
  Limit(RLIMIT_CPU, limits.Seconds);
  Limit(RLIMIT_AS, limits.Memory);
  execvpe(words.front(), words.data(), environment.data());
  return errno;
}

pid_t Spawn(const std::string& program, const std::vector<std::string>& arguments,
            const std::vector<std::string>& settings, const Pipe& out, const Pipe& err,
            const ChildLimits& limits) {
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  auto environment = Environment(settings);
  const auto wordPointers = Pointers(words), environmentPointers = Pointers(environment);
  const int empty = open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (empty < 0) Fail(program, errno);
  Pipe failure(program);
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child == 0) {
    const int error = Become(parent, wordPointers, environmentPointers,
                             {empty, out.Write(), err.Write()}, limits);
    static_cast<void>(!write(failure.Write(), &error, sizeof error));
    _exit(127);
  }
  int error = child < 0 ? errno : 0;
  close(empty);
  failure.CloseWrite();
  // The pipe ends without a word when the other program runs.
  ssize_t told = 0;
  do {
    told = child < 0 ? 0 : read(failure.Read(), &error, sizeof error);
  } while (told < 0 && errno == EINTR);
  if (error == 0) return child;
  if (child > 0) waitpid(child, nullptr, 0);
  Fail(program, error);
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

/// Reads both to their ends, so that neither fills up while the other is waited for. False as soon
/// as one is longer than `most`.
bool TakeAll(int out, std::string& outText, int err, std::string& errText, std::uint64_t most) {
  std::array<pollfd, 2> waiting{{{out, POLLIN, 0}, {err, POLLIN, 0}}};
  while (waiting[0].fd >= 0 || waiting[1].fd >= 0) {
    if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR) return true;
    for (std::size_t at = 0; at < waiting.size(); ++at) {
      if (waiting[at].fd < 0 || waiting[at].revents == 0) continue;
      std::string& text = at == 0 ? outText : errText;
      if (!Take(waiting[at].fd, text)) waiting[at].fd = -1;
      if (most != 0 && text.size() > most) return false;
    }
  }
  return true;
}

}  // namespace

ChildResult RunChild(const std::string& program, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& settings, const ChildLimits& limits) {
  Pipe out(program), err(program);
  const pid_t child = Spawn(program, arguments, settings, out, err, limits);
  out.CloseWrite();
  err.CloseWrite();
  ChildResult result;
  result.WroteTooMuch = !TakeAll(out.Read(), result.Out, err.Read(), result.Err, limits.Output);
  if (result.WroteTooMuch) kill(child, SIGKILL);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  result.Exit = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  return result;
}

}  // namespace tessel::batch
