// Files that are replaced as a whole or not at all.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tessel::files {

/// Gives a file these bytes: they go to a temporary file beside it that is flushed to the disk and
/// renamed over it. The file is made when there is none and keeps its permissions and, where this
/// process may say so, its owner; a link to it stays a link, and one with several names keeps them.
/// Fails with a vb::Failure that names the file and the system's reason; the file is as it was
/// then, and no temporary file is left.
void WriteFile(const std::filesystem::path& file, std::string_view bytes);
/// As `WriteFile` for a file that isn't there; false, changing nothing, when there is one.
bool CreateFile(const std::filesystem::path& file, std::string_view bytes);
/// Moves a file, to another file system too; fails when something has the new name.
void MoveFile(const std::filesystem::path& from, const std::filesystem::path& to);
/// Removes a file; no failure when there is none.
void RemoveFile(const std::filesystem::path& file);

/// The bytes of a file. Fails with a vb::Failure that names the file and the system's reason.
[[nodiscard]] std::string ReadFile(const std::filesystem::path& file);

/// As `ReadFile`; nothing when there is no such file.
[[nodiscard]] std::optional<std::string> PresentBytes(const std::filesystem::path& file);

/// Whether the file has several names (hard links), so that a rename would part them. Such a file
/// is written in place, and the end of the process in the middle leaves it half.
[[nodiscard]] bool IsWrittenInPlace(const std::filesystem::path& file);
/// Fails as `WriteFile` would where that can be told without writing: a folder, a file that is
/// read-only, a name that ends in a separator.
void CheckWritable(const std::filesystem::path& file);
/// The folder in which a file is written: that of the file which a link leads to. Fails with a
/// vb::Failure for links that lead in a circle.
[[nodiscard]] std::filesystem::path FolderOfTarget(const std::filesystem::path& file);
/// Removes the temporary files in a folder that ended processes left there.
void RemoveStrays(const std::filesystem::path& folder);
/// Takes the renamings within a folder down to the disk.
void FlushFolder(const std::filesystem::path& folder);

/// A name beside others of this folder that nothing has: ".tessel-1f00c8d2" and the ending.
[[nodiscard]] std::filesystem::path OwnNameIn(const std::filesystem::path& folder,
                                              std::string_view ending);
/// Whether a file's name was given by `OwnNameIn` with that ending.
[[nodiscard]] bool IsOwnName(const std::filesystem::path& file, std::string_view ending);

/// A hold on a file of our own that ends with the process, so that others can tell whether somebody
/// still works on it.
class Hold {
 public:
  /// Takes hold of an existing file; `Taken` is false when another process has it or it is gone.
  explicit Hold(const std::filesystem::path& file);
  ~Hold();
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;
  [[nodiscard]] bool Taken() const { return handle_ >= 0; }

 private:
  int handle_ = -1;
};

/// Called ahead of each step ("write", "flush", "rename", "in place") with the file. For tests of
/// what a fault leaves behind; what it throws is the step's fault.
extern std::function<void(std::string_view step, const std::filesystem::path& file)> OnWriteStep;

}  // namespace tessel::files
