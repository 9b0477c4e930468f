// tessel names: the controls whose names lack the prefix of their class.
#pragma once

#include <filesystem>

#include "hosts/batch/Command.h"
#include "hosts/batch/Selection.h"

namespace tessel::batch {

/// Lists them, as text or as one JSON document; the exit code is 1 when there are any. A file that
/// fails is told; the others are looked through all the same.
class NamesCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  Selection Request;
  bool Json = false;
  std::filesystem::path Data;  ///< the program's directory; empty: the user's
};

}  // namespace tessel::batch
