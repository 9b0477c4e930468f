#include "hosts/files/SystemFiles.h"

#include "hosts/files/AtomicFile.h"

namespace tessel::files {

void SystemFiles::Write(const std::filesystem::path& file, std::string_view bytes) {
  RemoveStrays(file.parent_path());
  WriteFile(file, bytes);
}

bool SystemFiles::Create(const std::filesystem::path& file, std::string_view bytes) {
  RemoveStrays(file.parent_path());
  return CreateFile(file, bytes);
}

void SystemFiles::Move(const std::filesystem::path& from, const std::filesystem::path& to) {
  MoveFile(from, to);
}

}  // namespace tessel::files
