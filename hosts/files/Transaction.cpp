#include "hosts/files/Transaction.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>

#include "hosts/files/AtomicFile.h"
#include "vb/ByteText.h"
#include "vb/Failure.h"

namespace tessel::files {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view JournalEnding = ".journal";
constexpr std::string_view Magic = "tessel save 1\n";
constexpr std::size_t NumberLength = 8;

/// FNV-1a.
std::uint64_t Digest(std::string_view bytes) {
  std::uint64_t digest = 0xCBF29CE484222325U;
  for (const char unit : bytes) {
    digest = (digest ^ static_cast<unsigned char>(unit)) * 0x100000001B3U;
  }
  return digest;
}

/// One file of a journal.
struct Entry {
  fs::path File;
  bool Existed = false, InPlace = false;
  std::uint64_t Before = 0;  ///< digest of what it had
  std::string Bytes;
};

class Writer {
 public:
  void Number(std::uint64_t number) {
    for (std::size_t at = 0; at < NumberLength; ++at, number >>= 8U) {
      text_ += static_cast<char>(number & 0xFFU);
    }
  }
  void Text(std::string_view text) {
    Number(text.size());
    text_ += text;
  }
  /// The whole with its check sum.
  std::string Finish() && {
    Number(Digest(text_));
    return std::move(text_);
  }

 private:
  std::string text_{Magic};
};

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}
  std::uint64_t Number() {
    std::uint64_t number = 0;
    const std::string_view bytes = Take(NumberLength);
    for (std::size_t at = bytes.size(); at > 0; --at) {
      number = number << 8U | static_cast<unsigned char>(bytes[at - 1]);
    }
    return number;
  }
  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  std::string Text() { return std::string(Take(Number())); }

 private:
  std::string_view Take(std::uint64_t count) {
    const std::string_view taken = rest_.substr(0, static_cast<std::size_t>(count));
    rest_.remove_prefix(taken.size());
    return taken;
  }
  std::string_view rest_;
};

/// A folder that is moved or copied takes its journal along: names are relative to it.
std::string NameIn(const fs::path& folder, const fs::path& file) {
  const fs::path relative = fs::absolute(file).lexically_relative(fs::absolute(folder));
  return (relative.empty() ? fs::absolute(file) : relative).string();
}

std::string JournalOf(const fs::path& folder, const std::vector<Change>& changes) {
  Writer journal;
  journal.Number(changes.size());
  for (const Change& change : changes) {
    journal.Text(NameIn(folder, change.File));
    journal.Number((change.Before ? 1U : 0U) | (IsWrittenInPlace(change.File) ? 2U : 0U));
    journal.Number(change.Before ? Digest(*change.Before) : 0);
    journal.Text(change.Bytes);
  }
  return std::move(journal).Finish();
}

/// Nothing for a text that is no whole journal.
std::optional<std::vector<Entry>> ReadJournal(const fs::path& folder, std::string_view text) {
  if (!text.starts_with(Magic) || text.size() < Magic.size() + 2 * NumberLength) return {};
  const std::string_view body = text.substr(0, text.size() - NumberLength);
  if (Reader(text.substr(body.size())).Number() != Digest(body)) return {};
  Reader reader(body.substr(Magic.size()));
  std::vector<Entry> entries;
  for (std::uint64_t left = reader.Number(); left > 0 && !reader.AtEnd(); --left) {
    Entry& entry = entries.emplace_back();
    entry.File = (folder / reader.Text()).lexically_normal();
    const std::uint64_t flags = reader.Number();
    entry.Existed = (flags & 1U) != 0;
    entry.InPlace = (flags & 2U) != 0;
    entry.Before = reader.Number();
    entry.Bytes = reader.Text();
  }
  return entries;
}

void Put(const Change& change) {
  if (change.Before) {
    WriteFile(change.File, change.Bytes);
  } else if (!CreateFile(change.File, change.Bytes)) {
    throw vb::Failure(vb::PathFileAccess,
                      vb::FromBytes(change.File.string() + ": the file exists already"),
                      u"Tessel.files");
  }
}

/// Gives the first `count` files back what they had. False when one of them can't have it.
bool TakeBack(const std::vector<Change>& changes, std::size_t count) {
  bool all = true;
  for (std::size_t at = count; at-- > 0;) {
    try {
      const Change& change = changes[at];
      if (change.Before) {
        WriteFile(change.File, *change.Before);
      } else {
        RemoveFile(change.File);
      }
    } catch (const vb::Failure&) {
      all = false;
    }
  }
  return all;
}

