// What a library knows of the files that it was written to and read from.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "store/Connection.h"

namespace tessel {

/// The files below a folder as one library last wrote or read them: each path with digests of its
/// bytes, in a table of the library that is made when there is something to note. A file that fits
/// its note says nothing that the library didn't know; whatever wrote any other one, it may be
/// somebody's work. Line ends and a byte order mark, which a checkout may change, make no
/// difference. Files are named as paths below the folder, in the words in which it was given.
class FolderNotes {
 public:
  /// Reads the notes. Fails with what the store says.
  FolderNotes(const std::shared_ptr<store::Connection>& connection,
              const std::filesystem::path& folder);

  /// Whether anything is noted for the file; whether these are bytes that are.
  [[nodiscard]] bool IsNoted(const std::filesystem::path& file) const;
  [[nodiscard]] bool Fits(const std::filesystem::path& file, const std::string& bytes) const;
  /// Whether something is noted inside a folder, in whatever depth.
  [[nodiscard]] bool HasInside(const std::filesystem::path& folder) const;
  /// Whether a file that isn't noted bears what is noted for a missing file of the same folder: it
  /// was renamed.
  [[nodiscard]] bool IsRenamed(const std::filesystem::path& file, const std::string& bytes) const;

  /// Notes bytes beside those that are noted for the file.
  void Add(const std::filesystem::path& file, const std::string& bytes);
  /// Notes bytes in the place of all others.
  void Set(const std::filesystem::path& file, const std::string& bytes);
  /// Drops the notes of files that are gone.
  void ForgetMissing();
  /// Writes the changes; part of the caller's transaction. Fails with what the store says.
  void Write();

 private:
  /// By the digest the rows that hold it, 0 for one that isn't written yet.
  using Digests = std::map<String, std::vector<std::int64_t>>;

  void Read();
  [[nodiscard]] std::string NameOf(const std::filesystem::path& file) const;
  void Drop(const Digests::value_type& digest);

  std::shared_ptr<store::Connection> connection_;
  std::filesystem::path folder_;
  /// Ahead of each name in the table: the folder's own path, with a separator at its end.
  std::string root_;
  std::map<std::string, Digests> notes_;
  std::vector<std::pair<std::string, String>> added_;
  std::vector<std::int64_t> dropped_;
  /// The digests that are noted for missing files, by folder.
  mutable std::map<std::string, std::set<String>> missing_;
};

}  // namespace tessel
