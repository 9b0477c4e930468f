// What every command of `tessel` is.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tessel::batch {

/// Exit codes of all commands.
enum ExitCode : int {
  Done = 0,         ///< nothing to do, or all done
  WouldChange = 1,  ///< `--check` or `names` found something
  Failed = 2        ///< an error, or a component that was left alone
};

/// Where a command reads and writes.
struct Streams {
  std::istream& In;
  std::ostream& Out;
  std::ostream& Err;
};

/// One command. What the command line says is the command's data.
class Command {
 public:
  Command() = default;
  virtual ~Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;

  /// Adds the command and its options to the program, and answers it. The options fill this object,
  /// which must outlive the program's parsing.
  virtual CLI::App* Declare(CLI::App& program) = 0;
  /// Runs with what the command line said. Bad input is told on `Err` and in the exit code.
  virtual int Run(const Streams& streams) = 0;
};

/// All commands, in the order in which the help names them.
[[nodiscard]] std::vector<std::unique_ptr<Command>> AllCommands();

/// The whole program: reads the command line (without the program's name), runs the command and
/// answers the exit code. Output that can't be written is an error.
int RunProgram(const std::vector<std::string>& words, const Streams& streams);

}  // namespace tessel::batch
