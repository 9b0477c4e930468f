// Saves a project of many files in a process that is killed at any moment, again and again. Behind
// the next start either every file is as before or every file is new.
//
//   kill-loop [KILLS [FILES]]      2000 kills of a save of 400 files, when nothing is said
//
// Exit code 0: so it was each time, 1: files of two states were found.

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <thread>

#include "hosts/memory/UnattendedPlatform.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::tools {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

class Loop {
 public:
  explicit Loop(int files)
      : folder_(fs::temp_directory_path() / ("kill-loop-" + std::to_string(getpid()))) {
    fs::create_directories(folder_);
    std::ofstream project(folder_ / "P.vbp", std::ios::binary);
    project << "Type=Exe\r\n";
    for (int number = 0; number < files; ++number) {
      const std::string name = "M" + std::to_string(number);
      project << "Module=" << name << "; " << name << ".bas\r\n";
      std::ofstream(folder_ / (name + ".bas"), std::ios::binary)
          << "Attribute VB_Name = \"" << name << "\"\r\n' 0\r\n"
          << std::string(2000, '\'') << "\r\n";
    }
  }
  ~Loop() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;

  int Run(int kills) {
    Measure();
    int old = 0, fresh = 0;
    for (int kill = 1; kill <= kills; ++kill) {
      const String before = State();
      const String wanted = u"' " + vb::Str(kill);
      KillASave(wanted);
      const String now = State();
      if (now == before) {
        ++old;
      } else if (now == wanted) {
        ++fresh;
      } else {
        std::cout << "kill " << kill << ": files of two states\n";
        return 1;
      }
    }
    std::cout << kills << " kills: all old " << old << " times, all new " << fresh << " times, "
              << Litter() << " stray files\n";
    return 0;
  }

 private:
  using Modules = std::vector<std::shared_ptr<model::VBComponent>>;
  static const Modules& ModulesOf(const workspace::Workspace& workspace) {
    return std::dynamic_pointer_cast<model::Vbe>(workspace.VBE())->Active()->Components().All();
  }

  void Save(const String& line) {
    workspace::Workspace workspace(services_);
    workspace.Open(folder_ / "P.vbp");
    for (const auto& component : ModulesOf(workspace)) component->Module()->Edit(1, 1, line);
    start_ = Clock::now();
    workspace.Save();
  }

  /// How long a save takes.
  void Measure() {
    Save(u"' 0.");
    length_ = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start_).count();
  }

  /// The process is ready to write when it says so, and dies a random time later.
  void KillASave(const String& line) {
    int ready[2];
    if (pipe(ready) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
      workspace::Workspace workspace(services_);
      workspace.Open(folder_ / "P.vbp");
      for (const auto& component : ModulesOf(workspace)) component->Module()->Edit(1, 1, line);
      if (write(ready[1], "x", 1) != 1) _exit(1);
      workspace.Save();
      _exit(0);
    }
    char said = 0;
    if (read(ready[0], &said, 1) != 1) said = 0;
    std::this_thread::sleep_for(std::chrono::microseconds(
        std::uniform_int_distribution<long>(0, length_ + length_ / 10)(random_)));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    close(ready[0]);
    close(ready[1]);
  }

  /// What every file says behind the next start, or nothing when they differ.
  String State() {
    workspace::Workspace workspace(services_);
    workspace.Open(folder_ / "P.vbp");
    String state;
    for (const auto& component : ModulesOf(workspace)) {
      const String line = component->Module()->Lines(1, 1);
      if (!state.empty() && state != line) return {};
      state = line;
    }
    return state;
  }

  [[nodiscard]] int Litter() {
    Save(u"' last");
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      count += entry.path().filename().string().starts_with(".tessel") ? 1 : 0;
    }
    return count;
  }

  fs::path folder_;
  memory::UnattendedPlatform services_;
  platform::ScopedPlatform scope_{services_};
  std::mt19937 random_{std::random_device{}()};
  Clock::time_point start_;
  long length_ = 0;
};

}  // namespace
}  // namespace tessel::tools

int main(int count, char** arguments) {
  try {
    const int kills = count > 1 ? std::stoi(arguments[1]) : 2000;
    return tessel::tools::Loop(count > 2 ? std::stoi(arguments[2]) : 400).Run(kills);
  } catch (const std::exception& failure) {
    std::cerr << "kill-loop: " << failure.what() << '\n';
    return 2;
  }
}
