#include "hosts/files/TemporaryFolder.h"

#include <cstdlib>
#include <string>

namespace tessel::files {

namespace fs = std::filesystem;

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

const fs::path& TemporaryFolder::Path() {
  std::error_code error;
  // Somebody may have cleaned up.
  if (!path_.empty() && fs::is_directory(path_, error)) return path_;
  path_.clear();
  const fs::path system = fs::temp_directory_path(error);
  if (error) return path_;
  std::string name = (system / "tessel-XXXXXX").string();
  if (mkdtemp(name.data()) != nullptr) path_ = name;
  return path_;
}

}  // namespace tessel::files
