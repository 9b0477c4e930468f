// The databases that come with the program.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

#include "platform/Files.h"
#include "store/Connection.h"

namespace tessel::store {

/// Writes "VBCode.MDB" and "Personal.MDB" into the folder (created when needed), each complete or
/// not at all; a file that exists is never touched. Fails with a vb::Failure that names the file.
void WriteStandardDatabases(const std::filesystem::path& folder, platform::Files& files);

/// The delivered shared database ("Personal.MDB"), in memory.
[[nodiscard]] std::shared_ptr<Connection> OpenDeliveredPersonal();

/// An empty snippet database, in memory.
[[nodiscard]] std::shared_ptr<Connection> OpenEmptySnippets();

/// The bytes of an empty snippet database (the built-in resource ETALONVBCODE, number 101).
[[nodiscard]] std::span<const std::byte> EmptySnippetDatabase();

}  // namespace tessel::store