/// The place for bytes that can't go into their file: "M.bas.saved", "M.bas.saved2" ...
fs::path PutBeside(const fs::path& file, const std::string& bytes) {
  for (int number = 1;; ++number) {
    fs::path beside = file;
    beside += number == 1 ? ".saved" : ".saved" + std::to_string(number);
    if (PresentBytes(beside) == bytes || CreateFile(beside, bytes)) return beside;
  }
}

/// Whether a file is what a writing in place leaves behind that ended in the middle: the new bytes
/// up to some place, with zeros or nothing behind them. What somebody wrote since looks otherwise.
bool IsHalfWritten(const std::string& present, const std::string& bytes) {
  if (present.size() > bytes.size()) return false;
  const auto rest = std::mismatch(present.begin(), present.end(), bytes.begin()).first;
  return std::all_of(rest, present.end(), [](char byte) { return byte == '\0'; });
}

Finished Finish(const std::vector<Entry>& entries) {
  Finished done;
  for (const Entry& entry : entries) {
    const auto present = PresentBytes(entry.File);
    if (present == entry.Bytes) continue;
    const bool untouched = present ? (entry.Existed && Digest(*present) == entry.Before) ||
                                         (entry.InPlace && IsHalfWritten(*present, entry.Bytes))
                                   : !entry.Existed;
    if (untouched) {
      WriteFile(entry.File, entry.Bytes);
      done.Written.push_back(entry.File);
    } else {
      done.Others.push_back({entry.File, PutBeside(entry.File, entry.Bytes)});
    }
  }
  return done;
}

std::set<fs::path> FoldersOf(const std::vector<Change>& changes) {
  std::set<fs::path> folders;
  for (const Change& change : changes) folders.insert(FolderOfTarget(change.File));
  return folders;
}

}  // namespace

void WriteTogether(const fs::path& folder, const std::vector<Change>& changes) {
  for (const Change& change : changes) CheckWritable(change.File);
  if (changes.empty()) return;
  const auto folders = FoldersOf(changes);
  for (const fs::path& one : folders) RemoveStrays(one);
  if (changes.size() == 1 && !IsWrittenInPlace(changes.front().File)) {
    Put(changes.front());
    return;
  }
  const fs::path journal = OwnNameIn(folder, JournalEnding);
  WriteFile(journal, JournalOf(folder, changes));
  std::optional<Hold> hold(std::in_place, journal);
  FlushFolder(folder);
  std::size_t done = 0;
  try {
    for (; done < changes.size(); ++done) Put(changes[done]);
  } catch (...) {
    // The one that failed may be half written where it is written in place.
    const bool half = IsWrittenInPlace(changes[done].File);
    if (!TakeBack(changes, half ? done + 1 : done)) throw;
    RemoveFile(journal);
    throw;
  }
  for (const fs::path& one : folders) FlushFolder(one);
  RemoveFile(journal);
}

namespace {

/// The journals of a folder that nobody works on and that hold nothing but files of ours.
void ForEachLeft(const fs::path& folder, const std::function<bool(const fs::path&)>& isOurs,
                 const std::function<void(const fs::path&, const std::vector<Entry>&)>& action) {
  std::vector<fs::path> journals;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (IsOwnName(entry->path(), JournalEnding)) journals.push_back(entry->path());
  }
  std::sort(journals.begin(), journals.end());
  for (const fs::path& journal : journals) {
    const Hold hold(journal);
    if (!hold.Taken() || !fs::exists(journal, error)) continue;
    const auto entries = ReadJournal(folder, ReadFile(journal));
    if (entries && std::all_of(entries->begin(), entries->end(),
                               [&](const Entry& entry) { return isOurs(entry.File); })) {
      action(journal, *entries);
    }
  }
}

}  // namespace

std::vector<Finished> FinishInterrupted(const fs::path& folder,
                                        const std::function<bool(const fs::path&)>& isOurs) {
  std::vector<Finished> all;
  ForEachLeft(folder, isOurs, [&](const fs::path& journal, const std::vector<Entry>& entries) {
    all.push_back(Finish(entries));
    RemoveFile(journal);
  });
  return all;
}

std::vector<fs::path> LeftByInterrupted(const fs::path& folder,
                                        const std::function<bool(const fs::path&)>& isOurs) {
  std::vector<fs::path> left;
  ForEachLeft(folder, isOurs, [&](const fs::path&, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
      if (PresentBytes(entry.File) != entry.Bytes) left.push_back(entry.File);
    }
  });
  return left;
}

}  // namespace tessel::files
