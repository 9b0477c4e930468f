// The open databases, keyed by name exactly as given.
#pragma once

#include <memory>

#include "connections/cConnectionMDB.h"
#include "vb/Collection.h"

namespace tessel {

/// In the order of adding. A missing key fails with 5, a double one with 457.
class cConnectionMDBs : public vb::Collection<cConnectionMDB> {
 public:
  cConnectionMDBs() : Collection(u"connection") {}
};

/// The open connections, between connection and disconnection of the add-in.
extern std::shared_ptr<cConnectionMDBs> gConnectionMDBs;

/// Names of the two standard connections.
inline constexpr StringView MainConnection = u"Marlow";
inline constexpr StringView SharedConnection = u"PersonalMarlow";

}  // namespace tessel
