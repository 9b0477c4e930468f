// The command line: it is read here and handed on.

#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

#include "hosts/batch/Command.h"
#include "hosts/batch/DriveCommand.h"
#include "hosts/batch/FormatCommand.h"
#include "hosts/batch/HandlersCommand.h"
#include "hosts/batch/MembersCommand.h"
#include "hosts/batch/NamesCommand.h"
#include "hosts/batch/NewCommand.h"
#include "hosts/batch/SchemesCommand.h"
#include "hosts/batch/SnippetsCommand.h"

namespace tessel::batch {
namespace {

constexpr const char* ExitCodes =
    "Exit codes: 0 nothing to do, or all done; 1 --check or names found something; 2 an error, or "
    "a component that was left alone";

/// The command over the builders' generators.
class MakeCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override {
    AddNew(program, request_);
    return program.get_subcommand("new");
  }
  int Run(const Streams& streams) override {
    return RunNew(request_, streams.In, streams.Out, streams.Err);
  }

 private:
  NewRequest request_;
};

/// Every command and those below it end their help with the exit codes.
void AddFooter(CLI::App& command) {
  command.footer(ExitCodes);
  for (CLI::App* const below : command.get_subcommands({})) AddFooter(*below);
}

/// Reads the command line; an exit code when that is the end of it: help, version, an error.
std::optional<int> Parse(CLI::App& program, const std::vector<std::string>& words,
                         const Streams& streams) {
  try {
    // The parser takes the words from the end.
    program.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    return program.exit(error, streams.Out, streams.Err) == 0 ? Done : Failed;
  }
}

int RunChosen(const std::vector<std::unique_ptr<Command>>& commands,
              const std::vector<CLI::App*>& declared, const Streams& streams) {
  for (std::size_t at = 0; at < commands.size(); ++at) {
    if (!declared[at]->parsed()) continue;
    try {
      return commands[at]->Run(streams);
    } catch (const std::exception& failure) {
      streams.Err << "tessel: " << failure.what() << '\n';
    }
  }
  return Failed;
}

}  // namespace

std::vector<std::unique_ptr<Command>> AllCommands() {
  std::vector<std::unique_ptr<Command>> all;
  all.push_back(std::make_unique<FormatCommand>());
  all.push_back(std::make_unique<MembersCommand>());
  all.push_back(std::make_unique<NamesCommand>());
  all.push_back(std::make_unique<HandlersCommand>());
  all.push_back(std::make_unique<SchemesCommand>());
  all.push_back(std::make_unique<SnippetsCommand>());
  all.push_back(std::make_unique<MakeCommand>());
  all.push_back(std::make_unique<DriveCommand>());
  return all;
}

int RunProgram(const std::vector<std::string>& words, const Streams& streams) {
  CLI::App program{"Tools for Visual Basic 6 code", "tessel"};
  program.set_version_flag("--version", "tessel 1.0.0");
  program.require_subcommand(1);
  const auto commands = AllCommands();
  std::vector<CLI::App*> declared;
  for (const auto& command : commands) {
    declared.push_back(command->Declare(program));
    AddFooter(*declared.back());
  }
  program.footer(ExitCodes);
  int exit = Done;
  if (const auto parsed = Parse(program, words, streams)) {
    exit = *parsed;
  } else {
    exit = RunChosen(commands, declared, streams);
  }
  if (!streams.Out.flush()) {
    streams.Err << "tessel: the output could not be written\n";
    exit = Failed;
  }
  return exit;
}

}  // namespace tessel::batch
