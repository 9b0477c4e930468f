#include "connections/cConnectionMDBs.h"

namespace tessel {

std::shared_ptr<cConnectionMDBs> gConnectionMDBs;

}  // namespace tessel
