// The whole program as a user calls it, in a folder of its own.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "hosts/batch/Command.h"
#include "support/TemporaryFolder.h"

namespace tessel::test {

/// Makes the folder the current one as long as it lives.
class Tessel {
 public:
  Tessel() : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(Folder.Path());
  }
  ~Tessel() { std::filesystem::current_path(before_); }
  Tessel(const Tessel&) = delete;
  Tessel& operator=(const Tessel&) = delete;

  /// Runs the program and keeps what it wrote.
  int Run(const std::vector<std::string>& words, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int exit = batch::RunProgram(words, {in, out, err});
    Out = out.str();
    Err = err.str();
    return exit;
  }

  TemporaryFolder Folder;
  std::string Out, Err;

 private:
  std::filesystem::path before_;
};

}  // namespace tessel::test
