#include "snippets/FolderNotes.h"

#include <cstdint>
#include <string_view>

#include "store/Command.h"
#include "store/Recordset.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

constexpr StringView Digits = u"0123456789abcdef";

/// FNV-1a of the text with line ends of LF and without a byte order mark.
String DigestOf(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  std::uint64_t digest = 0xCBF29CE484222325U;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (bytes.substr(at, 2) == "\r\n") continue;
    digest = (digest ^ static_cast<unsigned char>(bytes[at])) * 0x100000001B3U;
  }
  String text;
  for (int shift = 60; shift >= 0; shift -= 4) text += Digits[digest >> shift & 15U];
  return text;
}

/// The same for every way to name the folder.
std::string PathOf(const fs::path& folder) {
  std::error_code error;
  fs::path path = fs::weakly_canonical(fs::absolute(folder, error), error);
  if (error) path = fs::absolute(folder, error);
  std::string text = path.generic_string();
  if (!text.ends_with('/')) text += '/';
  return text;
}

bool IsThere(const fs::path& file) {
  std::error_code error;
  return fs::exists(fs::symlink_status(file, error));
}

bool HasTable(const std::shared_ptr<store::Connection>& connection) {
  store::Recordset found;
  found.Open(u"SELECT name FROM sqlite_master WHERE type = 'table' AND name = 'SnippetFiles'",
             connection);
  return found.RecordCount() > 0;
}

}  // namespace

FolderNotes::FolderNotes(const std::shared_ptr<store::Connection>& connection,
                         const fs::path& folder)
    : connection_(connection), folder_(folder), root_(PathOf(folder)) {
  if (HasTable(connection_)) Read();
}

void FolderNotes::Read() {
  store::Recordset rows;
  rows.Open(u"SELECT ID, File, Digest FROM SnippetFiles", connection_);
  for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
    const std::string file = vb::ToUtf8(store::ToText(rows.Cell(row, 1)));
    if (!file.starts_with(root_)) continue;
    notes_[file.substr(root_.size())][store::ToText(rows.Cell(row, 2))].push_back(
        store::ToLong(rows.Cell(row, 0)));
  }
}

std::string FolderNotes::NameOf(const fs::path& file) const {
  // What the table can hold, so that a name is the same before and after.
  return vb::ToUtf8(vb::FromUtf8(file.lexically_relative(folder_).generic_string()));
}

bool FolderNotes::IsNoted(const fs::path& file) const { return notes_.contains(NameOf(file)); }

bool FolderNotes::Fits(const fs::path& file, const std::string& bytes) const {
  const auto note = notes_.find(NameOf(file));
  return note != notes_.end() && note->second.contains(DigestOf(bytes));
}

bool FolderNotes::HasInside(const fs::path& folder) const {
  const std::string name = NameOf(folder) + "/";
  const auto note = notes_.lower_bound(name);
  return note != notes_.end() && note->first.starts_with(name);
}

bool FolderNotes::IsRenamed(const fs::path& file, const std::string& bytes) const {
  const std::string name = NameOf(file);
  if (notes_.contains(name)) return false;
  const std::string folder = name.substr(0, name.rfind('/') + 1);
  const auto [missing, isNew] = missing_.try_emplace(folder);
  for (auto note = notes_.lower_bound(folder); isNew && note != notes_.end(); ++note) {
    if (!note->first.starts_with(folder)) break;
    if (note->first.find('/', folder.size()) != std::string::npos) continue;
    if (IsThere(folder_ / note->first)) continue;
    for (const auto& digest : note->second) missing->second.insert(digest.first);
  }
  return missing->second.contains(DigestOf(bytes));
}

void FolderNotes::Add(const fs::path& file, const std::string& bytes) {
  std::string name = NameOf(file);
  String digest = DigestOf(bytes);
  auto& rows = notes_[name][digest];
  if (!rows.empty()) return;
  rows.push_back(0);
  added_.emplace_back(std::move(name), std::move(digest));
}

void FolderNotes::Set(const fs::path& file, const std::string& bytes) {
  Add(file, bytes);
  Digests& digests = notes_[NameOf(file)];
  const String kept = DigestOf(bytes);
  for (const auto& digest : digests) {
    if (digest.first != kept) Drop(digest);
  }
  std::erase_if(digests, [&](const auto& digest) { return digest.first != kept; });
}

void FolderNotes::ForgetMissing() {
  std::erase_if(notes_, [&](const auto& note) {
    if (IsThere(folder_ / note.first)) return false;
    for (const auto& digest : note.second) Drop(digest);
    return true;
  });
}

void FolderNotes::Drop(const Digests::value_type& digest) {
  for (const std::int64_t row : digest.second) dropped_.push_back(row);
}

void FolderNotes::Write() {
  if (added_.empty() && dropped_.empty()) return;
  connection_->Execute(
      u"CREATE TABLE IF NOT EXISTS SnippetFiles (ID INTEGER PRIMARY KEY, File TEXT, Digest TEXT)");
  store::Command insert(connection_,
                        u"INSERT INTO SnippetFiles (File, Digest) VALUES (@File, @Digest)");
  for (const auto& [name, digest] : added_) {
    insert.Execute({vb::FromUtf8(root_ + name), digest});
  }
  store::Command remove(connection_, u"DELETE FROM SnippetFiles WHERE ID = @ID");
  for (const std::int64_t row : dropped_) remove.Execute({row});
  added_.clear();
  dropped_.clear();
}

}  // namespace tessel
