// tessel members: the members of components.
#pragma once

#include "hosts/batch/ComponentList.h"

namespace tessel::batch {

class MembersCommand : public ListingCommand {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;
};

}  // namespace tessel::batch
