// What other processes do to a tree, and what a kill leaves of an operation.

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <set>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include "snippets/SnippetDatabase.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

/// A tree's rows and its rows of List.
struct State {
  std::vector<test::TreeRow> Rows;
  std::vector<int> Lists;
  bool operator==(const State&) const = default;
};
State StateOf(const fs::path& file) {
  const auto connection = test::OpenDatabase(file);
  return {test::RowsOf(connection), test::ListIdsOf(connection)};
}

/// A folder in memory where the system has one: a killed process needs no disk to lose its work.
struct MemoryFolder {
  MemoryFolder() {
    if (fs::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
  }
  ~MemoryFolder() { unsetenv("TMPDIR"); }
};

class Processes : public testing::Test {
 protected:
  void SetUp() override {
    test::WriteEmptyDatabase(file_);
    const auto tree = test::OpenTree(test::OpenDatabase(file_));
    for (int at = 0; at < 12; ++at) {
      const int folder = tree->AddNode(u"folder", at < 4 ? 1 : 69 + at, 0, 0, FolderKind);
      tree->AddNode(u"record", folder == 0 ? 1 : folder, 0, 0, RecordKind);
    }
  }

  MemoryFolder memory_;
  test::TemporaryFolder folder_;
  fs::path file_ = folder_.Path() / "tree.mdb";
};

int NodeOf(CSQLTree& tree, std::mt19937& random, int& kind) {
  const auto nodes = tree.GetNodes();
  if (!nodes || nodes->empty()) return 0;
  const TreeNode& node =
      (*nodes)[std::uniform_int_distribution<std::size_t>(0, nodes->size() - 1)(random)];
  kind = node.Root;
  return node.ID;
}

/// One operation as the dialogs do them; the same for the same seed and the same tree.
void Operate(const fs::path& file, unsigned seed) {
  const auto connection = test::OpenDatabase(file);
  const auto tree = test::OpenTree(connection);
  std::mt19937 random(seed);
  int kind = FolderKind;
  const int node = NodeOf(*tree, random, kind);
  const bool grown = tree->GetNodes().has_value() && tree->GetNodes()->size() > 60;
  switch (seed % 7) {
    case 0:
      tree->AddNode(u"added", kind == FolderKind ? node : 1, 0, 0, FolderKind);
      break;
    case 1:
    case 2: {
      store::Transaction transaction(*connection);
      const int id = tree->AddNode(u"import", kind == FolderKind ? node : 1, 0, 0, RecordKind);
      ListFragment fragment;
      fragment.CompObj = String(9000, u'x');
      tree->UpdateListFragment(id, fragment);
      transaction.Commit();
      break;
    }
    case 3:
      if (grown) tree->DeleteNode(node);
      break;
    case 4:
      tree->MoveLeftNode(node, kind);
      break;
    case 5:
      tree->MoveRightNode(node, kind);
      break;
    default:
      seed % 2 == 0 ? tree->MoveUpNode(node, kind) : tree->MoveDownNode(node, kind);
  }
}

TEST_F(Processes, AKillLeavesTheTreeAsItWasBeforeOrAsItIsAfter) {
  // TESSEL_KILLS takes a longer walk.
  const char* const wanted = std::getenv("TESSEL_KILLS");
  const unsigned kills = wanted == nullptr ? 400 : static_cast<unsigned>(std::atoi(wanted));
  std::mt19937 random(3);
  int before = 0, after = 0;
  for (unsigned seed = 0; seed < kills; ++seed) {
    const State was = StateOf(file_);
    const fs::path copy = folder_.Path() / "copy.mdb";
    fs::copy_file(file_, copy, fs::copy_options::overwrite_existing);
    const auto start = std::chrono::steady_clock::now();
    Operate(copy, seed);
    const auto took = std::chrono::steady_clock::now() - start;
    const State done = StateOf(copy);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      Operate(file_, seed);
      _exit(0);
    }
    // However slow the machine is: some kills come early, some late.
    std::this_thread::sleep_for(took * std::uniform_real_distribution(0.0, 3.0)(random));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    const State is = StateOf(file_);
    ASSERT_TRUE(is == was || is == done) << "operation " << seed;
    ASSERT_EQ(test::Unsound(is.Rows), "") << "operation " << seed;
    if (done == was) continue;
    ++(is == was ? before : after);
  }
  EXPECT_GT(before, 9) << "kills came too late to tell";
  EXPECT_GT(after, 9) << "kills came too early to tell";
}

/// Adds and moves, and answers how many additions failed. Writes the numbers of its own nodes.
int Work(const fs::path& file, const fs::path& report, unsigned seed, int operations) {
  const auto connection = test::OpenDatabase(file);
  const auto tree = test::OpenTree(connection);
  std::mt19937 random(seed);
  std::ofstream out(report);
  int failed = 0;
  for (int at = 0; at < operations; ++at) {
    int kind = FolderKind;
    const int node = NodeOf(*tree, random, kind);
    switch (random() % 4) {
      case 0: {
        const int added = tree->AddNode(u"mine", kind == FolderKind ? node : 1, 0, 0, RecordKind);
        if (added == 0) ++failed;
        out << added << '\n';
        break;
      }
      case 1:
        tree->MoveRightNode(node, kind);
        break;
      case 2:
        tree->MoveLeftNode(node, kind);
        break;
      default:
        tree->MoveUpNode(node, kind);
    }
  }
  return failed;
}

TEST_F(Processes, TwoProcessesThatChangeOneLibraryLoseNothing) {
  constexpr int Operations = 400;
  const fs::path reports[] = {folder_.Path() / "1", folder_.Path() / "2"};
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) _exit(Work(file_, reports[0], 11, Operations) == 0 ? 0 : 1);
  EXPECT_EQ(Work(file_, reports[1], 12, Operations), 0);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0) << "an addition of the other process failed";
  const auto rows = StateOf(file_).Rows;
  EXPECT_EQ(test::Unsound(rows), "");
  std::multiset<int> there;
  for (const auto& row : rows) there.insert(row.ID);
  int counted = 0;
  for (const fs::path& report : reports) {
    std::ifstream in(report);
    for (int id = 0; in >> id; ++counted) EXPECT_EQ(there.count(id), 1U) << id;
  }
  EXPECT_GT(counted, Operations / 4);
}

TEST_F(Processes, AnOperationWaitsForTheOtherProcessToFinish) {
  const auto mine = test::OpenTree(test::OpenDatabase(file_));
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const auto connection = test::OpenDatabase(file_);
    const auto theirs = test::OpenTree(connection);
    store::Transaction transaction(*connection);
    static_cast<void>(write(ready[1], "x", 1));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const int added = theirs->AddNode(u"theirs", 1, 0, 0, RecordKind);
    transaction.Commit();
    _exit(added == 0 ? 1 : 0);
  }
  char one = 0;
  ASSERT_EQ(read(ready[0], &one, 1), 1);
  EXPECT_GT(mine->AddNode(u"mine", 1, 0, 0, RecordKind), 0);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  close(ready[0]);
  close(ready[1]);
  const auto rows = StateOf(file_).Rows;
  EXPECT_EQ(test::Unsound(rows), "");
  EXPECT_EQ(rows.back().Name, u"mine") << "behind what the other process added";
}

}  // namespace
}  // namespace tessel
