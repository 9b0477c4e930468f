#include "store/Seeds.h"

#include <atomic>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "SeedTexts.h"
#include "store/Engine.h"

namespace tessel::store {
namespace {

namespace fs = std::filesystem;

struct SeedFile {
  const char* Name;
  std::string_view Statements;
};
constexpr SeedFile SeedFiles[] = {{"VBCode.MDB", seed::vbcode_sql},
                                  {"Personal.MDB", seed::personal_sql}};

/// The bytes that a database would have as a file.
std::vector<std::byte> BytesOf(sqlite3* db) {
  sqlite3_int64 size = 0;
  unsigned char* const bytes = sqlite3_serialize(db, "main", &size, 0);
  if (bytes == nullptr) throw vb::RuntimeFailure(vb::OutOfMemory);
  const auto* const first = reinterpret_cast<const std::byte*>(bytes);
  std::vector<std::byte> copy(first, first + size);
  sqlite3_free(bytes);
  return copy;
}

/// A name that no other process uses at the same time.
fs::path TemporaryBeside(const fs::path& file) {
  static std::atomic<unsigned> count = 0;
  const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
  fs::path beside = file;
  beside += "." + std::to_string(ticks) + "-" + std::to_string(count++) + ".new";
  return beside;
}

/// Makes the whole database beside the file, then renames it. A file that another process made
/// meanwhile stays.
void WriteDatabase(const fs::path& file, std::string_view statements) {
  const fs::path beside = TemporaryBeside(file);
  sqlite3* db = nullptr;
  const std::string name = vb::ToUtf8(beside.u16string());
  try {
    if (sqlite3_open(name.c_str(), &db) != SQLITE_OK) throw engine::Error(db, name);
    engine::Run(db, "BEGIN IMMEDIATE");
    engine::Run(db, std::string(statements));
    engine::Run(db, "COMMIT");
    sqlite3_close(db);
  } catch (const vb::Failure& failure) {
    sqlite3_close(db);
    std::error_code ignored;
    fs::remove(beside, ignored);
    throw vb::Failure(StoreFailure, file.u16string() + u": " + failure.Description(),
                      u"Tessel.store");
  }
  if (fs::exists(file)) {
    fs::remove(beside);
  } else {
    fs::rename(beside, file);
  }
}

}  // namespace

void WriteStandardDatabases(const fs::path& folder) {
  try {
    fs::create_directories(folder);
  } catch (const fs::filesystem_error& error) {
    throw vb::Failure(
        StoreFailure,
        folder.u16string() + u": the folder can't be made: " + vb::FromUtf8(error.code().message()),
        u"Tessel.store");
  }
  for (const SeedFile& seed : SeedFiles) {
    const fs::path file = folder / seed.Name;
    if (!fs::exists(file)) WriteDatabase(file, seed.Statements);
  }
}

std::shared_ptr<Connection> OpenDeliveredPersonal() {
  auto connection = std::make_shared<Connection>();
  connection->OpenMemory(seed::personal_sql);
  return connection;
}

std::span<const std::byte> EmptySnippetDatabase() {
  static const std::vector<std::byte> bytes = [] {
    Connection connection;
    connection.OpenMemory(seed::empty_snippets_sql);
    return BytesOf(connection.Handle());
  }();
  return bytes;
}

}  // namespace tessel::store
