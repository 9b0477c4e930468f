#include "store/Seeds.h"

#include <string>
#include <string_view>
#include <vector>

#include "SeedTexts.h"
#include "StarterTexts.h"
#include "store/Engine.h"

namespace tessel::store {
namespace {

namespace fs = std::filesystem;

struct SeedFile {
  const char* Name;
  std::string_view Statements, More;
};
/// The starter library is an empty snippet database with its records.
constexpr SeedFile SeedFiles[] = {{"VBCode.MDB", seed::empty_snippets_sql, seed::starter_sql},
                                  {"Personal.MDB", seed::personal_sql, {}}};

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

std::vector<std::byte> DatabaseOf(std::string_view statements) {
  Connection connection;
  connection.OpenMemory(statements);
  return BytesOf(connection.Handle());
}

}  // namespace

void WriteStandardDatabases(const fs::path& folder, platform::Files& files) {
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
    if (fs::exists(file)) continue;
    const std::vector<std::byte> bytes = DatabaseOf(std::string(seed.Statements).append(seed.More));
    // One that another process made meanwhile stays.
    static_cast<void>(
        files.Create(file, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  }
}

std::shared_ptr<Connection> OpenDeliveredPersonal() {
  auto connection = std::make_shared<Connection>();
  connection->OpenMemory(seed::personal_sql);
  return connection;
}

std::shared_ptr<Connection> OpenEmptySnippets() {
  auto connection = std::make_shared<Connection>();
  connection->OpenMemory(seed::empty_snippets_sql);
  return connection;
}

std::span<const std::byte> EmptySnippetDatabase() {
  static const std::vector<std::byte> bytes = DatabaseOf(seed::empty_snippets_sql);
  return bytes;
}

}  // namespace tessel::store
