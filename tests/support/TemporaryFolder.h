// A folder of its own for a test.
#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

namespace tessel::test {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    static std::atomic<int> count = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("tessel-test-" + std::to_string(getpid()) + "-" + std::to_string(count++));
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path Write(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return path_ / name;
  }
  [[nodiscard]] std::string Read(const std::string& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tessel::test
