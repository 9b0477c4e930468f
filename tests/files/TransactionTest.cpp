#include "hosts/files/Transaction.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include "hosts/files/AtomicFile.h"
#include "support/TemporaryFolder.h"
#include "vb/Failure.h"

namespace tessel::files {
namespace {

namespace fs = std::filesystem;

class Together : public testing::Test {
 protected:
  Together() {
    for (const char* name : {"a.bas", "b.bas", "sub/c.bas"}) {
      const fs::path file = folder_.Write(name, std::string("old ") + name);
      changes_.push_back({file, std::string("old ") + name, std::string("new ") + name});
    }
    changes_.push_back({folder_.Path() / "d.bas", std::nullopt, "new d.bas"});
  }
  ~Together() override { OnWriteStep = nullptr; }

  /// Writes in a process of its own that ends ahead of a step with the file of that number.
  void WriteAndEnd(const std::string& step, int number) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      int count = 0;
      OnWriteStep = [&](std::string_view at, const fs::path&) {
        if (at == step && ++count == number) _exit(9);
      };
      WriteTogether(folder_.Path(), changes_);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(WEXITSTATUS(status), 9);
  }
  static bool IsOurs(const fs::path& file) { return file.extension() == ".bas"; }
  /// "old" or "new" when that holds for all files; else what each has.
  [[nodiscard]] std::string State() const {
    std::string state;
    for (const Change& change : changes_) {
      const auto bytes = PresentBytes(change.File);
      const std::string one = bytes == change.Bytes    ? "new"
                              : bytes == change.Before ? "old"
                                                       : "(" + bytes.value_or("gone") + ")";
      if (state.find(one) == std::string::npos || state.size() > 3) state += one;
    }
    return state;
  }
  [[nodiscard]] int Litter() const {
    int count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
      count += entry.path().filename().string().starts_with(".tessel") ? 1 : 0;
    }
    return count;
  }

  test::TemporaryFolder folder_;
  std::vector<Change> changes_;
};

TEST_F(Together, AllAreWritten) {
  WriteTogether(folder_.Path(), changes_);
  EXPECT_EQ(State(), "new");
  EXPECT_EQ(Litter(), 0);
}

TEST_F(Together, AFaultInTheMiddleIsTakenBack) {
  for (int number = 1; number <= 5; ++number) {
    int count = 0;
    OnWriteStep = [&](std::string_view at, const fs::path&) {
      if (at == "rename" && ++count == number) throw vb::Failure(61, u"Disk full");
    };
    EXPECT_THROW(WriteTogether(folder_.Path(), changes_), vb::Failure) << number;
    OnWriteStep = nullptr;
    EXPECT_EQ(State(), "old") << number;
    EXPECT_EQ(Litter(), 0) << number;
  }
}

TEST_F(Together, AProcessThatEndsBehindTheJournalIsGoneOnWith) {
  for (int number = 1; number <= 5; ++number) {
    for (const std::string step : {"write", "flush", "rename"}) {
      for (const Change& change : changes_) {
        if (change.Before) {
          WriteFile(change.File, *change.Before);
        } else {
          RemoveFile(change.File);
        }
      }
      WriteAndEnd(step, number);
      const auto finished = FinishInterrupted(folder_.Path(), IsOurs);
      // The first file is the journal itself.
      EXPECT_EQ(State(), number == 1 ? "old" : "new") << step << number;
      EXPECT_EQ(finished.size(), number == 1 ? 0U : 1U);
      RemoveStrays(folder_.Path());
      RemoveStrays(folder_.Path() / "sub");
      EXPECT_EQ(Litter(), 0) << step << number;
    }
  }
}

TEST_F(Together, StraysBesideTheTargetOfALinkAreRemovedByTheNextWriting) {
  fs::create_symlink("sub/c.bas", folder_.Path() / "link.bas");
  folder_.Write("sub/.tessel-0123abcd.tmp", "half");
  WriteTogether(folder_.Path(), {{folder_.Path() / "link.bas", "old sub/c.bas", "new"}});
  EXPECT_EQ(folder_.Read("sub/c.bas"), "new");
  EXPECT_EQ(Litter(), 0);
}

TEST_F(Together, WhatIsLeftCanBeToldWithoutTouchingIt) {
  WriteAndEnd("rename", 3);
  const int litter = Litter();
  const std::vector<fs::path> left{folder_.Path() / "b.bas", folder_.Path() / "sub/c.bas",
                                   folder_.Path() / "d.bas"};
  EXPECT_EQ(LeftByInterrupted(folder_.Path(), IsOurs), left);
  EXPECT_EQ(folder_.Read("b.bas"), "old b.bas");
  EXPECT_EQ(Litter(), litter);
  FinishInterrupted(folder_.Path(), IsOurs);
  EXPECT_TRUE(LeftByInterrupted(folder_.Path(), IsOurs).empty());
}

