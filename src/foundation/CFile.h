// One file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "vb/Text.h"

namespace tessel {

/// Stands for the file named by `PathFileName`. Failures are 0x8004440D to 0x80044413; every
/// operation before a name was set fails with the first of them.
class CFile {
 public:
  void Init(StringView pathFileName);

  /// Attribute bits of the system: 1 read-only, 2 hidden, 16 folder, 32 archive.
  [[nodiscard]] int Attributes() const;
  /// The file's bytes.
  [[nodiscard]] std::string Contents() const;
  /// Replaces the file as a whole or not at all.
  void SetContents(const std::string& bytes) const;
  /// Name with extension, the extension without its point, and the folder without a closing
  /// separator.
  [[nodiscard]] String FileName() const;
  [[nodiscard]] String FileExt() const;
  [[nodiscard]] String FilePath() const;
  [[nodiscard]] const String& PathFileName() const { return pathFileName_; }
  void SetPathFileName(StringView value);
  [[nodiscard]] bool ReadOnly() const;
  /// The 8.3 name where the file system keeps one; else the name.
  [[nodiscard]] String ShortFileName() const;
  /// In bytes.
  [[nodiscard]] std::int64_t Size() const;

  void Copy(StringView target) const;
  void Delete() const;
  [[nodiscard]] bool Exists() const;
  /// Whether both files have the same bytes.
  [[nodiscard]] bool IdenticalWith(StringView other) const;
  /// The object stands for the moved file afterwards.
  void Move(StringView target);

 private:
  [[nodiscard]] std::filesystem::path Path() const;
  [[nodiscard]] std::filesystem::path ExistingPath() const;
  String pathFileName_;
};

}  // namespace tessel
