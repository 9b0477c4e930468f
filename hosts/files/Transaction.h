// Several files that change together.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessel::files {

/// A file, what it has now (nothing: it isn't there) and what it is to have.
struct Change {
  std::filesystem::path File;
  std::optional<std::string> Before;
  std::string Bytes;
};

/// Writes all files or none. More than one, or one that can only be written in place, are noted
/// with their new bytes in a journal in `folder` first; each is then replaced as WriteFile does.
/// What fails in the middle is taken back. A process that ends in the middle leaves the journal,
/// and `FinishInterrupted` goes on. Fails with a vb::Failure that names the file.
void WriteTogether(const std::filesystem::path& folder, const std::vector<Change>& changes);

/// What became of a journal that an ended process had left.
struct Finished {
  std::vector<std::filesystem::path> Written;
  /// Files that somebody changed since, which are left alone, and where their new bytes went.
  struct Kept {
    std::filesystem::path File, Beside;
  };
  std::vector<Kept> Others;
};

/// Finishes every save that ended in the middle and left its journal in the folder; those that go
/// on just now in another process are left alone, and so is a journal with a file that `isOurs`
/// denies: whoever unpacks a foreign folder must not have anything else written. Fails with a
/// vb::Failure that names the file that can't be written; the journal stays then.
std::vector<Finished> FinishInterrupted(
    const std::filesystem::path& folder,
    const std::function<bool(const std::filesystem::path& file)>& isOurs);

/// The files that `FinishInterrupted` would write, those that were changed since included; nothing
/// is touched.
[[nodiscard]] std::vector<std::filesystem::path> LeftByInterrupted(
    const std::filesystem::path& folder,
    const std::function<bool(const std::filesystem::path& file)>& isOurs);

}  // namespace tessel::files
