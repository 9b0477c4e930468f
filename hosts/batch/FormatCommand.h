// tessel format: the Code Formatter for build servers.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace tessel::batch {

/// What the command line says.
struct FormatRequest {
  std::vector<std::string> Files;       ///< .vbp, .vbg, component files, or "-"
  bool Check = false;                   ///< only tell what would change
  bool Diff = false;                    ///< print the change instead of writing it
  bool Force = false;                   ///< write also what changes more than layout
  bool PrintConfig = false;             ///< print the options in force and stop
  int Jobs = 1;                         ///< components formatted side by side
  int CodePage = 0;                     ///< 0: guessed
  std::vector<std::string> Components;  ///< empty: all
  std::filesystem::path Config;         ///< empty: ".tessel" found upward
  std::filesystem::path
      Data;  ///< the program's directory whose format rules count; empty: the delivered ones
  std::vector<std::pair<std::string, std::string>> Overrides;  ///< options by name
};

/// Exit codes of the command.
enum FormatExit : int { FormatDone = 0, FormatWouldChange = 1, FormatFailed = 2 };

/// Runs the command. Each component that fails is named on `err` with its cause and left as it was;
/// the others go on. Never throws for bad input.
int RunFormat(const FormatRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace tessel::batch
