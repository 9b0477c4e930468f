#include "hosts/batch/FormatCommand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "hosts/batch/FormatOptions.h"
#include "support/TemporaryFolder.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

class FormatCommandTest : public testing::Test {
 protected:
  int Format(const std::string& input = {}) {
    std::istringstream in(input);
    out_.str("");
    err_.str("");
    FormatCommand command;
    command.Request = request_;
    return command.Run({in, out_, err_});
  }
  fs::path Project(const std::string& module) {
    folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n" + module);
    return folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
  }
  test::TemporaryFolder folder_;
  FormatRequest request_;
  std::ostringstream out_, err_;
};

constexpr const char* Plain = "Sub A()\r\nx = 1\r\nEnd Sub\r\n";
constexpr const char* Formatted =
    "Attribute VB_Name = \"M\"\r\nSub A()\r\n    x = 1\r\nEnd Sub\r\n\r\n\r\n";

TEST_F(FormatCommandTest, WritesAndThenFindsNothingToDo) {
  request_.Files = {Project(Plain).string()};
  request_.Jobs = 4;
  EXPECT_EQ(Format(), Done);
  EXPECT_EQ(folder_.Read("M.bas"), Formatted);
  request_.Check = true;
  EXPECT_EQ(Format(), Done);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(err_.str(), "0 would change, 0 left alone, 1 unchanged\n");
}

TEST_F(FormatCommandTest, CheckAndDiffWriteNothing) {
  request_.Files = {Project(Plain).string()};
  const std::string before = folder_.Read("M.bas");
  request_.Check = true;
  EXPECT_EQ(Format(), WouldChange);
  EXPECT_EQ(out_.str(), (folder_.Path() / "M.bas").string() + ": would be formatted\n");
  request_.Check = false;
  request_.Diff = true;
  EXPECT_EQ(Format(), Done);
  EXPECT_NE(out_.str().find("-x = 1\r\n+    x = 1\r\n"), std::string::npos);
  EXPECT_EQ(folder_.Read("M.bas"), before);
}

TEST_F(FormatCommandTest, LeavesAComponentWhoseMeaningWouldChangeUnlessForced) {
  request_.Files = {Project("Sub A()\r\n10\r\nEnd Sub\r\n").string()};
  const std::string before = folder_.Read("M.bas"), file = (folder_.Path() / "M.bas").string();
  EXPECT_EQ(Format(), Failed);
  EXPECT_EQ(err_.str(),
            file + ": left as it is, since it would mean something else (--force writes it)\n  " +
                file + ":3: the line number 10 is lost\n0 formatted, 1 left alone\n");
  EXPECT_EQ(folder_.Read("M.bas"), before);
  request_.Force = true;
  EXPECT_EQ(Format(), Done);
  EXPECT_NE(folder_.Read("M.bas"), before);
}

TEST_F(FormatCommandTest, GoesOnBehindABadComponent) {
  folder_.Write("M.bas", std::string("Attribute VB_Name = \"M\"\r\n") + Plain);
  folder_.Write("P.vbp", "Type=Exe\r\nForm=Gone.frm\r\nModule=M; M.bas\r\n");
  request_.Files = {(folder_.Path() / "P.vbp").string()};
  EXPECT_EQ(Format(), Failed);
  EXPECT_NE(err_.str().find("P.vbp:2: the component's file does not exist: "), std::string::npos);
  EXPECT_EQ(folder_.Read("M.bas"), Formatted);
}

TEST_F(FormatCommandTest, NamesFilesThatAreNotThere) {
  request_.Files = {"/no/such.vbp"};
  EXPECT_EQ(Format(), Failed);
  EXPECT_EQ(err_.str(), "tessel: /no/such.vbp: the file does not exist\n");
}

