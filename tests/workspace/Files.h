// Project files in a folder of their own.
#pragma once

#include <gtest/gtest.h>

#include "hosts/files/AtomicFile.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"
#include "support/Fails.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

namespace tessel::test {

class Files : public testing::Test {
 protected:
  ~Files() override { files::OnWriteStep = nullptr; }

  std::filesystem::path Project(const std::string& entries) {
    return folder_.Write("P.vbp", "Type=Exe\r\n" + entries + "Name=\"P\"\r\n");
  }
  static std::shared_ptr<model::VBProject> ProjectOf(const workspace::Workspace& workspace) {
    return std::dynamic_pointer_cast<model::VBProject>(workspace.VBE()->ActiveVBProject());
  }
  std::string OpenFails(const std::filesystem::path& file) {
    return Fails([&] { workspace::Workspace(services_).Open(file); });
  }
  /// The problems of a project that opens, a line each.
  std::string ProblemsOf(const std::filesystem::path& file) {
    std::string all;
    for (const auto& one : workspace::Workspace(services_).Open(file)) {
      all += one.what() + std::string("\n");
    }
    return all;
  }
  [[nodiscard]] auto FileCount() const {
    return std::distance(std::filesystem::directory_iterator(folder_.Path()),
                         std::filesystem::directory_iterator());
  }

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::TemporaryFolder folder_;
};

}  // namespace tessel::test
