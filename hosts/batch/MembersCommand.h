// tessel members: the members of components.
#pragma once

#include "hosts/batch/Command.h"
#include "hosts/batch/Selection.h"

namespace tessel::batch {

/// Lists the members of every component, as text or as one JSON document. A file that fails is
/// told; the others are listed all the same.
class MembersCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  Selection Request;
  bool Json = false;
};

}  // namespace tessel::batch
