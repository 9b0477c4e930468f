// tessel names: the controls whose names lack the prefix of their class.
#pragma once

#include <filesystem>

#include "hosts/batch/ComponentList.h"

namespace tessel::batch {

/// The exit code is 1 when there are any.
class NamesCommand : public ListingCommand {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  std::filesystem::path Data;  ///< the program's directory; empty: the user's
};

}  // namespace tessel::batch
