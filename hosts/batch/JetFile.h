// The tables of a genuine Jet database, read by the programs of mdbtools.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/batch/JetPages.h"

namespace tessel::batch {

/// True for a file that says that it is a Jet database.
[[nodiscard]] bool IsJetFile(const std::filesystem::path& file);

struct JetTable {
  std::vector<String> Columns;
  /// Nothing stands for null.
  std::vector<std::vector<std::optional<String>>> Rows;
  /// Rows that the file says it has.
  std::size_t Declared = 0;
};

/// Reads tables of one file, which is never written. Memo columns come through to the last unit,
/// zeros and single surrogates included; an empty one isn't null. Columns of short text come as
/// mdbtools gives them: empty is null, and a character beyond the first 65,536 is "??".
class JetFile {
 public:
  /// Fails with a text that names the file when it can't be read, is encrypted or no Jet database.
  explicit JetFile(const std::filesystem::path& file);

  /// Fails with a text that names the file and the table or the missing column, and for a missing
  /// mdbtools the package. A damaged file on which mdbtools doesn't come to an end fails too.
  [[nodiscard]] JetTable Read(const std::string& table, const std::vector<String>& columns) const;

 private:
  [[nodiscard]] std::string Run(const std::string& program, const std::vector<std::string>& options,
                                const std::string& table) const;
  [[noreturn]] void Fail(const std::string& why) const;

  void MakeCopy();
  [[nodiscard]] const std::vector<JetColumn>& Definition(const std::vector<String>& names) const;
  [[nodiscard]] String Decoded(const std::string& field, bool memo, const std::string& table) const;
  void ReadRows(JetTable& table, const std::string& text, const std::string& name) const;

  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::filesystem::path file_;
  /// Has no name, so nothing is left of it, whatever ends this process.
  std::unique_ptr<std::FILE, Close> copy_;
  JetHeader header_;
  /// Of all tables that the file defines.
  std::vector<std::vector<JetColumn>> definitions_;
};

}  // namespace tessel::batch
