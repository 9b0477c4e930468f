// tessel format: the Code Formatter for build servers.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "hosts/batch/Command.h"
#include "hosts/batch/Selection.h"

namespace tessel::batch {

/// What the command line says.
struct FormatRequest : Selection, Delivery {
  bool PrintConfig = false;      ///< print the options in force and stop
  int Jobs = 0;                  ///< components formatted side by side; 0: as many as cores
  std::string StdinName;         ///< name of what comes from standard input
  std::filesystem::path Config;  ///< empty: ".tessel" found upward
  std::filesystem::path Data;    ///< whose format rules count; empty: the delivered ones
  std::vector<std::pair<std::string, std::string>> Overrides;  ///< options by name
};

/// Each component that fails is named with its cause and left as it was; the others go on.
class FormatCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  FormatRequest Request;
};

}  // namespace tessel::batch
