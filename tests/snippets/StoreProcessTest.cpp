// What a kill leaves of a run that stores components, and two such runs at once.

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include "connections/cConnectionMDBs.h"
#include "forms/User.h"
#include "hosts/workspace/Workspace.h"
#include "snippets/SnippetDatabase.h"
#include "snippets/TreeCheck.h"
#include "snippets/frmStoreToVbCode.h"
#include "support/MemoryPlatform.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;
namespace user = forms::user;

constexpr int Modules = 4;

/// A library and a project on the disk; temporary files of killed processes go with the folder.
class StoringProcesses : public testing::Test {
 protected:
  StoringProcesses() {
    fs::create_directories(folder_.Path() / "tmp");
    setenv("TMPDIR", (folder_.Path() / "tmp").c_str(), 1);
    test::WriteEmptyDatabase(file_);
    std::string lines;
    for (int at = 0; at < Modules; ++at) {
      const std::string name = "M" + std::to_string(at);
      folder_.Write(name + ".bas", Source(name));
      lines += "Module=" + name + "; " + name + ".bas\r\n";
    }
    folder_.Write("P.vbp", "Type=Exe\r\n" + lines + "Name=\"P\"\r\n");
  }
  ~StoringProcesses() override { unsetenv("TMPDIR"); }

  static std::string Source(const std::string& name) {
    return "Attribute VB_Name = \"" + name + "\"\r\n" + std::string(5000, '\'') + "\r\n";
  }
  /// Stores the project in a folder of its own, in this process.
  void Store(bool folders) const {
    memory::MemoryPlatform services;
    const platform::ScopedPlatform scope(services);
    const auto connection = std::make_shared<cConnectionMDB>();
    connection->NameConnect = MainConnection;
    connection->mConnectMDB = test::OpenDatabase(file_);
    gConnectionMDBs = std::make_shared<cConnectionMDBs>();
    gConnectionMDBs->Add(connection, MainConnection);
    workspace::Workspace workspace(services, {});
    workspace.Open(folder_.Path() / "P.vbp");
    const auto dialog = std::make_shared<frmStoreToVbCode>();
    dialog->VBInstance = workspace.VBE();
    dialog->Show();
    user::Press(dialog->btmSelectAll);
    user::Press(dialog->btmNext);
    user::SelectRow(dialog->fgTreeNext, 0, 0);
    user::Check(dialog->chkCreateClasses, folders ? 1 : 0);
    user::Press(dialog->btmNext);
    dialog->Unload();
    gConnectionMDBs.reset();
  }
  [[nodiscard]] pid_t Start(bool folders) const {
    const pid_t child = fork();
    if (child == 0) {
      Store(folders);
      _exit(0);
    }
    return child;
  }
  /// Records that hold a component, each whole, and those that are still empty.
  struct Count {
    int Whole = 0, Empty = 0;
  };
  [[nodiscard]] Count Look() const {
    const auto connection = test::OpenDatabase(file_);
    EXPECT_EQ(test::Unsound(test::RowsOf(connection)), "");
    const auto tree = test::OpenTree(connection);
    Count count;
    for (const TreeNode& node : tree->GetNodes().value_or(std::vector<TreeNode>())) {
      if (node.Root == FolderKind) continue;
      const ListFragment stored = tree->GetRecordsetFromList(node.ID);
      if (stored == ListFragment{}) {
        ++count.Empty;
        continue;
      }
      EXPECT_EQ(vb::ToUtf8(stored.TitleObj + stored.TextObj), Source(vb::ToUtf8(node.Name)));
      ++count.Whole;
    }
    EXPECT_TRUE(CheckTree(connection, false).empty());
    return count;
  }

  const test::TemporaryFolder folder_;
  const fs::path file_ = folder_.Path() / "library.mdb";
};

TEST_F(StoringProcesses, AKillLeavesWholeRecordsAndAtMostOneEmpty) {
  std::mt19937 random(5);
  int cut = 0;
  Count before;
  for (int round = 0; round < 40; ++round) {
    const pid_t child = Start(round % 2 == 0);
    ASSERT_GE(child, 0);
    std::this_thread::sleep_for(
        std::chrono::milliseconds(std::uniform_int_distribution<int>(0, 120)(random)));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    const Count after = Look();
    ASSERT_LE(after.Empty, before.Empty + 1) << "round " << round;
    ASSERT_GE(after.Whole, before.Whole) << "round " << round;
    if (after.Whole > before.Whole && after.Whole < before.Whole + Modules) ++cut;
    before = after;
  }
  std::cout << cut << " runs were cut in the middle, " << before.Whole << " records, "
            << before.Empty << " empty\n";
}

TEST_F(StoringProcesses, TwoRunsAtOnceLoseNothing) {
  const pid_t children[] = {Start(true), Start(false)};
  for (const pid_t child : children) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  const Count count = Look();
  EXPECT_EQ(count.Whole, 2 * Modules);
  EXPECT_EQ(count.Empty, 0);
}

}  // namespace
}  // namespace tessel
