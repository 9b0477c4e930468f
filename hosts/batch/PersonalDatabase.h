// The shared database as the batch commands find it.
#pragma once

#include <filesystem>
#include <memory>

#include "store/Connection.h"

namespace tessel::batch {

/// The shared database below a program's directory, or the delivered one, in memory, for an empty
/// path. Fails naming the file.
[[nodiscard]] std::shared_ptr<store::Connection> OpenPersonal(const std::filesystem::path& data);

/// The file of the shared database below a program's directory.
[[nodiscard]] std::filesystem::path PersonalFile(const std::filesystem::path& data);

/// The directory whose schemes count: the one given; else the user's when it holds a shared
/// database; else none, which stands for the delivered schemes.
[[nodiscard]] std::filesystem::path SchemeData(const std::filesystem::path& given);

/// Makes a connection the shared one for a scope.
class SharedDatabase {
 public:
  explicit SharedDatabase(std::shared_ptr<store::Connection> connection);
  ~SharedDatabase();
  SharedDatabase(const SharedDatabase&) = delete;
  SharedDatabase& operator=(const SharedDatabase&) = delete;
};

}  // namespace tessel::batch
