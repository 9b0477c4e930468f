#include "hosts/batch/JetFile.h"

#include <algorithm>
#include <fstream>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include "hosts/batch/ChildProcess.h"
#include "vb/CodePages.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

std::optional<JetHeader> HeaderOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::string head(JetHeaderSize, '\0');
  in.read(head.data(), static_cast<std::streamsize>(head.size()));
  return in ? ReadJetHeader(head) : std::nullopt;
}

using Field = std::optional<std::string>;

/// Lines of fields with commas between them: one in quotes may hold anything, a quote in it twice.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : text_(text) {}
  [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }

  std::vector<Field> Row() {
    std::vector<Field> row;
    do {
      row.push_back(Next());
    } while (Skip(','));
    Skip('\n');
    return row;
  }

 private:
  bool Skip(char sign) {
    if (AtEnd() || text_[at_] != sign) return false;
    ++at_;
    return true;
  }
  /// Nothing for an empty field without quotes.
  Field Next() {
    if (!Skip('"')) {
      const std::size_t end = std::min(text_.find_first_of(",\n", at_), text_.size());
      const std::string field(text_.substr(at_, end - at_));
      at_ = end;
      return field.empty() ? std::nullopt : Field(field);
    }
    std::string field;
    while (!AtEnd()) {
      const std::size_t quote = std::min(text_.find('"', at_), text_.size());
      field += text_.substr(at_, quote - at_);
      at_ = quote + 1;
      if (!Skip('"')) break;
      field += '"';
    }
    return field;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

std::optional<std::string> BytesOfHex(std::string_view digits) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  if (digits.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (std::size_t at = 0; at < digits.size(); at += 2) {
    const std::size_t high = Digits.find(digits[at]), low = Digits.find(digits[at + 1]);
    if (high > 15 || low > 15) return std::nullopt;
    bytes += static_cast<char>(high << 4U | low);
  }
  return bytes;
}

bool SameNames(const std::vector<JetColumn>& definition, const std::vector<String>& names) {
  return definition.size() == names.size() &&
         std::all_of(definition.begin(), definition.end(), [&](const JetColumn& column) {
           return std::find(names.begin(), names.end(), column.Name) != names.end();
         });
}

/// More than any sound file of that size needs; a damaged one may lead in a circle. A bit of a row
/// becomes two signs at most.
ChildLimits LimitsFor(std::uint64_t fileSize) {
  constexpr std::uint64_t Mega = 1U << 20U;
  return {1024 * Mega, Mega + 32 * fileSize, 60 + fileSize / Mega};
}

}  // namespace

bool IsJetFile(const fs::path& file) { return HeaderOf(file).has_value(); }

JetFile::JetFile(const fs::path& file) : file_(file) {
  const auto header = HeaderOf(file);
  if (!header) Fail("is no Jet database");
  if (header->Encrypted) Fail("the database is encrypted; take the encryption off it first");
  header_ = *header;
  MakeCopy();
}

void JetFile::Fail(const std::string& why) const {
  throw vb::Failure(vb::InvalidCall, file_.u16string() + u": " + vb::FromUtf8(why), u"Tessel");
}

void JetFile::MakeCopy() {
  const fs::path folder = fs::temp_directory_path();
  std::string name = (folder / "tessel-jet-XXXXXX").string();
  const int made = mkostemp(name.data(), O_CLOEXEC);
  if (made >= 0) unlink(name.c_str());
  copy_.reset(made < 0 ? nullptr : fdopen(made, "wb"));
  if (!copy_) Fail("no temporary file can be made in " + folder.string());
  std::ifstream in(file_, std::ios::binary);
  std::string page(header_.PageSize, '\0');
  const auto put = [&](std::size_t size) {
    return std::fwrite(page.data(), 1, size, copy_.get()) == size;
  };
  bool written = true;
  while (written && in.read(page.data(), static_cast<std::streamsize>(page.size()))) {
    if (auto columns = MemosAsBytes(page, header_); !columns.empty()) {
      definitions_.push_back(std::move(columns));
    }
    written = put(page.size());
  }
  // The rest of a page that was cut off.
  written = written && put(static_cast<std::size_t>(in.gcount()));
  if (in.bad() || !written || std::fflush(copy_.get()) != 0) {
    Fail("the file can't be copied to " + folder.string());
  }
}

