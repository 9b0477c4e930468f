// Names of files as text, and files by the names that other systems gave them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "vb/Text.h"

namespace tessel::workspace {

/// A path as text and back. Bytes that are no UTF-8 become lone surrogates, so that every name
/// comes back.
[[nodiscard]] String TextOf(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path PathOf(StringView text);
/// Whether two paths are the same, in any case as the other system sees them.
[[nodiscard]] bool SamePath(const std::filesystem::path& one, const std::filesystem::path& other);

/// Whether the other system keeps a name without extension for a device: no file there can have it,
/// whatever its extension.
[[nodiscard]] bool IsDevice(StringView name);

/// Finds a file named as on the other system: "\" or "/" between folders, any case. The path as
/// written when there is none.
[[nodiscard]] std::filesystem::path ResolvePath(const std::filesystem::path& folder,
                                                const std::filesystem::path& written);
/// As above for a name in the bytes of a project file: as it stands, in the likely code page, in
/// any other one. The name in the likely one when no file has any of these names.
[[nodiscard]] std::filesystem::path ResolveNamed(const std::filesystem::path& folder,
                                                 const std::string& written, int likelyPage);
/// The code page in which the names beyond ASCII are names of files that exist, all of them; of
/// several the likely one. 0 when there are no such names or no page suits.
[[nodiscard]] int CodePageOfNames(const std::filesystem::path& folder,
                                  const std::vector<std::string>& names, int likelyPage);

/// How a project names a file: relative to its own folder, with the other system's separators.
[[nodiscard]] String WrittenPath(const std::filesystem::path& file,
                                 const std::filesystem::path& project);

}  // namespace tessel::workspace
