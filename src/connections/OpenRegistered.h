// Registered databases on their way to open connections.
#pragma once

#include "connections/cConnectReestr.h"
#include "connections/cConnectionMDBs.h"

namespace tessel {

/// Opens a registered database as an entry of `gConnectionMDBs`. What can't be opened, or isn't a
/// snippet database, leaves that collection and the registered list for good; the user has been
/// told why then. Fails with 457 when a connection has that name.
bool OpenRegistered(const RegisteredConnection& row);

/// The open connection to a file, however its path is spelt; nothing when there is none.
[[nodiscard]] std::shared_ptr<cConnectionMDB> ConnectionToFile(StringView fileName);

}  // namespace tessel
