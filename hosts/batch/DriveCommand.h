// tessel drive: the add-in without a screen, one JSON request a line.
#pragma once

#include <string>

#include "hosts/batch/Command.h"

namespace tessel::batch {

class DriveCommand : public Command {
 public:
  DriveCommand();
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  std::string Data, Registry;     ///< the program's directory and the settings file
  std::string Clock = "virtual";  ///< or "real"
};

}  // namespace tessel::batch