TEST_F(FormatCommandTest, FormatsStandardInputInItsOwnForm) {
  request_.Files = {"-"};
  EXPECT_EQ(Format("Sub A()\n' \xC3\xA9\nx\nEnd Sub\n"), Done);
  EXPECT_EQ(out_.str(), "Sub A()\n    ' \xC3\xA9\n    x\nEnd Sub\n\n\n");
}

TEST_F(FormatCommandTest, TakesItsOptionsFromTheNearestFileAndTheCommandLineOverIt) {
  folder_.Write(
      ".tessel",
      "# house style\nspaces-per-level = 2\ntab-characters = off\nrule END SUB = on 0 0\n");
  request_.Files = {Project(Plain).string()};
  EXPECT_EQ(Format(), Done);
  EXPECT_EQ(folder_.Read("M.bas"),
            "Attribute VB_Name = \"M\"\r\nSub A()\r\n  x = 1\r\nEnd Sub\r\n\r\n");
  request_.Overrides = {{"spaces-per-level", "3"}};
  EXPECT_EQ(Format(), Done);
  EXPECT_NE(folder_.Read("M.bas").find("\r\n   x = 1"), std::string::npos);
}

TEST_F(FormatCommandTest, NamesFileAndLineOfABadOption) {
  folder_.Write(".tessel", "\nspaces-per-level = 99\n");
  request_.Files = {Project(Plain).string()};
  EXPECT_EQ(Format(), Failed);
  EXPECT_NE(err_.str().find(".tessel:2: spaces-per-level takes a number from 1 to 20, not \"99\""),
            std::string::npos);
}

TEST_F(FormatCommandTest, PrintsOptionsThatItReadsAgain) {
  request_.Files = {"-"};
  request_.PrintConfig = true;
  EXPECT_EQ(Format(), Done);
  const fs::path file = folder_.Write("printed", out_.str());
  FormatOptions options;
  ReadConfig(options, file);
  std::ostringstream again;
  WriteConfig(options, again);
  EXPECT_EQ(again.str(), out_.str());
}

TEST_F(FormatCommandTest, FormatsTheChosenComponentOnly) {
  Project(Plain);
  request_.Files = {(folder_.Path() / "P.vbp").string()};
  request_.Components = {"Other"};
  EXPECT_EQ(Format(), Failed);
  EXPECT_NE(err_.str().find("P.vbp: there is no component \"Other\"\n"), std::string::npos);
  EXPECT_NE(folder_.Read("M.bas"), Formatted);
  request_.Components = {"m"};
  EXPECT_EQ(Format(), Done);
  EXPECT_EQ(folder_.Read("M.bas"), Formatted);
}

// A key comment at a module's end leaves a marker behind, which in a run of the dialog goes to the
// next module.
TEST_F(FormatCommandTest, GivesTheSameBytesForAnyJobsOrderAndChoice) {
  constexpr int Modules = 12;
  std::vector<int> order;
  for (int number = 0; number < Modules; ++number) order.push_back(number);
  const auto write = [&] {
    std::string project = "Type=Exe\r\n";
    for (const int number : order) {
      const std::string name = "M" + std::to_string(number);
      std::string text = "Attribute VB_Name = \"" + name + "\"\r\nOption Explicit\r\nSub A()\r\n";
      text += "If x Then\r\ny = " + std::to_string(number) + "\r\nEnd If\r\nEnd Sub\r\n";
      if (number % 3 == 0) text += "'errMarker: Skip\r\n";
      if (number % 3 == 1) text += "'errMarker: Skip\r\nIf z Then\r\n";
      folder_.Write(name + ".bas", text);
      project += "Module=" + name + "; " + name + ".bas\r\n";
    }
    return folder_.Write("P.vbp", project + "Name=\"P\"\r\n").string();
  };
  const auto bytes = [&] {
    std::vector<std::string> all;
    for (int number = 0; number < Modules; ++number) {
      all.push_back(folder_.Read("M" + std::to_string(number) + ".bas"));
    }
    return all;
  };
  request_.Files = {write()};
  const auto raw = bytes();
  ASSERT_EQ(Format(), Done) << err_.str();
  const auto alone = bytes();
  EXPECT_NE(alone, raw);
  for (const int jobs : {2, 5, 16}) {
    write();
    request_.Jobs = jobs;
    ASSERT_EQ(Format(), Done) << err_.str();
    EXPECT_EQ(bytes(), alone) << jobs << " jobs";
  }
  std::reverse(order.begin(), order.end());
  write();
  ASSERT_EQ(Format(), Done);
  EXPECT_EQ(bytes(), alone) << "the other way round";
  write();
  for (int number = 0; number < Modules; ++number) {
    request_.Components = {"M" + std::to_string(number)};
    ASSERT_EQ(Format(), Done);
  }
  EXPECT_EQ(bytes(), alone) << "one by one";
}

