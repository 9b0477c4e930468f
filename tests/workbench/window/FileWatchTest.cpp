#include "hosts/workbench/window/FileWatch.h"

#include <gtest/gtest.h>

#include <QTest>

#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

namespace tessel::workbench {
namespace {

class Watching : public testing::Test {
 protected:
  Watching() {
    folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub\r\n");
    folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
    workspace_.Open(folder_.Path() / "P.vbp");
    watch_.Refresh();
  }

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::TemporaryFolder folder_;
  workspace::Workspace workspace_{services_};
  FileWatch watch_{workspace_, nullptr};
};

TEST_F(Watching, TellsOfAFileThatChangedOutsideOnce) {
  EXPECT_TRUE(watch_.Look().empty());
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nSub B()\r\nEnd Sub\r\n");
  const auto changed = watch_.Look();
  ASSERT_EQ(changed.size(), 1U);
  EXPECT_EQ(changed.front().Component->PlainName(), u"M");
  EXPECT_FALSE(changed.front().IsGone());
  EXPECT_TRUE(watch_.Look().empty());
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n");
  EXPECT_EQ(watch_.Look().size(), 1U);
}

TEST_F(Watching, SaysNothingOfTheProgramsOwnSaving) {
  workspace_.SetText(u"M", u"' mine");
  workspace_.Save();
  EXPECT_TRUE(watch_.Look().empty());
}

TEST_F(Watching, TellsOfAFileThatIsGone) {
  std::filesystem::remove(folder_.Path() / "M.bas");
  const auto changed = watch_.Look();
  ASSERT_EQ(changed.size(), 1U);
  EXPECT_TRUE(changed.front().IsGone());
}

TEST_F(Watching, TellsOfAProjectFileThatChangedOutsideOnce) {
  EXPECT_TRUE(watch_.LookAtProjects().empty());
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"Q\"\r\n");
  auto changed = watch_.LookAtProjects();
  ASSERT_EQ(changed.size(), 1U);
  EXPECT_EQ(changed.front().Project->PlainName(), u"P");
  EXPECT_TRUE(watch_.IsStill(changed.front()));
  EXPECT_TRUE(watch_.LookAtProjects().empty());
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
  EXPECT_FALSE(watch_.IsStill(changed.front())) << "the bytes of before";
}

TEST_F(Watching, SaysNothingOfAProjectFileThatTheProgramWrote) {
  workspace_.RenameComponent(u"", u"M", u"N");
  workspace_.Save();
  EXPECT_TRUE(watch_.LookAtProjects().empty());
}

TEST_F(Watching, HearsOfAProjectFilesChangeFromTheSystem) {
  int told = 0;
  watch_.OnProjectsChanged = [&](const auto&) { ++told; };
  QTest::qWait(500);  // until the files are watched
  folder_.Write("P.vbp", "Type=Exe\r\nName=\"Q\"\r\n");
  EXPECT_TRUE(QTest::qWaitFor([&] { return told > 0; }, 5000));
}

TEST_F(Watching, HearsOfAChangeFromTheSystem) {
  int told = 0;
  watch_.OnChanged = [&](const auto&) { ++told; };
  folder_.Write("M.bas", "x");
  EXPECT_TRUE(QTest::qWaitFor([&] { return told > 0; }, 5000));
}

}  // namespace
}  // namespace tessel::workbench