std::string JetFile::Run(const std::string& program, const std::vector<std::string>& options,
                         const std::string& table) const {
  std::vector<std::string> words = options;
  words.push_back("/proc/" + std::to_string(getpid()) + "/fd/" +
                  std::to_string(fileno(copy_.get())));
  words.push_back(table);
  ChildResult result;
  try {
    result = RunChild(program, words,
                      {"LC_ALL=C.UTF-8", "MDBICONV=UTF-8",
                       "MDBOPTS=", "MDB_JET3_CHARSET=CP" + std::to_string(header_.CodePage)},
                      LimitsFor(fs::file_size(file_)));
  } catch (const vb::Failure& failure) {
    if (failure.Number() != vb::FileNotFound) throw;
    Fail("a Jet database is read by " + program +
         ", which isn't here; install the package mdbtools");
  }
  if (result.Exit == 0) return std::move(result.Out);
  if (result.Exit < 0) {
    Fail("the file is damaged; " + program + " doesn't come to an end with the table " + table);
  }
  const bool gone = result.Err.find("does not exist") != std::string::npos;
  if (gone) Fail("is no snippet library; there is no table " + table);
  Fail("the table " + table + " can't be read; " + program + " ended with " +
       std::to_string(result.Exit) + (result.Err.empty() ? "" : ": " + result.Err));
}

const std::vector<JetColumn>& JetFile::Definition(const std::vector<String>& names) const {
  for (const auto& definition : definitions_) {
    if (SameNames(definition, names)) return definition;
  }
  Fail("the definition of a table can't be read");
}

String JetFile::Decoded(const std::string& field, bool memo, const std::string& table) const {
  if (!memo) return vb::FromUtf8(field);
  const auto bytes = BytesOfHex(field);
  if (!bytes) Fail("the table " + table + " holds a damaged text");
  return header_.Wide ? TextOfWideColumn(*bytes) : vb::TextOfBytes(*bytes, header_.CodePage);
}

void JetFile::ReadRows(JetTable& table, const std::string& text, const std::string& name) const {
  FieldReader reader(text);
  if (!reader.AtEnd()) {
    for (const Field& column : reader.Row()) {
      table.Columns.push_back(vb::FromUtf8(column.value_or("")));
    }
  }
  std::vector<bool> memos;
  const auto& definition = Definition(table.Columns);
  for (const String& column : table.Columns) {
    memos.push_back(std::any_of(definition.begin(), definition.end(), [&](const JetColumn& one) {
      return one.Name == column && one.Memo;
    }));
  }
  while (!reader.AtEnd()) {
    const std::vector<Field> fields = reader.Row();
    if (fields.size() != memos.size()) Fail("the table " + name + " holds a damaged row");
    std::vector<std::optional<String>> row;
    for (std::size_t at = 0; at < fields.size(); ++at) {
      row.emplace_back(fields[at] ? std::optional(Decoded(*fields[at], memos[at], name))
                                  : std::nullopt);
    }
    table.Rows.push_back(std::move(row));
  }
}

JetTable JetFile::Read(const std::string& name, const std::vector<String>& columns) const {
  JetTable all;
  ReadRows(all, Run("mdb-export", {"-b", "hex"}, name), name);
  std::vector<std::size_t> places;
  for (const String& column : columns) {
    const auto found = std::find_if(all.Columns.begin(), all.Columns.end(),
                                    [&](const String& one) { return vb::SameText(one, column); });
    if (found == all.Columns.end()) {
      Fail("is no snippet library; the table " + name + " has no column " + vb::ToUtf8(column));
    }
    places.push_back(static_cast<std::size_t>(found - all.Columns.begin()));
  }
  JetTable table;
  table.Columns = columns;
  table.Declared = std::strtoull(Run("mdb-count", {}, name).c_str(), nullptr, 10);
  for (auto& row : all.Rows) {
    std::vector<std::optional<String>> picked;
    picked.reserve(places.size());
    for (const std::size_t place : places) picked.push_back(row[place]);
    table.Rows.push_back(std::move(picked));
  }
  return table;
}

}  // namespace tessel::batch
