#include "hosts/files/AtomicFile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/Fails.h"
#include "support/TemporaryFolder.h"
#include "vb/Failure.h"

namespace tessel::files {
namespace {

namespace fs = std::filesystem;
using test::Fails;

class WholeFiles : public testing::Test {
 protected:
  ~WholeFiles() override { OnWriteStep = nullptr; }

  [[nodiscard]] auto FileCount() const {
    return std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator());
  }

  test::TemporaryFolder folder_;
};

TEST_F(WholeFiles, AFileKeepsItsPermissionsAndItsNeighbours) {
  const fs::path file = folder_.Write("a.bas", "old");
  folder_.Write("a.bas.new", "mine");
  fs::permissions(file, fs::perms::owner_all | fs::perms::group_read);
  WriteFile(file, "new");
  EXPECT_EQ(folder_.Read("a.bas"), "new");
  EXPECT_EQ(folder_.Read("a.bas.new"), "mine");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_all | fs::perms::group_read);
  EXPECT_EQ(FileCount(), 2);
}

TEST_F(WholeFiles, AFileStaysWithItsOwnerWhoeverWritesIt) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a user who may write for others";
  const fs::path file = folder_.Write("a.bas", "old");
  constexpr uid_t Owner = 1234;
  constexpr gid_t Group = 4321;
  ASSERT_EQ(chown(file.c_str(), Owner, Group), 0);
  ASSERT_EQ(chmod(file.c_str(), 0640), 0);
  WriteFile(file, "new");
  struct stat about {};
  ASSERT_EQ(stat(file.c_str(), &about), 0);
  EXPECT_EQ(about.st_uid, Owner);
  EXPECT_EQ(about.st_gid, Group);
  EXPECT_EQ(about.st_mode & 07777, 0640U);
}

TEST_F(WholeFiles, StraysAreThoseOfOurOwnNamesAlone) {
  folder_.Write(".tessel-0123abcd.tmp", "stray");
  folder_.Write(".tessel-personal.tmp", "mine");
  RemoveStrays(folder_.Path());
  EXPECT_EQ(folder_.Read(".tessel-personal.tmp"), "mine");
  EXPECT_EQ(FileCount(), 1);
}

TEST_F(WholeFiles, FailuresNameAFileInItsOwnBytes) {
  const fs::path file = folder_.Path() / "M\xFCller.bas";
  EXPECT_EQ(Fails([&] { (void)ReadFile(file); }),
            file.string() + ": cannot be read: No such file or directory");
}

TEST_F(WholeFiles, ANameOfTwoHundredAndFiftyBytesIsWritten) {
  const std::string name = std::string(246, 'n') + ".bas";
  WriteFile(folder_.Path() / name, "x");
  EXPECT_EQ(folder_.Read(name), "x");
}

TEST_F(WholeFiles, ANameThatIsNoUtf8IsWritten) {
  const std::string name = "M\xFCller.bas";
  WriteFile(folder_.Path() / name, "x");
  EXPECT_EQ(folder_.Read(name), "x");
}

TEST_F(WholeFiles, ALinkStaysALinkAndASecondNameStays) {
  const fs::path file = folder_.Write("real/a.bas", "old");
  const fs::path link = folder_.Path() / "link.bas", second = folder_.Path() / "second.bas";
  fs::create_symlink("real/a.bas", link);
  fs::create_hard_link(file, second);
  WriteFile(link, "new, and longer");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(folder_.Read("real/a.bas"), "new, and longer");
  EXPECT_EQ(folder_.Read("second.bas"), "new, and longer");
  EXPECT_EQ(fs::hard_link_count(file), 2U);
  fs::create_symlink("gone.bas", folder_.Path() / "dangling.bas");
  WriteFile(folder_.Path() / "dangling.bas", "x");
  EXPECT_EQ(folder_.Read("gone.bas"), "x");
}

TEST_F(WholeFiles, WhatCantBeWrittenIsNamedWithItsCause) {
  const fs::path file = folder_.Write("a.bas", "old");
  fs::permissions(file, fs::perms::owner_read);
  EXPECT_EQ(Fails([&] { WriteFile(file, "new"); }),
            file.string() + ": cannot be written: the file is read-only");
  EXPECT_EQ(folder_.Read("a.bas"), "old");
  EXPECT_EQ(Fails([&] { WriteFile(folder_.Path(), "new"); }),
            folder_.Path().string() + ": cannot be written: Is a directory");
  EXPECT_EQ(Fails([&] { WriteFile(folder_.Path() / "", "new"); }),
            folder_.Path().string() + "/: cannot be written: the name ends in a separator");
  EXPECT_NE(Fails([&] {
              WriteFile(folder_.Path() / "no" / "a.bas", "new");
            }).find("cannot be written: No such file or directory"),
            std::string::npos);
}

TEST_F(WholeFiles, AFaultInAnyStepLeavesTheOldFileAndNoLitter) {
  const fs::path file = folder_.Write("a.bas", "old");
  for (const std::string step : {"write", "flush", "rename"}) {
    OnWriteStep = [&](std::string_view at, const fs::path&) {
      if (at == step) throw vb::Failure(61, u"Disk full");
    };
    EXPECT_EQ(Fails([&] { WriteFile(file, "new"); }), "Disk full");
    EXPECT_EQ(folder_.Read("a.bas"), "old");
    EXPECT_EQ(FileCount(), 1);
  }
}

TEST_F(WholeFiles, StraysOfEndedProcessesGoAndThoseOfLivingOnesStay) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  const fs::path file = folder_.Path() / "a.bas";
  if (child == 0) {
    OnWriteStep = [](std::string_view step, const fs::path&) {
      if (step == "rename") _exit(9);
    };
    WriteFile(file, "half");
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 9);
  EXPECT_EQ(FileCount(), 1) << "the stray";
  OnWriteStep = [&](std::string_view step, const fs::path&) {
    if (step == "rename") RemoveStrays(folder_.Path());  // another one's look while we write
  };
  RemoveStrays(folder_.Path());
  WriteFile(file, "whole");
  EXPECT_EQ(folder_.Read("a.bas"), "whole");
  EXPECT_EQ(FileCount(), 1);
}

TEST_F(WholeFiles, ANewFileNeverTakesThePlaceOfAnother) {
  const fs::path file = folder_.Write("a.bas", "mine");
  EXPECT_FALSE(CreateFile(file, "new"));
  EXPECT_EQ(folder_.Read("a.bas"), "mine");
  fs::create_symlink("nowhere", folder_.Path() / "link");
  EXPECT_FALSE(CreateFile(folder_.Path() / "link", "new"));
  OnWriteStep = [&](std::string_view step, const fs::path&) {
    if (step == "rename") folder_.Write("b.bas", "quicker");
  };
  EXPECT_FALSE(CreateFile(folder_.Path() / "b.bas", "new"));
  EXPECT_EQ(folder_.Read("b.bas"), "quicker");
  EXPECT_EQ(FileCount(), 3);
}

TEST_F(WholeFiles, AMoveCrossesFileSystemsAndOverwritesNothing) {
  const fs::path file = folder_.Write("a.bas", "text");
  const fs::path other = fs::path("/dev/shm") / (folder_.Path().filename().string() + ".bas");
  MoveFile(file, other);
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(ReadFile(other), "text");
  folder_.Write("a.bas", "mine");
  EXPECT_NE(Fails([&] { MoveFile(other, file); }).find("File exists"), std::string::npos);
  EXPECT_EQ(folder_.Read("a.bas"), "mine");
  fs::remove(other);
}

}  // namespace
}  // namespace tessel::files
