// The platform of the batch command: nobody is there to be asked.
#pragma once

#include "hosts/memory/UnattendedPlatform.h"

namespace tessel::batch {

/// Services without a user, a screen or settings. The editor's tab width is told through the
/// registry, where the formatter looks for it.
class BatchPlatform : public memory::UnattendedPlatform {
 public:
  explicit BatchPlatform(int tabWidth);
};

}  // namespace tessel::batch
