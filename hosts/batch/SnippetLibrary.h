// The database that a snippets command works on.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "snippets/CSQLTree.h"

namespace tessel::batch {

/// Opens a library: a file, or the name under which the program knows one ("Marlow" and an empty
/// name are the main one of the directory `data`, which is made when there is none). Others are
/// looked for in the settings file. Fails with a vb::Failure that names the file or the names there
/// are, also for a database that is no library.
[[nodiscard]] std::shared_ptr<CSQLTree> OpenLibrary(const std::string& name,
                                                    const std::filesystem::path& data,
                                                    const std::filesystem::path& settings);

}  // namespace tessel::batch
