// The file services of this system.
#pragma once

#include "platform/Files.h"

namespace tessel::files {

class SystemFiles : public platform::Files {
 public:
  void Write(const std::filesystem::path& file, std::string_view bytes) override;
  bool Create(const std::filesystem::path& file, std::string_view bytes) override;
  void Move(const std::filesystem::path& from, const std::filesystem::path& to) override;
};

}  // namespace tessel::files
