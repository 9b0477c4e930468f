#include "watchers/cVbaWindows.h"

namespace tessel {

std::shared_ptr<cVbaWindows> gVbaWindows;

}  // namespace tessel
