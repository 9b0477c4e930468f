#include "hosts/files/FolderLocks.h"

#include <gtest/gtest.h>

#include <future>
#include <optional>

#include "support/TemporaryFolder.h"

namespace tessel::files {
namespace {

namespace fs = std::filesystem;

TEST(FolderLocks, ASecondOneWaitsForTheEndOfTheFirst) {
  const test::TemporaryFolder folder;
  const fs::path path = folder.Path();
  std::optional<FolderLocks> first(std::in_place, std::set<fs::path>{path});
  auto second = std::async(std::launch::async, [&] { const FolderLocks locks({path}); });
  EXPECT_EQ(second.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
  first.reset();
  EXPECT_NO_THROW(second.get());
}

TEST(FolderLocks, AFolderThatIsNamedTwiceOrIsNotThereIsNoHindrance) {
  const test::TemporaryFolder folder;
  const fs::path path = folder.Path();
  fs::create_directory_symlink(path, path / "link");
  EXPECT_NO_THROW(FolderLocks({path, path / "link", path / "nowhere"}));
  EXPECT_EQ(std::distance(fs::directory_iterator(path), {}), 1) << "nothing is left behind";
}

}  // namespace
}  // namespace tessel::files
