// Files that are replaced as a whole or not at all.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::workspace {

/// A file and the bytes that it is to have.
struct FileContent {
  std::filesystem::path Path;
  std::string Bytes;
};

/// Writes each file to a temporary one beside it, flushes it to the disk, and then renames all of
/// them. Fails with a vb::Failure that names the file and the system's reason; the files that were
/// not yet renamed are as they were then, and no temporary file is left. A file keeps its
/// permissions.
void WriteFiles(const std::vector<FileContent>& files);

/// The bytes of a file. Fails with a vb::Failure that names the file and the system's reason.
[[nodiscard]] std::string ReadFile(const std::filesystem::path& path);

/// Called ahead of each step of `WriteFiles` ("write", "flush", "rename") with the file. For tests
/// of what a fault leaves behind; what it throws is the step's fault.
extern std::function<void(std::string_view step, const std::filesystem::path& file)> OnWriteStep;

}  // namespace tessel::workspace