TEST_F(FormatCommandTest, AReadOnlyFolderFailsAndNothingIsLost) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may write everywhere";
  request_.Files = {Project(Plain).string()};
  fs::permissions(folder_.Path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(Format(), Failed);
  fs::permissions(folder_.Path(), fs::perms::owner_all);
  EXPECT_NE(folder_.Read("M.bas"), Formatted);
}

TEST_F(FormatCommandTest, AFileWithoutALastLineEndIsDoneInOneRun) {
  const std::string head = "Attribute VB_Name = \"M\"\r\n";
  request_.Files = {folder_.Write("M.bas", head + "Sub A()\r\nx = 1\r\nEnd Sub").string()};
  EXPECT_EQ(Format(), Done) << err_.str();
  EXPECT_EQ(folder_.Read("M.bas"), head + "Sub A()\r\n    x = 1\r\nEnd Sub\r\n\r\n\r\n");
  request_.Check = true;
  EXPECT_EQ(Format(), Done);
}

TEST_F(FormatCommandTest, ADateThatWasCutLosesABlankLineInTheSecondRun) {
  // The cut leaves a line number alone, and of that an empty line.
  const std::string head = "Attribute VB_Name = \"M\"\r\nSub A()\r\n    d = #1/1/1900 11\r\n";
  const std::string tail = "59  PM#\r\nEnd Sub\r\n\r\n\r\n";
  folder_.Write(
      "M.bas", "Attribute VB_Name = \"M\"\r\nSub A()\r\nd = #1/1/1900 11:59:59 PM#\r\nEnd Sub\r\n");
  request_.Files = {(folder_.Path() / "M.bas").string()};
  request_.Force = true;
  EXPECT_EQ(Format(), Done) << err_.str();
  EXPECT_EQ(folder_.Read("M.bas"), head + "\r\n" + tail);
  EXPECT_EQ(Format(), Done) << err_.str();
  EXPECT_EQ(folder_.Read("M.bas"), head + tail);
  request_.Check = true;
  EXPECT_EQ(Format(), Done) << "from then on nothing changes";
}

TEST_F(FormatCommandTest, FormattingTheSamplesTwiceChangesOneCommentAlone) {
  fs::copy(fs::path(TESSEL_SOURCE_DIR) / "samples", folder_.Path() / "s",
           fs::copy_options::recursive);
  request_.Files = {(folder_.Path() / "s" / "samples.vbg").string()};
  request_.Force = true;
  EXPECT_EQ(Format(), Done) << err_.str();
  request_.Diff = true;
  EXPECT_EQ(Format(), Done);
  // A comment behind several statements gets its blank once they stand on lines of their own.
  std::istringstream lines(out_.str());
  std::string added;
  for (std::string line; std::getline(lines, line);) {
    if (line[0] == '+' && line.substr(0, 3) != "+++") added += line;
  }
  EXPECT_EQ(added.find("+            GreetingFor = \"Good afternoon\" ' one line"), 0U)
      << out_.str();
  EXPECT_EQ(added.find('+', 1), std::string::npos) << added;
}

}  // namespace
}  // namespace tessel::batch