TEST_F(Together, AFileThatSomebodyChangedSinceIsLeftAloneAndTheNewOneLiesBesideIt) {
  WriteAndEnd("rename", 3);
  EXPECT_EQ(folder_.Read("a.bas"), "new a.bas");
  folder_.Write("b.bas", "another one's");
  const auto finished = FinishInterrupted(folder_.Path(), IsOurs);
  ASSERT_EQ(finished.size(), 1U);
  ASSERT_EQ(finished[0].Others.size(), 1U);
  EXPECT_EQ(finished[0].Others[0].File, folder_.Path() / "b.bas");
  EXPECT_EQ(folder_.Read("b.bas"), "another one's");
  EXPECT_EQ(folder_.Read("b.bas.saved"), "new b.bas");
  EXPECT_EQ(folder_.Read("sub/c.bas"), "new sub/c.bas");
}

TEST_F(Together, AFileWithTwoNamesIsWholeAgainBehindTheNextLook) {
  fs::create_hard_link(folder_.Path() / "a.bas", folder_.Path() / "second.bas");
  changes_.resize(1);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    OnWriteStep = [&](std::string_view at, const fs::path& file) {
      if (at == "flush" && file == changes_[0].File && PresentBytes(file) == changes_[0].Bytes) {
        fs::resize_file(file, 3);  // half of it got to the disk
        _exit(9);
      }
    };
    WriteTogether(folder_.Path(), changes_);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 9);
  EXPECT_EQ(folder_.Read("a.bas"), "new");
  FinishInterrupted(folder_.Path(), IsOurs);
  EXPECT_EQ(folder_.Read("a.bas"), "new a.bas");
  EXPECT_EQ(folder_.Read("second.bas"), "new a.bas");
}

TEST_F(Together, WhatIsWrittenBehindAKillStaysAlsoInAFileWithTwoNames) {
  fs::create_hard_link(folder_.Path() / "a.bas", folder_.Path() / "second.bas");
  changes_.resize(1);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    OnWriteStep = [](std::string_view at, const fs::path&) {
      if (at == "in place") _exit(9);
    };
    WriteTogether(folder_.Path(), changes_);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 9);
  WriteFile(folder_.Path() / "a.bas", "written by hand");
  FinishInterrupted(folder_.Path(), IsOurs);
  EXPECT_EQ(folder_.Read("a.bas"), "written by hand");
  EXPECT_EQ(folder_.Read("a.bas.saved"), "new a.bas");
}

TEST_F(Together, ASaveThatGoesOnInAnotherProcessIsLeftAlone) {
  int looks = 0;
  OnWriteStep = [&](std::string_view at, const fs::path& file) {
    if (at == "rename" && file == changes_[1].File) {
      looks = static_cast<int>(FinishInterrupted(folder_.Path(), IsOurs).size()) + 1;
    }
  };
  WriteTogether(folder_.Path(), changes_);
  EXPECT_EQ(looks, 1);
  EXPECT_EQ(State(), "new");
}

TEST_F(Together, AJournalOfAMovedFolderWritesThere) {
  WriteAndEnd("rename", 3);
  const fs::path moved = folder_.Path().string() + "-moved";
  fs::rename(folder_.Path(), moved);
  FinishInterrupted(moved, IsOurs);
  EXPECT_EQ(ReadFile(moved / "b.bas"), "new b.bas");
  EXPECT_FALSE(fs::exists(folder_.Path()));
  fs::remove_all(moved);
}

TEST_F(Together, AJournalWithAnythingElseWritesNothing) {
  changes_.push_back({folder_.Path() / ".profile", std::nullopt, "harm"});
  WriteAndEnd("rename", 2);
  EXPECT_TRUE(FinishInterrupted(folder_.Path(), IsOurs).empty());
  EXPECT_FALSE(fs::exists(folder_.Path() / ".profile"));
  EXPECT_EQ(folder_.Read("a.bas"), "old a.bas");
}

TEST_F(Together, AReadOnlyFileIsNamedAheadOfEveryWriting) {
  fs::permissions(changes_[2].File, fs::perms::owner_read);
  try {
    WriteTogether(folder_.Path(), changes_);
    FAIL();
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(std::string(failure.what()),
              changes_[2].File.string() + ": cannot be written: the file is read-only");
  }
  EXPECT_EQ(State(), "old");
}

}  // namespace
}  // namespace tessel::files
