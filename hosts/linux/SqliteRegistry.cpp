#include "hosts/linux/SqliteRegistry.h"

#include <sqlite3.h>

#include <memory>
#include <string>

#include "vb/Failure.h"

namespace tessel::linux_host {
namespace {

namespace fs = std::filesystem;
using platform::RegistryValue;

constexpr int BusyTimeoutMs = 10000;

/// Types of a value, with the registry's numbers.
enum ValueType : int { TypeText = 1, TypeBinary = 3, TypeNumber = 4 };

constexpr const char* Schema =
    "CREATE TABLE IF NOT EXISTS Key (Id INTEGER PRIMARY KEY, Root INTEGER NOT NULL, Folded TEXT "
    "NOT NULL,"
    " Path TEXT NOT NULL, UNIQUE (Root, Folded));"
    "CREATE TABLE IF NOT EXISTS Value (Id INTEGER PRIMARY KEY, KeyId INTEGER NOT NULL REFERENCES "
    "Key (Id) ON DELETE "
    "CASCADE, Folded TEXT NOT NULL, Name TEXT NOT NULL, Type INTEGER NOT NULL, Data, UNIQUE "
    "(KeyId, Folded));";

std::string FoldedText(StringView text) { return vb::ToUtf8(vb::LCase(text)); }

/// One opening of the file, for one call; or the one that a group of changes has.
class File {
 public:
  File(const fs::path& path, bool create, sqlite3* group = nullptr)
      : path_(path), db_(group), isGroups_(group != nullptr) {
    if (isGroups_) return;
    if (create) {
      std::error_code error;
      fs::create_directories(path.parent_path(), error);
    }
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
    if (sqlite3_open_v2(path.c_str(), &db_, flags, nullptr) != SQLITE_OK) Fail();
    sqlite3_busy_timeout(db_, BusyTimeoutMs);
    Run("PRAGMA foreign_keys = ON");
    if (create) Run("BEGIN IMMEDIATE");
    if (create) Run(Schema);
  }
  ~File() { Close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  void Run(const char* sql) {
    if (sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
  }
  [[noreturn]] void Fail() {
    const std::string why = db_ == nullptr ? "out of memory" : sqlite3_errmsg(db_);
    Close();
    throw vb::Failure(vb::PathFileAccess,
                      path_.u16string() + u": the settings can't be used: " + vb::FromUtf8(why),
                      u"Tessel");
  }
  void Commit() {
    if (!isGroups_) Run("COMMIT");
  }
  [[nodiscard]] sqlite3* Handle() const { return db_; }

 private:
  void Close() {
    if (!isGroups_) sqlite3_close_v2(db_);
    db_ = nullptr;
  }

  fs::path path_;
  sqlite3* db_ = nullptr;
  bool isGroups_ = false;
};

/// A statement with its parameters, stepped to its end by the caller.
class Query {
 public:
  Query(File& file, const char* sql) : file_(file) {
    if (sqlite3_prepare_v2(file.Handle(), sql, -1, &statement_, nullptr) != SQLITE_OK) file.Fail();
  }
  ~Query() { sqlite3_finalize(statement_); }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  Query& Number(std::int64_t value) {
    sqlite3_bind_int64(statement_, ++parameter_, value);
    return *this;
  }
  Query& Text(const std::string& value) {
    sqlite3_bind_text(statement_, ++parameter_, value.data(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
    return *this;
  }
  Query& Blob(const std::vector<std::byte>& value) {
    sqlite3_bind_blob(statement_, ++parameter_, value.data(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
    return *this;
  }
  [[nodiscard]] bool Step() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) {
      sqlite3_finalize(statement_);
      statement_ = nullptr;
      file_.Fail();
    }
    return false;
  }
  void Finish() {
    while (Step()) {
    }
  }
  [[nodiscard]] std::int64_t NumberAt(int column) const {
    return sqlite3_column_int64(statement_, column);
  }
  [[nodiscard]] std::string BytesAt(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    return bytes == nullptr
               ? std::string()
               : std::string(bytes,
                             static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
  }

 private:
  File& file_;
  sqlite3_stmt* statement_ = nullptr;
  int parameter_ = 0;
};

std::int64_t RootNumber(platform::RootKey root) { return static_cast<std::uint32_t>(root); }

RegistryValue ReadValue(const Query& query) {
  const std::string bytes = query.BytesAt(1);
  switch (query.NumberAt(0)) {
    case TypeText:
      return vb::FromUtf8(bytes);
    case TypeNumber:
      return static_cast<std::uint32_t>(query.NumberAt(1));
    default: {
      const auto* first = reinterpret_cast<const std::byte*>(bytes.data());
      return std::vector<std::byte>(first, first + bytes.size());
    }
  }
}

struct BindValue {
  Query& Target;
  void operator()(const String& text) const { Target.Number(TypeText).Text(vb::ToUtf8(text)); }
  void operator()(std::uint32_t number) const { Target.Number(TypeNumber).Number(number); }
  void operator()(const std::vector<std::byte>& bytes) const {
    Target.Number(TypeBinary).Blob(bytes);
  }
};

}  // namespace

std::optional<RegistryValue> SqliteRegistry::GetValue(platform::RootKey root, StringView key,
                                                      StringView name) {
  if (!fs::exists(file_)) return std::nullopt;
  File file(file_, false, group_);
  Query query(file,
              "SELECT Value.Type, Value.Data FROM Key JOIN Value ON Value.KeyId = Key.Id WHERE "
              "Key.Root = ? AND Key.Folded = ? AND Value.Folded = ?");
  query.Number(RootNumber(root)).Text(FoldedText(key)).Text(FoldedText(name));
  if (!query.Step()) return std::nullopt;
  return ReadValue(query);
}

void SqliteRegistry::SetValue(platform::RootKey root, StringView key, StringView name,
                              const RegistryValue& value) {
  File file(file_, true, group_);
  {
    Query make(file, "INSERT OR IGNORE INTO Key (Root, Folded, Path) VALUES (?, ?, ?)");
    make.Number(RootNumber(root)).Text(FoldedText(key)).Text(vb::ToUtf8(key)).Finish();
    Query write(
        file,
        "INSERT INTO Value (KeyId, Folded, Name, Type, Data) SELECT Id, ?, ?, ?, ? FROM Key WHERE "
        "Root = ? AND Folded = ? ON CONFLICT (KeyId, Folded) DO UPDATE SET Type = "
        "excluded.Type, Data = excluded.Data");
    write.Text(FoldedText(name)).Text(vb::ToUtf8(name));
    std::visit(BindValue{write}, value);
    write.Number(RootNumber(root)).Text(FoldedText(key)).Finish();
  }
  file.Commit();
}

bool SqliteRegistry::DeleteKey(platform::RootKey root, StringView key) {
  if (!fs::exists(file_)) return false;
  File file(file_, true, group_);
  bool gone = false;
  {
    const std::string folded = FoldedText(key);
    Query below(file, "SELECT 1 FROM Key WHERE Root = ? AND substr(Folded, 1, length(?)) = ?");
    below.Number(RootNumber(root)).Text(folded + "\\").Text(folded + "\\");
    if (!below.Step()) {
      Query drop(file, "DELETE FROM Key WHERE Root = ? AND Folded = ?");
      drop.Number(RootNumber(root)).Text(folded).Finish();
      gone = sqlite3_changes(file.Handle()) > 0;
    }
  }
  file.Commit();
  return gone;
}

std::optional<std::vector<String>> SqliteRegistry::ValueNames(platform::RootKey root,
                                                              StringView key) {
  if (!fs::exists(file_)) return std::nullopt;
  File file(file_, false, group_);
  Query known(file, "SELECT Id FROM Key WHERE Root = ? AND Folded = ?");
  known.Number(RootNumber(root)).Text(FoldedText(key));
  if (!known.Step()) return std::nullopt;
  Query values(file, "SELECT Name FROM Value WHERE KeyId = ? ORDER BY Id");
  values.Number(known.NumberAt(0));
  std::vector<String> names;
  while (values.Step()) names.push_back(vb::FromUtf8(values.BytesAt(0)));
  return names;
}

void SqliteRegistry::Together(const std::function<void()>& changes) {
  if (group_ != nullptr) return changes();
  // Closed without a commit, it takes everything back.
  File file(file_, true);
  struct Group {
    sqlite3*& Handle;
    ~Group() { Handle = nullptr; }
  };
  {
    const Group group{group_ = file.Handle()};
    changes();
  }
  file.Commit();
}

}  // namespace tessel::linux_host
